#include "note/animation.h"

#include <algorithm>

namespace jotlets {
namespace {

constexpr double kFirstX = 0.42;
constexpr double kSecondX = 0.58;

// A cubic from 0 to 1 whose inner control values are `first` and `second`.
double Cubic(double s, double first, double second) {
  const double rest = 1 - s;
  return 3 * rest * rest * s * first + 3 * rest * s * s * second + s * s * s;
}

double CubicSlope(double s, double first, double second) {
  const double rest = 1 - s;
  return 3 * rest * rest * first + 6 * rest * s * (second - first) + 3 * s * s * (1 - second);
}

std::int32_t Between(std::int32_t from, std::int32_t to, double progress) {
  const double offset = progress * (static_cast<double>(to) - static_cast<double>(from));
  return Saturated(from + static_cast<std::int64_t>(offset));
}

}  // namespace

double AnimationProgress(double t) {
  // Five steps of Newton's method settle the last bit; the slope is nowhere near 0.
  double s = t;
  for (int i = 0; i < 5; ++i) {
    s -= (Cubic(s, kFirstX, kSecondX) - t) / CubicSlope(s, kFirstX, kSecondX);
    s = std::clamp(s, 0.0, 1.0);
  }
  return Cubic(s, 0, 1);
}

bool Animation::Start(Point from, Point to, AnimationKind what) {
  if (running) return false;
  *this = {from, to, 0, what, true};
  return true;
}

std::optional<AnimationFrame> Animation::Tick(std::int32_t speed) {
  if (!running) return std::nullopt;
  const std::int32_t steps = std::min(speed, kMaxAnimationSteps);
  if (step >= steps) return FinishNow();
  const double progress = AnimationProgress(static_cast<double>(step++) / steps);
  return AnimationFrame{{Between(start.x, end.x, progress), Between(start.y, end.y, progress)}, false};
}

std::optional<AnimationFrame> Animation::FinishNow() {
  if (!running) return std::nullopt;
  running = false;
  return AnimationFrame{kind == AnimationKind::kHide ? start : end, true};
}

}  // namespace jotlets
