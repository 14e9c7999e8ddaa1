#include "schedule/calendar.h"

#include <algorithm>

namespace jotlets {
namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kMonths = 12;
// 400 years are a whole number of weeks; they begin here in March, so that leap days come last in a year.
constexpr std::int64_t kEra = 400;
constexpr std::int64_t kEraDays = 146097;
constexpr std::int64_t kDaysTo1970 = 719468;  // from 0000-03-01

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }
std::int64_t FloorMod(std::int64_t a, std::int64_t b) { return a - FloorDiv(a, b) * b; }

std::int64_t SecondsOf(const LocalTime& t) {
  return DayNumber(t.year, t.month, t.day) * kDay + t.hour * 3600 + t.minute * 60 + t.second;
}

// How far local time is ahead of UTC. Clocks know the centuries around those that records can hold; beyond,
// the offset is that at the end of them.
std::int64_t OffsetAt(std::int64_t instant, const Clock& clock) {
  constexpr std::int64_t kKnown = std::int64_t{1} << 33;
  const std::int64_t asked = std::clamp(instant, -kKnown, kKnown);
  return SecondsOf(clock.ToLocal(asked)) - asked;
}

}  // namespace

std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day) {
  const std::int64_t marchMonths = year * kMonths + (month - 1) - 2;
  const std::int64_t y = FloorDiv(marchMonths, kMonths);
  const std::int64_t m = FloorMod(marchMonths, kMonths);
  const std::int64_t era = FloorDiv(y, kEra);
  const std::int64_t yearOfEra = FloorMod(y, kEra);
  // Five months from March on have 153 days.
  const std::int64_t dayOfYear = (153 * m + 2) / 5;
  return era * kEraDays + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear + (day - 1) -
         kDaysTo1970;
}

std::int64_t DaysInMonth(std::int64_t year, std::int64_t month) {
  return DayNumber(year, month + 1, 1) - DayNumber(year, month, 1);
}

int DayOfWeek(std::int64_t dayNumber) {
  // 1970-01-01 was a Thursday, day 5.
  return static_cast<int>(FloorMod(dayNumber + 4, 7)) + 1;
}

std::int64_t ToInstant(const CalendarTime& local, const Clock& clock) {
  const std::int64_t wall =
      DayNumber(local.year, local.month, local.day) * kDay + local.hour * 3600 + local.minute * 60;
  // The offsets a day before and after: in between the clocks change once at most.
  const std::int64_t before = OffsetAt(wall - kDay, clock);
  const std::int64_t after = OffsetAt(wall + kDay, clock);
  if (before == after || OffsetAt(wall - before, clock) == before) return wall - before;
  return OffsetAt(wall - after, clock) == after ? wall - after : wall - before;
}

CalendarTime ToCalendar(std::int64_t instant, const Clock& clock) {
  const std::int64_t wall = instant + OffsetAt(instant, clock);
  const std::int64_t days = FloorDiv(wall, kDay);
  const std::int64_t seconds = FloorMod(wall, kDay);
  // From an estimate that is never too late, to the year of the day.
  std::int64_t year = 1970 + FloorDiv(days * kEra, kEraDays) - 1;
  while (DayNumber(year + 1, 1, 1) <= days) ++year;
  std::int64_t month = 1;
  while (DayNumber(year, month + 1, 1) <= days) ++month;
  return {year, month, days - DayNumber(year, month, 1) + 1, seconds / 3600, seconds / 60 % 60};
}

}  // namespace jotlets
