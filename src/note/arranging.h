// Arranging notes: places for all of them at once. Sizes stay as they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/geometry.h"

namespace jotlets {

enum class Arrangement : std::uint8_t {
  kTile,     // side by side in rows
  kCascade,  // one before the other, each title in sight
  kColours,  // a pile for each colour
};

/// A note as it lies on the screen. `area` is where the notes of its monitor have room.
struct ArrangedNote {
  Rect bounds;
  Colour colour;
  Rect area;
};

/// Distances on the screen, in pixels.
struct ArrangeSteps {
  std::int32_t gap = 8;    // between notes side by side, and to the edge
  std::int32_t step = 32;  // from one note of a pile to the next: the height of a title
};

/// Where each note goes, in their order: within its own area as far as it fits in there.
std::vector<Point> ArrangedPlaces(Arrangement arrangement, const std::vector<ArrangedNote>& notes,
                                  const ArrangeSteps& steps);

}  // namespace jotlets
