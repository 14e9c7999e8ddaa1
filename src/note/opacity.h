// Opacity of a note: the record's percentage is what remains, and 0 means opaque.
#pragma once

#include <algorithm>
#include <cstdint>

namespace jotlets {

/// Window alpha (0 to 255) of an opacity percentage; a percentage out of range counts as the nearest in
/// range.
constexpr std::uint8_t AlphaOfOpacity(std::int32_t percent) {
  if (percent == 0) return 255;
  return static_cast<std::uint8_t>(std::clamp<std::int32_t>(percent, 1, 100) * 255 / 100);
}

}  // namespace jotlets
