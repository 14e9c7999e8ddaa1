// The soft shadow beneath a window: how dark each of its pixels is.
#pragma once

#include <cstdint>

#include "base/geometry.h"

namespace jotlets {

/// How far a shadow reaches beyond its window, and how far it lies to the right and below, in pixels.
inline constexpr std::int32_t kShadowReach = 8;
inline constexpr std::int32_t kShadowOffset = 2;

/// The rectangle of the shadow of a window.
Rect ShadowBounds(const Rect& window);

/// The alpha (0 to 255) of a pixel of a shadow of this size, counted from its corner: dark in the middle, and
/// fading out evenly over the reach at each edge.
std::uint8_t ShadowAlpha(Point at, Size shadow);

}  // namespace jotlets
