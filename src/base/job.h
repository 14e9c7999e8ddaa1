// Work that takes long, done in slices so that the windows stay alive.
#pragma once

#include <cstddef>

#include "base/text.h"

namespace jotlets {

class Job {
 public:
  enum class State { kRunning, kDone, kFailed };

  virtual ~Job() = default;
  /// Goes on with at most `mostFiles` files.
  virtual State Step(std::size_t mostFiles) = 0;
  /// Why it failed.
  virtual const Text& Reason() const = 0;
  /// How far it is, 0 to 100.
  virtual int Percent() const = 0;

  /// Does all that is left.
  State Finish() {
    State state = State::kRunning;
    while (state == State::kRunning) state = Step(1000);
    return state;
  }
};

/// The part of `all` that `done` is, in percent; 0 of nothing.
inline int PercentOf(std::size_t done, std::size_t all) {
  return all == 0 ? 0 : static_cast<int>(done * 100 / all);
}

}  // namespace jotlets
