#include "picture/picture_zoom.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "picture/picture.h"

namespace jotlets {
namespace {

constexpr std::int32_t kPercents[] = {5,   10,  17,  25,  33,  50,  67,  75,   100,
                                      125, 150, 200, 300, 400, 600, 800, 1200, 1600};
// Places of this length can be drawn everywhere.
constexpr std::int64_t kMaxSide = 1 << 26;

std::int64_t Middle(std::int32_t from, std::int32_t to) { return (std::int64_t{from} + to) / 2; }

// Where a side begins: no gap is left beside what is longer than the area, and what is shorter stands in the
// middle.
std::int32_t Begin(std::int64_t wanted, std::int32_t length, std::int32_t from, std::int32_t to) {
  const std::int64_t room = std::int64_t{to} - from;
  if (length <= room) return Saturated(from + (room - length) / 2);
  return Saturated(std::clamp(wanted, std::int64_t{to} - length, std::int64_t{from}));
}

// The place of a side whose part `share` is seen at `at`.
std::int64_t BeginWith(double share, std::int32_t length, std::int64_t at) {
  return at - std::llround(share * length);
}

double Share(std::int64_t at, std::int32_t begin, std::int32_t length) {
  return std::clamp(static_cast<double>(at - begin) / std::max(length, 1), 0.0, 1.0);
}

}  // namespace

Rect PlacedIn(Size picture, const Rect& part, const Rect& place) {
  const auto x = [&](std::int32_t at) {
    return Saturated(place.left + std::int64_t{at} * place.Width() / std::max(picture.width, 1));
  };
  const auto y = [&](std::int32_t at) {
    return Saturated(place.top + std::int64_t{at} * place.Height() / std::max(picture.height, 1));
  };
  return {x(part.left), y(part.top), x(part.right), y(part.bottom)};
}

Rect PartSeen(Size picture, const Rect& place, const Rect& seen) {
  const Rect shown = CommonPart(place, seen);
  if (IsEmptyRect(shown)) return {};
  const auto first = [](std::int32_t at, std::int32_t length, std::int32_t pixels) {
    return Saturated(std::int64_t{at} * pixels / length);
  };
  const auto last = [](std::int32_t at, std::int32_t length, std::int32_t pixels) {
    return Saturated((std::int64_t{at} * pixels + length - 1) / length);
  };
  const std::int32_t width = place.Width();
  const std::int32_t height = place.Height();
  const Rect part{first(shown.left - place.left, width, picture.width),
                  first(shown.top - place.top, height, picture.height),
                  last(shown.right - place.left, width, picture.width),
                  last(shown.bottom - place.top, height, picture.height)};
  return CommonPart(part, WholeOf(picture));
}

Size PictureZoom::SizeAt(std::int32_t percent, const PictureFrame& frame) const {
  const auto scaled = [&](std::int32_t length) {
    const std::int64_t natural = std::int64_t{length} * std::max(frame.dpi, kUsualDpi);
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(natural * percent / (std::int64_t{kUsualDpi} * kWhole), 1, kMaxSide));
  };
  return {scaled(frame.picture.width), scaled(frame.picture.height)};
}

Rect PictureZoom::Place(const PictureFrame& frame) const {
  if (percent_ == 0 || frame.picture.width <= 0 || frame.picture.height <= 0)
    return PicturePlace(frame.picture, frame.area, frame.dpi);
  const Size size = SizeAt(percent_, frame);
  const Rect& area = frame.area;
  return RectAt(
      {Begin(BeginWith(x_, size.width, Middle(area.left, area.right)), size.width, area.left, area.right),
       Begin(BeginWith(y_, size.height, Middle(area.top, area.bottom)), size.height, area.top, area.bottom)},
      size);
}

void PictureZoom::Put(const Rect& place, const Rect& area) {
  x_ = Share(Middle(area.left, area.right), place.left, place.Width());
  y_ = Share(Middle(area.top, area.bottom), place.top, place.Height());
}

void PictureZoom::Set(std::int32_t percent, Point at, const PictureFrame& frame) {
  const Rect before = Place(frame);
  const double x = Share(at.x, before.left, before.Width());
  const double y = Share(at.y, before.top, before.Height());
  percent_ = std::clamp(percent, kPercents[0], *std::rbegin(kPercents));
  const Size size = SizeAt(percent_, frame);
  const Rect& area = frame.area;
  Put(RectAt({Begin(BeginWith(x, size.width, at.x), size.width, area.left, area.right),
              Begin(BeginWith(y, size.height, at.y), size.height, area.top, area.bottom)},
             size),
      area);
}

void PictureZoom::Step(std::int32_t steps, Point at, const PictureFrame& frame) {
  const std::int64_t natural = std::max<std::int64_t>(SizeAt(kWhole, frame).width, 1);
  const auto now = static_cast<std::int32_t>(
      percent_ != 0 ? percent_ : std::int64_t{Place(frame).Width()} * kWhole / natural);
  const auto* const larger = std::ranges::upper_bound(kPercents, now);
  const auto* const same = std::ranges::lower_bound(kPercents, now);
  const auto next = steps > 0 ? larger - kPercents + steps - 1 : same - kPercents + steps;
  Set(kPercents[std::clamp<std::ptrdiff_t>(next, 0, std::ssize(kPercents) - 1)], at, frame);
}

bool PictureZoom::Scroll(Point by, const PictureFrame& frame) {
  if (IsFitted()) return false;
  const Rect before = Place(frame);
  const Rect& area = frame.area;
  const Rect after = RectAt({Begin(std::int64_t{before.left} - by.x, before.Width(), area.left, area.right),
                             Begin(std::int64_t{before.top} - by.y, before.Height(), area.top, area.bottom)},
                            {before.Width(), before.Height()});
  Put(after, area);
  return after != before;
}

}  // namespace jotlets
