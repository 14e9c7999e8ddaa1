// What a sounding note does, step by step.
#pragma once

#include <cstdint>

#include "base/geometry.h"

namespace jotlets {

/// No alarm sounds.
inline constexpr std::int32_t kNotSounding = -1;
/// A note set to sleep until its alarm would wake by itself this many seconds after it: the alarm wakes it.
inline constexpr std::int64_t kSleepPastAlarm = 61;

/// The phase after `phase`: 0 to 24, over and over.
std::int32_t NextAlarmPhase(std::int32_t phase);

/// How far a jiggling note is from its place on one axis, from a random number of 0 to 32767: -2 to 3, and 4
/// for the two largest numbers. Deliberately lopsided.
std::int32_t JiggleOffset(std::int32_t random);

/// The paper of a flashing note in a phase: for half of them it is another one, on which the ink of the paper
/// can be read as well.
Colour FlashColour(Colour paper, std::int32_t phase);

/// When a snoozing alarm sounds again.
std::int64_t SnoozeUntil(std::int64_t now, std::int32_t minutes);

}  // namespace jotlets
