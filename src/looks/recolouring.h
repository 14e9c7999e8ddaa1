// Text that is drawn in one colour becomes that of another one, pixel by pixel, where those who draw it
// cannot be told.
#pragma once

#include <cstdint>
#include <span>

#include "base/geometry.h"

namespace jotlets {

/// Pixels of four bytes, blue first, that are drawn in `from` on `paper`, smooth edges included, become the
/// same in `to`; all others stay as they are. False, and nothing is changed, when no pixel is wholly `from`.
bool Recolour(std::span<std::uint8_t> pixels, Colour paper, Colour from, Colour to);

}  // namespace jotlets
