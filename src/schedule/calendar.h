// Calendar arithmetic in the user's local time. Every date is allowed, also those that no calendar has: they
// roll over into the months after or before, as the rules of recurrence rely on.
#pragma once

#include <cstdint>

#include "base/clock.h"

namespace jotlets {

/// A local date and time of day whose parts may be out of range, seconds 0. Parts up to the 32-bit range, and
/// sums of a few of them, are computed exactly.
struct CalendarTime {
  std::int64_t year = 1970;
  std::int64_t month = 1;
  std::int64_t day = 1;
  std::int64_t hour = 0;
  std::int64_t minute = 0;
};

/// Days from 1970-01-01 to a date; month 13 is the next January, day 0 the last day of the month before.
std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day);

/// Length of a month, which may be out of range as above.
std::int64_t DaysInMonth(std::int64_t year, std::int64_t month);

/// Day of the week of a day number: 1 Sunday ... 7 Saturday.
int DayOfWeek(std::int64_t dayNumber);

/// The instant (seconds since 1970 UTC) of a local time. A time that spring leaves out is taken as far after
/// the change as it was after its beginning (02:30 becomes 03:30); of the two that autumn repeats, the first
/// one.
std::int64_t ToInstant(const CalendarTime& local, const Clock& clock);

/// The local date and time of an instant, seconds dropped. Instants centuries outside of the 32-bit range are
/// shifted by the offset that the time zone has there last.
CalendarTime ToCalendar(std::int64_t instant, const Clock& clock);

}  // namespace jotlets
