#include "skin/coordinate.h"

#include <algorithm>

namespace jotlets {
namespace {

struct MarkerRow {
  TextView prefix;
  CoordinateMarker marker;
};
constexpr MarkerRow kPrefixes[] = {{u"m", CoordinateMarker::kMiddle},
                                   {u"tl", CoordinateMarker::kTopLeft},
                                   {u"br", CoordinateMarker::kBottomRight},
                                   {u"sc", CoordinateMarker::kCentre}};

std::int32_t Bounded(std::int64_t value) {
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(value, -kFarthestCoordinate, kFarthestCoordinate));
}

// One axis: the window's length and the thumb's two edges on it.
std::int32_t Resolve(Coordinate coordinate, std::int64_t length, std::int64_t thumbNear,
                     std::int64_t thumbFar) {
  const std::int64_t value = coordinate.value;
  switch (coordinate.marker) {
    case CoordinateMarker::kPercent: return Bounded(value * length / 100);
    case CoordinateMarker::kMiddle: return Bounded(value + length / 2);
    case CoordinateMarker::kTopLeft: return Bounded(value + thumbNear);
    case CoordinateMarker::kBottomRight: return Bounded(value + thumbFar);
    case CoordinateMarker::kCentre: return Bounded(value + thumbNear + (thumbFar - thumbNear) / 2);
    case CoordinateMarker::kPlain: break;
  }
  return Bounded(value < 0 ? value + length : value);
}

Rect RectOf(Point corner, std::int64_t right, std::int64_t bottom) {
  return {corner.x, corner.y, std::max(corner.x, Bounded(right)), std::max(corner.y, Bounded(bottom))};
}

bool IsLength(Coordinate extent) { return extent.marker == CoordinateMarker::kPlain && extent.value >= 0; }

}  // namespace

Coordinate ParseCoordinate(TextView text) {
  text = TrimBlanks(text);
  if (text.ends_with(u'%')) return {CoordinateMarker::kPercent, ParseInt(text)};
  for (const MarkerRow& row : kPrefixes) {
    if (StartsWithIgnoreCase(text, row.prefix)) return {row.marker, ParseInt(text.substr(row.prefix.size()))};
  }
  return {CoordinateMarker::kPlain, ParseInt(text)};
}

std::int32_t ResolveX(Coordinate x, const CoordinateSpace& space) {
  return Resolve(x, space.window.width, space.thumb.left, space.thumb.right);
}

std::int32_t ResolveY(Coordinate y, const CoordinateSpace& space) {
  return Resolve(y, space.window.height, space.thumb.top, space.thumb.bottom);
}

Point ResolvePoint(const CoordinatePoint& point, const CoordinateSpace& space) {
  return {ResolveX(point.x, space), ResolveY(point.y, space)};
}

namespace {

// Where an element begins that has a size or an extent.
Point ResolvePlace(const CoordinatePoint& place, const CoordinateSpace& space) {
  Point point = ResolvePoint(place, space);
  if (place.y.marker == CoordinateMarker::kPercent) point.y = ResolveX(place.y, space);
  return point;
}

}  // namespace

Rect ResolvePlaceAndSize(const CoordinatePoint& place, Size size, const CoordinateSpace& space) {
  const Point at = ResolvePlace(place, space);
  return RectOf(at, std::int64_t{at.x} + size.width, std::int64_t{at.y} + size.height);
}

Rect ResolvePlaceAndExtent(const CoordinatePoint& place, const CoordinatePoint& extent,
                           const CoordinateSpace& space) {
  const Point at = ResolvePlace(place, space);
  return RectOf(at, IsLength(extent.x) ? std::int64_t{at.x} + extent.x.value : ResolveX(extent.x, space),
                IsLength(extent.y) ? std::int64_t{at.y} + extent.y.value : ResolveY(extent.y, space));
}

Rect ResolveCorners(const CoordinateCorners& corners, const CoordinateSpace& space) {
  const Point farCorner = ResolvePoint(corners.bottomRight, space);
  return RectOf(ResolvePoint(corners.topLeft, space), std::int64_t{farCorner.x} + 1,
                std::int64_t{farCorner.y} + 1);
}

Rect ResolveTrack(const CoordinateTrack& track, const CoordinateSpace& space) {
  const Point at = {ResolveX(track.x, space), ResolveY(track.top, space)};
  return RectOf(at, std::int64_t{at.x} + track.width, std::int64_t{ResolveY(track.bottom, space)} + 1);
}

}  // namespace jotlets
