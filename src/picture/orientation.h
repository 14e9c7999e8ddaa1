// The eight ways in which a picture can lie: turned by quarters, mirrored or both. Cameras note one beside
// their picture; turning and mirroring by hand, and letters that were turned with their picture, are the same
// eight.
#pragma once

#include <cstdint>
#include <vector>

#include "picture/coverage.h"
#include "picture/pixels.h"

namespace jotlets {

/// What has to be done to a picture, in the numbers of cameras.
enum class Orientation : std::uint8_t {
  kAsItIs = 1,
  kMirrored = 2,    // left and right change places
  kUpsideDown = 3,  // half a turn
  kFlipped = 4,     // top and bottom change places
  kTransposed = 5,  // rows become columns
  kTurnedRight = 6,
  kTransversed = 7,  // transposed, then half a turn
  kTurnedLeft = 8,
};

Size Oriented(Size size, Orientation orientation);

/// Where a place of a picture of this size gets to.
Spot Oriented(Spot spot, Size size, Orientation orientation);

/// Where a rectangle of a picture of this size gets to.
Rect Oriented(const Rect& rect, Size size, Orientation orientation);

/// One after the other, as one.
Orientation Combined(Orientation first, Orientation second);

/// What brings back what was before.
Orientation Inverse(Orientation orientation);

Picture Oriented(const Picture& picture, Orientation orientation);

/// Does it within the memory of the picture where the sides stay as they are.
void Orient(Picture& picture, Orientation orientation);

/// Turns what `rect` holds in the same way, in place, where the sides stay as they are (mirrored, flipped,
/// upside down); others do nothing.
void OrientPart(Picture& picture, const Rect& rect, Orientation orientation);

/// A mask of one byte for each pixel, turned alike.
std::vector<std::uint8_t> OrientedMask(const std::vector<std::uint8_t>& mask, Size size,
                                       Orientation orientation);

}  // namespace jotlets
