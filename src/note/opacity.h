// Opacity of a note: the record's percentage is what remains, and 0 means opaque.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "looks/motion.h"

namespace jotlets {

/// Window alpha (0 to 255) of an opacity percentage; a percentage out of range counts as the nearest in
/// range.
constexpr std::uint8_t AlphaOfOpacity(std::int32_t percent) {
  if (percent == 0) return 255;
  return static_cast<std::uint8_t>(std::clamp<std::int32_t>(percent, 1, 100) * 255 / 100);
}

/// The opacity at a step, counted from 1, of the fade to `target` percent; nothing from step 50 on, which
/// ends the fade. That is deliberately one step short: what was set at step 49 stays, 51 for a note of 50.
std::optional<std::int32_t> FadeOpacity(std::int32_t step, std::int32_t target);

/// Whether a note is shown opaque while it has the keyboard focus.
constexpr bool IsOpaqueInFocus(std::int32_t percent, bool opaqueEdit) { return opaqueEdit && percent != 0; }

/// What the opacity of a note does when it loses the focus.
enum class FocusLoss { kStays, kReturnsAtOnce, kFades };
FocusLoss OnFocusLoss(std::int32_t percent, bool opaqueEdit, bool dontFade);

}  // namespace jotlets
