// When a recurring note appears next. Rules come from dialogs, commands and files; any numbers give an
// answer.
#pragma once

#include <cstdint>

#include "base/clock.h"
#include "data/jotlet_data.h"

namespace jotlets {

enum RecurrenceType : std::int32_t {
  kDaily = 1,
  kWeekly = 2,
  kMonthlyOnDay = 3,
  kYearly = 4,
  kMonthlyOnWeekday = 5,
  kEvery = 6,
};

/// Units of `kEvery`, and of the sleep dialog.
enum TimeUnit : std::int32_t { kMinutes, kHours, kDays, kWeeks, kMonths };

/// Days of `kMonthlyOnWeekday` beside Monday (0) to Sunday (6).
inline constexpr std::int32_t kAnyDay = 7;
inline constexpr std::int32_t kWorkingDay = 8;
inline constexpr std::int32_t kWeekendDay = 9;
inline constexpr std::int32_t kLastOrdinal = 4;

/// A rule of recurrence. What the numbers mean depends on the type:
///
///     type                 hours         minutes   day
///     kDaily               hour          minute    0
///     kWeekly              hour          minute    bits of the days: 1 Monday ... 64 Sunday
///     kMonthlyOnDay        hour          minute    1 to 31
///     kYearly              hour          minute    month * 100 + day
///     kMonthlyOnWeekday    hour          minute    ordinal (0 first ... 4 last) * 100 + day (0 Monday ... 9)
///     kEvery               day of month  count     a `TimeUnit`
struct WakeRule {
  std::int32_t type = kNone;
  std::int32_t hours = 0;
  std::int32_t minutes = 0;
  std::int32_t day = 0;
  friend bool operator==(const WakeRule&, const WakeRule&) = default;
};

WakeRule RuleOf(const JotletData& record);

/// The time that stands for "never again" in the record of a recurring note: the end of the 32-bit range.
inline constexpr std::int32_t kNeverAgain = 2147483647;

/// What is wrong with a rule so that it must not be followed, for the activity log; empty when nothing is.
TextView FaultOf(const WakeRule& rule);

/// The next time (seconds since 1970 UTC) at or after `base`, and not before `now`, at which a rule applies;
/// 0 when it never does. Deliberately:
///
/// - `kEvery` counts in steps from `base`, which may be long past; the answer is the first step after `now`.
/// - `kEvery` month is one step from `base` and may still be past: a note catches up month by month.
/// - `kMonthlyOnDay` takes the last day of a short month, but when that is over, the same day number of the
///   next month, from where a day that it does not have rolls over.
std::int64_t NextWakeTime(const WakeRule& rule, std::int64_t base, std::int64_t now, const Clock& clock);

/// The time at which a note comes again that has just been served at `served`: the same, but never that time
/// once more; `kNeverAgain` when there is none within the 32-bit range.
std::int32_t TimeAfter(const WakeRule& rule, std::int32_t served, std::int64_t now, const Clock& clock);

/// What is said under the controls of a rule: when a note will appear first.
struct NextAppearance {
  enum class Kind { kNever, kNotBeforeEnd, kAt };
  Kind kind = Kind::kNever;
  std::int32_t time = 0;
};

/// For a recurrence that starts at `start` and ends at `end` (`kNone`: not at all).
NextAppearance AppearanceOf(const WakeRule& rule, std::int64_t start, std::int64_t end, std::int64_t now,
                            const Clock& clock);

}  // namespace jotlets
