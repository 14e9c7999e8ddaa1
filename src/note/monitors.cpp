#include "note/monitors.h"

#include <algorithm>
#include <iterator>

#include "note/placement.h"

namespace jotlets {
namespace {

// How far `at` lies outside, along one axis.
double Outside(std::int32_t at, std::int32_t from, std::int32_t to) {
  return std::max({static_cast<double>(from) - at, static_cast<double>(at) - to, 0.0});
}

double SquaredDistance(Point at, const Rect& area) {
  const double across = Outside(at.x, area.left, area.right);
  const double down = Outside(at.y, area.top, area.bottom);
  return across * across + down * down;
}

// A corner on the far edge itself is off the monitor too, unlike at the edge of the virtual screen.
Point BroughtInto(Point at, const Rect& area) {
  const Point last{Saturated(std::int64_t{area.right} - 1), Saturated(std::int64_t{area.bottom} - 1)};
  const Point rescued = RescuedPosition(at, {area.left, area.top, last.x, last.y});
  return {std::max(rescued.x, area.left), std::max(rescued.y, area.top)};
}

}  // namespace

bool MonitorList::Add(const Rect& workArea, const Rect& fullArea) {
  if (count_ == rects_.size()) return false;
  rects_[count_++] = workArea;
  rects_[count_++] = fullArea;
  return true;
}

Rect WorkAreaAt(const MonitorList& monitors, const Rect& bounds) {
  const auto seen = [&bounds](const Rect& area) {
    if (!Overlap(area, bounds)) return 0.0;
    const double across =
        static_cast<double>(std::min(area.right, bounds.right)) - std::max(area.left, bounds.left);
    return across *
           (static_cast<double>(std::min(area.bottom, bounds.bottom)) - std::max(area.top, bounds.top));
  };
  const std::span<const Rect> rects = monitors.Rects();
  Rect best;
  double maximum = -1;
  for (std::size_t at = 0; at + 1 < rects.size(); at += 2) {
    if (seen(rects[at + 1]) <= maximum) continue;
    maximum = seen(rects[at + 1]);
    best = rects[at];
  }
  return best;
}

Rect ShownPlace(const Rect& chosen, const MonitorSetup& screens) {
  const std::span<const Rect> rects = screens.monitors.Rects();
  const auto any = [rects](auto holds) { return std::any_of(rects.begin(), rects.end(), holds); };
  if (any([&](const Rect& r) { return r.Contains(chosen.TopLeft()); })) return chosen;
  const Size size{chosen.Width(), chosen.Height()};
  const Point rescued = RescuedPosition(chosen.TopLeft(), screens.virtualScreen);
  const Rect shown = RectAt(rescued, size);
  if (rects.empty() || any([&](const Rect& r) { return Overlap(r, shown); })) return shown;
  const Rect& nearest = *std::min_element(rects.begin(), rects.end(), [&](const Rect& a, const Rect& b) {
    return SquaredDistance(rescued, a) < SquaredDistance(rescued, b);
  });
  return RectAt(BroughtInto(rescued, nearest), size);
}

}  // namespace jotlets
