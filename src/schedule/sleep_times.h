// How long a note sleeps, and what happens when it wakes.
#pragma once

#include <cstdint>

#include "data/jotlet_data.h"
#include "schedule/recurrence.h"

namespace jotlets {

/// What is done when a note wakes.
struct WakeFlags {
  bool sound = false;
  bool alarm = false;
  bool onTop = false;
  friend bool operator==(const WakeFlags&, const WakeFlags&) = default;
};

/// From the bits of the record: 1 sound, 2 alarm, 4 on top.
WakeFlags FlagsOf(const JotletData& record);
/// "101": sound and on top. Any other character than "1", and a missing one, is off.
WakeFlags ParseWakeFlags(TextView text);

/// Seconds of a unit, a month being 30 days; 1 for what is no `TimeUnit`.
std::int64_t UnitSeconds(std::int32_t unit);

/// How long a note sleeps; 0 for a number below 1.
std::int64_t SleepSeconds(std::int32_t number, std::int32_t unit);

/// Turns a record into that of a sleeping note that wakes at `wakeTime` (seconds since 1970 UTC).
void PutToSleep(JotletData& record, std::int64_t wakeTime, const WakeFlags& flags);

/// Turns a record into that of a recurring note. `end` is `kNone` for no end.
void MakeRecurring(JotletData& record, const WakeRule& rule, std::int64_t firstWake, std::int64_t end,
                   const WakeFlags& flags);

}  // namespace jotlets
