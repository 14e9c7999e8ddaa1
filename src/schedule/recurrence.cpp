#include "schedule/recurrence.h"

#include <algorithm>
#include <optional>

#include "schedule/calendar.h"
#include "schedule/sleep_times.h"

namespace jotlets {
namespace {

constexpr std::int32_t kDayBits = 127;
constexpr std::int32_t kLastKindOfDay = kWeekendDay;

struct Search {
  const WakeRule& rule;
  std::int64_t base;
  CalendarTime start;  // `base` in local time
  const Clock& clock;

  std::int64_t At(std::int64_t year, std::int64_t month, std::int64_t day) const {
    return ToInstant({year, month, day, rule.hours, rule.minutes}, clock);
  }
};

// Bit of a day in `WakeRule::day`, from the day of the week: Sunday is 1 there.
std::int32_t BitOf(int dayOfWeek) { return dayOfWeek == 1 ? 64 : 1 << (dayOfWeek - 2); }

std::int64_t NextDay(const Search& s) {
  const std::int64_t today = s.At(s.start.year, s.start.month, s.start.day);
  return today < s.base ? s.At(s.start.year, s.start.month, s.start.day + 1) : today;
}

std::int64_t NextOfWeek(const Search& s) {
  if ((s.rule.day & kDayBits) == 0) return 0;
  std::int64_t day = s.start.day;
  if (s.At(s.start.year, s.start.month, day) < s.base) ++day;
  for (;; ++day) {
    const std::int64_t candidate = s.At(s.start.year, s.start.month, day);
    const CalendarTime shown = ToCalendar(candidate, s.clock);
    if ((s.rule.day & BitOf(DayOfWeek(DayNumber(shown.year, shown.month, shown.day)))) != 0) return candidate;
  }
}

std::int64_t NextOfMonth(const Search& s) {
  const std::int64_t day = std::min<std::int64_t>(
      s.rule.day, std::max<std::int64_t>(28, DaysInMonth(s.start.year, s.start.month)));
  const std::int64_t candidate = s.At(s.start.year, s.start.month, day);
  return candidate < s.base ? s.At(s.start.year, s.start.month + 1, day) : candidate;
}

std::int64_t NextOfYear(const Search& s) {
  const std::int32_t month = s.rule.day / 100;
  const std::int32_t day = s.rule.day % 100;
  const std::int64_t candidate = s.At(s.start.year, month, day);
  return candidate < s.base ? s.At(s.start.year + 1, month, day) : candidate;
}

bool IsKind(int dayOfWeek, std::int32_t kind) {
  const bool weekend = dayOfWeek == 1 || dayOfWeek == 7;
  if (kind == kAnyDay) return true;
  if (kind == kWorkingDay) return !weekend;
  if (kind == kWeekendDay) return weekend;
  // Monday is 0 among the kinds and 2 in the week.
  return kind >= 0 && kind < kAnyDay && (kind + 1) % 7 + 1 == dayOfWeek;
}

// The day of a month that a rule means; 0: it has none.
std::int64_t DayMeant(const WakeRule& rule, std::int64_t year, std::int64_t month) {
  const std::int32_t ordinal = rule.day / 100;
  const std::int32_t kind = rule.day % 100;
  std::int32_t matches = 0;
  std::int64_t last = 0;
  for (std::int64_t day = 1; day <= DaysInMonth(year, month); ++day) {
    if (!IsKind(DayOfWeek(DayNumber(year, month, day)), kind)) continue;
    last = day;
    if (matches++ == ordinal && ordinal != kLastOrdinal) return day;
  }
  return ordinal == kLastOrdinal ? last : 0;
}

std::int64_t NextOfWeekdays(const Search& s) {
  for (std::int64_t month = s.start.month; month <= s.start.month + 1; ++month) {
    const std::int64_t day = DayMeant(s.rule, s.start.year, month);
    const std::int64_t candidate = day == 0 ? 0 : s.At(s.start.year, month, day);
    // What the second month gives is taken as it is.
    if (candidate >= s.base || month > s.start.month) return candidate;
  }
  return 0;
}

std::int64_t NextStep(const WakeRule& rule, std::int64_t base, std::int64_t now, const Clock& clock) {
  if (rule.minutes < 1 || rule.day < kMinutes || rule.day > kMonths) return 0;
  if (rule.day == kMonths) {
    const CalendarTime start = ToCalendar(base, clock);
    const std::int64_t month = start.month + rule.minutes;
    const std::int64_t day = std::min<std::int64_t>(rule.hours, DaysInMonth(start.year, month));
    return ToInstant({start.year, month, day, start.hour, start.minute}, clock);
  }
  const std::int64_t step = rule.minutes * UnitSeconds(rule.day);
  return base > now ? base : base + ((now - base) / step + 1) * step;
}

bool IsWithin(std::int32_t value, std::int32_t minimum, std::int32_t maximum) {
  return value >= minimum && value <= maximum;
}

}  // namespace

WakeRule RuleOf(const JotletData& record) {
  return {record.sleep.type, record.sleep.hours, record.sleep.minutes, record.sleep.day};
}

TextView FaultOf(const WakeRule& rule) {
  if (!IsWithin(rule.type, kDaily, kEvery)) return u"no such type";
  if (rule.type == kEvery) {
    if (rule.minutes < 1) return u"the count is below 1";
    if (!IsWithin(rule.day, kMinutes, kMonths)) return u"no such unit";
    return rule.day == kMonths && !IsWithin(rule.hours, 1, 31) ? u"no such day" : u"";
  }
  if (!IsWithin(rule.hours, 0, 23) || !IsWithin(rule.minutes, 0, 59)) return u"no such time of day";
  const std::int32_t first = rule.day / 100;
  const std::int32_t second = rule.day % 100;
  switch (rule.type) {
    case kWeekly: return (rule.day & kDayBits) == 0 ? u"no day of the week" : u"";
    case kMonthlyOnDay: return IsWithin(rule.day, 1, 31) ? u"" : u"no such day";
    case kYearly: return IsWithin(first, 1, 12) && IsWithin(second, 1, 31) ? u"" : u"no such date";
    case kMonthlyOnWeekday:
      return IsWithin(rule.day, 0, kLastOrdinal * 100 + kLastKindOfDay) && second <= kLastKindOfDay
                 ? u""
                 : u"no such day of the week";
    default: return {};
  }
}

std::int64_t NextWakeTime(const WakeRule& rule, std::int64_t base, std::int64_t now, const Clock& clock) {
  if (rule.type == kEvery) return NextStep(rule, base, now, clock);
  const std::int64_t from = std::max(base, now);
  const Search search{rule, from, ToCalendar(from, clock), clock};
  switch (rule.type) {
    case kDaily: return NextDay(search);
    case kWeekly: return NextOfWeek(search);
    case kMonthlyOnDay: return NextOfMonth(search);
    case kYearly: return NextOfYear(search);
    case kMonthlyOnWeekday: return NextOfWeekdays(search);
    default: return 0;
  }
}

std::int32_t TimeAfter(const WakeRule& rule, std::int32_t served, std::int64_t now, const Clock& clock) {
  std::int64_t next = NextWakeTime(rule, served, now, clock);
  // Served in the very second in which it was due, a time of day would be found again.
  if (next == served) next = NextWakeTime(rule, std::int64_t{served} + 1, now, clock);
  return next > served ? RecordTime(next) : kNeverAgain;
}

NextAppearance AppearanceOf(const WakeRule& rule, std::int64_t start, std::int64_t end, std::int64_t now,
                            const Clock& clock) {
  using Kind = NextAppearance::Kind;
  if (!FaultOf(rule).empty()) return {};
  const std::int64_t next = NextWakeTime(rule, start, now, clock);
  if (next <= 0 || next >= kNeverAgain) return {};
  const Kind kind = end != kNone && end < next ? Kind::kNotBeforeEnd : Kind::kAt;
  return {kind, RecordTime(next)};
}

}  // namespace jotlets
