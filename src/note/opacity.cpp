#include "note/opacity.h"

namespace jotlets {

std::optional<std::int32_t> FadeOpacity(std::int32_t step, std::int32_t target) {
  if (step >= kFadeSteps) return std::nullopt;
  const std::int32_t way = 100 - std::clamp<std::int32_t>(target, 1, 100);
  return (100 * kFadeSteps - std::max(step, 0) * way) / kFadeSteps;
}

FocusLoss OnFocusLoss(std::int32_t percent, bool opaqueEdit, bool dontFade) {
  if (!IsOpaqueInFocus(percent, opaqueEdit)) return FocusLoss::kStays;
  return dontFade ? FocusLoss::kReturnsAtOnce : FocusLoss::kFades;
}

}  // namespace jotlets
