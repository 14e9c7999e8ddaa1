// Animated moves of a note: where it is at each step, and what becomes of it at the end.
#pragma once

#include <cstdint>
#include <optional>

#include "base/geometry.h"

namespace jotlets {

/// What happens when the note has arrived.
enum class AnimationKind {
  kMove = 0,    // it stays at the end
  kHide = 1,    // it is hidden, and put back to where it started
  kClose = 2,   // it is closed
  kDelete = 3,  // it is deleted: its transmission has ended
};

/// More steps than this are a damaged option, which must not keep a note on its way for hours.
inline constexpr std::int32_t kMaxAnimationSteps = 1000;

/// How far along its way, 0 to 1, a move is at the time `t` of 0 to 1: a cubic curve with the control points
/// (0.42, 0) and (0.58, 1), slow at both ends.
double AnimationProgress(double t);

/// Where to put the note. With `finished` that is its place for good, and it is time for what its kind says;
/// a note that hides does so before it is put there.
struct AnimationFrame {
  Point position;
  bool finished = false;
  friend bool operator==(const AnimationFrame&, const AnimationFrame&) = default;
};

struct Animation {
  Point start;
  Point end;
  std::int32_t step = 0;
  AnimationKind kind = AnimationKind::kMove;
  bool running = false;

  /// Sets a move off; ignored, and false, while one is running.
  bool Start(Point from, Point to, AnimationKind what);

  /// The next of `speed` steps, from the start to just before the end; the tick after the last one finishes
  /// the move, so that every step is seen. Nothing when no move is running. A `speed` of 0 or less turns
  /// animation off: the first tick finishes.
  std::optional<AnimationFrame> Tick(std::int32_t speed);

  /// Cuts the move short; nothing when none is running.
  std::optional<AnimationFrame> FinishNow();
};

}  // namespace jotlets
