// The coordinate language of skins: places given relative to a window's edges and to the scroll thumb, kept
// as they were written and resolved anew for every window size.
#pragma once

#include <cstdint>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

/// What a number of a skin is counted from.
enum class CoordinateMarker : std::uint8_t {
  kPlain,        // the window's left or top; the right or bottom when negative
  kPercent,      // "50%": percent of the window
  kMiddle,       // "m-10": the window's middle
  kTopLeft,      // "tl2": the scroll thumb's left or top
  kBottomRight,  // "br2": its right or bottom
  kCentre,       // "sc2": its centre
};

struct Coordinate {
  CoordinateMarker marker = CoordinateMarker::kPlain;
  std::int32_t value = 0;
  friend bool operator==(const Coordinate&, const Coordinate&) = default;
};

struct CoordinatePoint {
  Coordinate x;
  Coordinate y;
  friend bool operator==(const CoordinatePoint&, const CoordinatePoint&) = default;
};

/// Two corners; both belong to the rectangle.
struct CoordinateCorners {
  CoordinatePoint topLeft;
  CoordinatePoint bottomRight;
  friend bool operator==(const CoordinateCorners&, const CoordinateCorners&) = default;
};

/// Where a skin's scroll bar track runs.
struct CoordinateTrack {
  Coordinate x;
  Coordinate top;
  Coordinate bottom;       // belongs to the track
  std::int32_t width = 0;  // pixels
  friend bool operator==(const CoordinateTrack&, const CoordinateTrack&) = default;
};

/// What coordinates are resolved against, in client pixels.
struct CoordinateSpace {
  Size window;
  Rect thumb;  // the scroll thumb
};

/// Every resolved coordinate lies within this distance of the window's corner, so that differences of two fit
/// into their type.
inline constexpr std::int32_t kFarthestCoordinate = 1'000'000'000;

/// One number with its marker (any case); what is no number is 0.
Coordinate ParseCoordinate(TextView text);

std::int32_t ResolveX(Coordinate x, const CoordinateSpace& space);
std::int32_t ResolveY(Coordinate y, const CoordinateSpace& space);
Point ResolvePoint(const CoordinatePoint& point, const CoordinateSpace& space);

/// The rectangles below are never inside out: one without room is empty, with its right edge at its left or
/// its bottom at its top. Deliberately, where an element has a size or an extent, a vertical percentage of
/// its `place` is taken of the window's width, as existing skins expect.

Rect ResolvePlaceAndSize(const CoordinatePoint& place, Size size, const CoordinateSpace& space);

/// An extent that is a plain number from 0 up is a length; any other is the coordinate of the far edge, which
/// lies outside.
Rect ResolvePlaceAndExtent(const CoordinatePoint& place, const CoordinatePoint& extent,
                           const CoordinateSpace& space);

/// An element's corners, or the title bar.
Rect ResolveCorners(const CoordinateCorners& corners, const CoordinateSpace& space);

/// The scroll bar track. The thumb in `space` follows from it, so a track should not be placed by the thumb.
Rect ResolveTrack(const CoordinateTrack& track, const CoordinateSpace& space);

}  // namespace jotlets
