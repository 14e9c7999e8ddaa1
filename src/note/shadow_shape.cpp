#include "note/shadow_shape.h"

#include <algorithm>

namespace jotlets {
namespace {

constexpr std::int32_t kDarkest = 90;

// 0 at the edge to the full reach where the shadow no longer changes.
std::int32_t Depth(std::int32_t at, std::int32_t length) {
  return std::clamp(std::min(at + 1, length - at), 0, 2 * kShadowReach);
}

}  // namespace

Rect ShadowBounds(const Rect& window) {
  return {window.left - kShadowReach + kShadowOffset, window.top - kShadowReach + kShadowOffset,
          window.right + kShadowReach + kShadowOffset, window.bottom + kShadowReach + kShadowOffset};
}

std::uint8_t ShadowAlpha(Point at, Size shadow) {
  constexpr std::int32_t kFull = 2 * kShadowReach;
  const std::int32_t across = Depth(at.x, shadow.width);
  const std::int32_t down = Depth(at.y, shadow.height);
  // Squared, so that it ends softly; the product rounds the corners.
  return static_cast<std::uint8_t>(kDarkest * across * across / (kFull * kFull) * down * down /
                                   (kFull * kFull));
}

}  // namespace jotlets
