#include "note/arranging.h"

#include <algorithm>

namespace jotlets {
namespace {

// The corner of a note that is wanted at `at`, moved into the area; one that is too large keeps its title in
// sight.
Point Within(Point at, const Rect& note, const Rect& area) {
  return {std::max(std::min(at.x, area.right - note.Width()), area.left),
          std::max(std::min(at.y, area.bottom - note.Height()), area.top)};
}

// Places for the notes of one monitor.
class Arranger {
 public:
  Arranger(const Rect& area, const ArrangeSteps& steps) : area_(area), steps_(steps) {
    at_ = {area.left + steps.gap, area.top + steps.gap};
  }

  /// In rows; where those come to the bottom, the next ones begin a step beside the first.
  Point Tile(const Rect& note) {
    if (at_.x > area_.left + steps_.gap + shift_ && at_.x + note.Width() > area_.right) {
      at_ = {area_.left + steps_.gap + shift_, at_.y + row_ + steps_.gap};
      row_ = 0;
    }
    if (at_.y > area_.top + steps_.gap + shift_ && at_.y + note.Height() > area_.bottom) {
      shift_ = shift_ + 2 * steps_.step > area_.Height() / 2 ? 0 : shift_ + steps_.step;
      at_ = {area_.left + steps_.gap + shift_, area_.top + steps_.gap + shift_};
      row_ = 0;
    }
    const Point place = Within(at_, note, area_);
    at_.x += note.Width() + steps_.gap;
    row_ = std::max(row_, note.Height());
    return place;
  }

  /// Down to the right; the next pile begins at the top, a step further to the right.
  Point Cascade(const Rect& note) {
    if (at_.y > area_.top + steps_.gap && at_.y + note.Height() > area_.bottom) {
      shift_ += steps_.step;
      if (area_.left + shift_ + note.Width() > area_.right) shift_ = 0;
      at_ = {area_.left + steps_.gap + shift_, area_.top + steps_.gap};
    }
    const Point place = Within(at_, note, area_);
    at_ = {at_.x + steps_.step, at_.y + steps_.step};
    return place;
  }

  /// Straight down; a pile that comes to the bottom goes on beside itself.
  Point Pile(const Rect& note, bool first) {
    const bool below = at_.y + note.Height() > area_.bottom && at_.y > area_.top + steps_.gap;
    if (first || below) {
      if (row_ > 0) at_.x += row_ + steps_.gap;
      if (at_.x + note.Width() > area_.right) at_.x = area_.left + steps_.gap;
      at_.y = area_.top + steps_.gap;
      row_ = 0;
    }
    const Point place = Within(at_, note, area_);
    at_.y += steps_.step;
    row_ = std::max(row_, note.Width());
    return place;
  }

 private:
  Rect area_;
  ArrangeSteps steps_;
  Point at_;
  std::int32_t row_ = 0;    // the height of the row, or the width of the pile
  std::int32_t shift_ = 0;  // of rows and piles that begin again
};

// Those of one colour together, in the order in which the colours come first.
void SortByColour(std::vector<std::size_t>& group, const std::vector<ArrangedNote>& notes) {
  std::vector<Colour> colours;
  std::vector<std::size_t> rank(notes.size());
  for (const std::size_t at : group) {
    const auto found = std::ranges::find(colours, notes[at].colour);
    rank[at] = static_cast<std::size_t>(found - colours.begin());
    if (found == colours.end()) colours.push_back(notes[at].colour);
  }
  std::ranges::stable_sort(group, {}, [&](std::size_t at) { return rank[at]; });
}

}  // namespace

std::vector<Point> ArrangedPlaces(Arrangement arrangement, const std::vector<ArrangedNote>& notes,
                                  const ArrangeSteps& steps) {
  std::vector<Point> places(notes.size());
  std::vector<bool> placed(notes.size());
  for (std::size_t first = 0; first < notes.size(); ++first) {
    if (placed[first]) continue;
    std::vector<std::size_t> group;
    for (std::size_t at = first; at < notes.size(); ++at)
      if (notes[at].area == notes[first].area) group.push_back(at);
    if (arrangement == Arrangement::kColours) SortByColour(group, notes);
    Arranger arranger(notes[first].area, steps);
    std::size_t before = notes.size();
    for (const std::size_t at : group) {
      const bool newPile = before == notes.size() || notes[before].colour != notes[at].colour;
      places[at] = arrangement == Arrangement::kTile      ? arranger.Tile(notes[at].bounds)
                   : arrangement == Arrangement::kCascade ? arranger.Cascade(notes[at].bounds)
                                                          : arranger.Pile(notes[at].bounds, newPile);
      placed[at] = true;
      before = at;
    }
  }
  return places;
}

}  // namespace jotlets
