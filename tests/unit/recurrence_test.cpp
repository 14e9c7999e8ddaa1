#include "schedule/recurrence.h"

#include <gtest/gtest.h>

#include <limits>

#include "fakes.h"
#include "res/resource.h"
#include "schedule/calendar.h"
#include "schedule/presets.h"
#include "schedule/recurrence_words.h"
#include "schedule/sleep_times.h"
#include "zone_clock.h"

namespace jotlets {
namespace {

std::int64_t At(const Clock& clock, int year, int month, int day, int hour = 0, int minute = 0) {
  return clock.ToUtc({year, month, day, hour, minute, 0});
}

// "2026-11-21 14:05", what the clocks of the zone show.
std::string Shown(const Clock& clock, std::int64_t utc) {
  if (utc == 0) return "none";
  return ToUtf8(LogStamp(clock.ToLocal(utc)).substr(0, 16));
}

std::string Next(const Zone& zone, const WakeRule& rule, LocalTime base) {
  const ZoneClock clock(zone);
  const std::int64_t from = clock.ToUtc(base);
  return Shown(clock, NextWakeTime(rule, from, from, clock));
}

TEST(Recurrence, EachTypeFindsItsNextTime) {
  const WakeRule daily{kDaily, 9, 30, 0};
  EXPECT_EQ(Next(kBerlin, daily, {2026, 11, 21, 8, 0, 0}), "2026-11-21 09:30");
  EXPECT_EQ(Next(kBerlin, daily, {2026, 11, 21, 9, 30, 0}), "2026-11-21 09:30") << "exactly then counts";
  EXPECT_EQ(Next(kBerlin, daily, {2026, 11, 21, 9, 30, 1}), "2026-11-22 09:30");
  EXPECT_EQ(Next(kBerlin, daily, {2026, 12, 31, 12, 0, 0}), "2027-01-01 09:30");
  // 21 November 2026 is a Saturday.
  EXPECT_EQ(Next(kUtc, {kWeekly, 9, 0, 1 + 16}, {2026, 11, 21, 8, 0, 0}), "2026-11-23 09:00");
  EXPECT_EQ(Next(kUtc, {kWeekly, 9, 0, 64}, {2026, 11, 21, 8, 0, 0}), "2026-11-22 09:00");
  EXPECT_EQ(Next(kUtc, {kWeekly, 9, 0, 32}, {2026, 11, 21, 9, 1, 0}), "2026-11-28 09:00");
  EXPECT_EQ(Next(kUtc, {kMonthlyOnDay, 9, 0, 15}, {2026, 12, 16, 0, 0, 0}), "2027-01-15 09:00");
  EXPECT_EQ(Next(kUtc, {kYearly, 9, 0, 1225}, {2026, 12, 26, 0, 0, 0}), "2027-12-25 09:00");
  EXPECT_EQ(Next(kUtc, {kYearly, 9, 0, 229}, {2027, 1, 1, 0, 0, 0}), "2027-03-01 09:00");
  const auto weekday = [](int ordinal, int day) {
    return WakeRule{kMonthlyOnWeekday, 9, 0, ordinal * 100 + day};
  };
  EXPECT_EQ(Next(kUtc, weekday(4, 4), {2026, 11, 1, 0, 0, 0}), "2026-11-27 09:00") << "last Friday";
  EXPECT_EQ(Next(kUtc, weekday(1, kWorkingDay), {2026, 11, 1, 0, 0, 0}), "2026-11-03 09:00")
      << "1 is a Sunday";
  EXPECT_EQ(Next(kUtc, weekday(0, kWeekendDay), {2026, 11, 1, 0, 0, 0}), "2026-11-01 09:00");
  EXPECT_EQ(Next(kUtc, weekday(0, kWeekendDay), {2026, 11, 1, 9, 1, 0}), "2026-12-05 09:00");
  EXPECT_EQ(Next(kUtc, weekday(4, kAnyDay), {2026, 12, 31, 10, 0, 0}), "2027-01-31 09:00");
}

TEST(Recurrence, ADayThatAMonthLacksIsTreatedLopsidedly) {
  const WakeRule on31{kMonthlyOnDay, 9, 0, 31};
  EXPECT_EQ(Next(kUtc, on31, {2026, 1, 31, 9, 1, 0}), "2026-03-03 09:00");
  EXPECT_EQ(Next(kUtc, on31, {2028, 1, 31, 9, 1, 0}), "2028-03-02 09:00");
  EXPECT_EQ(Next(kUtc, on31, {2026, 4, 10, 0, 0, 0}), "2026-04-30 09:00");
  EXPECT_EQ(Next(kUtc, on31, {2026, 4, 30, 9, 1, 0}), "2026-05-30 09:00") << "with the lowered day";
}

TEST(Recurrence, StepsAreCountedFromTheStart) {
  const ZoneClock clock(kBerlin);
  const std::int64_t now = At(clock, 2026, 11, 21, 14, 5);
  const std::int64_t start = now - 3 * 86400 - 1800;
  EXPECT_EQ(NextWakeTime({kEvery, 0, 2, kHours}, start, now, clock), start + 37 * 7200);
  EXPECT_EQ(NextWakeTime({kEvery, 0, 2, kHours}, now, now, clock), now + 7200) << "later than now";
  EXPECT_EQ(NextWakeTime({kEvery, 0, 2, kWeeks}, now + 5, now, clock), now + 5) << "the start itself";
  // A month is one step, also into the past.
  const WakeRule monthly{kEvery, 31, 1, kMonths};
  EXPECT_EQ(Shown(clock, NextWakeTime(monthly, At(clock, 2026, 1, 31, 8, 30), now, clock)),
            "2026-02-28 08:30");
  EXPECT_EQ(Shown(clock, NextWakeTime({kEvery, 31, 14, kMonths}, At(clock, 2026, 11, 30), now, clock)),
            "2028-01-31 00:00");
}

TEST(Recurrence, TheClockChangesOnBothHalvesOfTheEarth) {
  const WakeRule night{kDaily, 2, 30, 0};
  const ZoneClock berlin(kBerlin);
  EXPECT_EQ(Next(kBerlin, night, {2026, 3, 29, 0, 0, 0}), "2026-03-29 03:30") << "02:30 is left out";
  EXPECT_EQ(Next(kBerlin, night, {2026, 3, 29, 4, 0, 0}), "2026-03-30 02:30");
  EXPECT_EQ(Next(kSydney, night, {2026, 10, 4, 0, 0, 0}), "2026-10-04 03:30");
  EXPECT_EQ(Next(kSantiago, {kDaily, 0, 15, 0}, {2026, 9, 5, 12, 0, 0}), "2026-09-06 01:15");
  // 02:30 comes twice; the first one counts, and only it.
  const std::int64_t first = At(berlin, 2026, 10, 25, 2, 30);
  EXPECT_EQ(first, At(ZoneClock(kUtc), 2026, 10, 25, 0, 30));
  EXPECT_EQ(NextWakeTime(night, first - 3600, first - 3600, berlin), first);
  EXPECT_EQ(Shown(berlin, TimeAfter(night, RecordTime(first), first, berlin)), "2026-10-26 02:30");
}

TEST(Recurrence, WhatWasServedIsNotServedAgain) {
  const ZoneClock clock(kNewYork);
  const auto due = static_cast<std::int32_t>(At(clock, 2026, 11, 21, 9, 0));
  EXPECT_EQ(TimeAfter({kDaily, 9, 0, 0}, due, due, clock), due + 86400) << "in the very second";
  EXPECT_EQ(TimeAfter({kDaily, 9, 0, 0}, due, due + 10 * 86400 + 5, clock), due + 11 * 86400);
  // The range of the records ends in January 2038.
  EXPECT_EQ(TimeAfter({kEvery, 0, 2147483647, kWeeks}, due, due, clock), kNeverAgain);
  EXPECT_EQ(TimeAfter({kYearly, 9, 0, 101}, 2'140'000'000, 2'145'960'000, clock), 2'145'967'200);
  EXPECT_EQ(TimeAfter({kYearly, 9, 0, 101}, 2'145'967'200, 2'145'967'200, clock), kNeverAgain);
  EXPECT_EQ(TimeAfter({kDaily, 9, 0, 0}, kNeverAgain, std::int64_t{kNeverAgain} + 86400, clock), kNeverAgain);
}

// Rules from damaged files: an answer at once, none of which makes a note come every second.
TEST(Recurrence, IsToldInASentenceWithItsNextDates) {
  RuleNames names{[](std::uint32_t id) {
                    if (id == IDS_RULE_AND) return Text(u" & ");
                    const bool sentence = id >= IDS_RULE && id < IDS_RULE_EVERY_ONE;
                    return u"<" + IntText(id) + (sentence ? u" %n %d %t>" : u">");
                  },
                  {u"Mo", u"Tu", u"We", u"Th", u"Fr", u"Sa", u"Su"},
                  std::vector<Text>(12, u"?"),
                  u"9:30"};
  names.months[11] = u"December";
  const auto told = [&](const WakeRule& rule) { return ToUtf8(RuleInWords(rule, names)); };
  EXPECT_EQ(told({kDaily, 9, 30, 0}), "<2130   9:30>");
  EXPECT_EQ(told({kWeekly, 9, 30, 1 + 2 + 16}), "<2131  Mo, Tu & Fr 9:30>");
  EXPECT_EQ(told({kWeekly, 9, 30, 64}), "<2131  Su 9:30>");
  EXPECT_EQ(told({kYearly, 9, 30, 1224}), "<2133 24 December 9:30>");
  EXPECT_EQ(told({kMonthlyOnWeekday, 9, 30, 403}), "<2134 <2114> Th 9:30>");
  EXPECT_EQ(told({kEvery, 0, 3, kWeeks}), "<2135 3 <2108> 9:30>");
  EXPECT_EQ(told({kWeekly, 9, 30, 0}) + told({kNone, 0, 0, 0}), "");

  const ZoneClock clock(kBerlin);
  const std::int64_t now = At(clock, 2026, 11, 21, 8);
  const auto dates = [&](const WakeRule& rule, std::int64_t end) {
    std::string text;
    for (const std::int32_t time : AppearancesOf(rule, now, end, now, clock, 3))
      text += Shown(clock, time).substr(5) + ";";
    return text;
  };
  EXPECT_EQ(dates({kWeekly, 9, 30, 1 + 16}, kNone), "11-23 09:30;11-27 09:30;11-30 09:30;");
  EXPECT_EQ(dates({kWeekly, 9, 30, 1 + 16}, At(clock, 2026, 11, 27, 12)), "11-23 09:30;11-27 09:30;");
  EXPECT_EQ(dates({kDaily, 9, 30, 0}, At(clock, 2026, 11, 21, 9)), "");
}

TEST(Recurrence, NoNumbersMakeItSpin) {
  constexpr std::int32_t kNumbers[] = {
      std::numeric_limits<std::int32_t>::min(), -65535, -1, 0, 1, 28, 31, 100, 499, 1332, 65536,
      std::numeric_limits<std::int32_t>::max()};
  const ZoneClock clock(kBerlin);
  for (const std::int32_t type : {-65535, 0, 1, 2, 3, 4, 5, 6, 7}) {
    for (const std::int32_t hours : kNumbers) {
      for (const std::int32_t minutes : kNumbers) {
        for (const std::int32_t day : kNumbers) {
          for (const std::int32_t served :
               {std::numeric_limits<std::int32_t>::min(), 0, 1'795'251'907, kNeverAgain}) {
            const WakeRule rule{type, hours, minutes, day};
            const std::int32_t next = TimeAfter(rule, served, 1'795'251'907, clock);
            ASSERT_TRUE(next > served || next == kNeverAgain);
            if (!FaultOf(rule).empty() || type == kEvery) continue;
            ASSERT_GE(NextWakeTime(rule, served, 1'795'251'907, clock), 1'795'251'907);
          }
        }
      }
    }
  }
  EXPECT_EQ(NextWakeTime({kWeekly, 9, 0, 128}, 0, 0, clock), 0);
  EXPECT_EQ(NextWakeTime({kEvery, 1, 0, kMonths}, 0, 0, clock), 0);
  for (const WakeRule& sound :
       {WakeRule{kDaily, 23, 59, 0}, WakeRule{kWeekly, 0, 0, 64}, WakeRule{kEvery, 31, 1, 4},
        WakeRule{kMonthlyOnWeekday, 9, 0, 409}, WakeRule{kYearly, 0, 0, 1231}})
    EXPECT_TRUE(FaultOf(sound).empty());
  for (const WakeRule& fault :
       {WakeRule{kDaily, 24, 0, 0}, WakeRule{kWeekly, 0, 0, 128}, WakeRule{kEvery, 31, 0, 4},
        WakeRule{kEvery, 0, 1, 4}, WakeRule{kMonthlyOnWeekday, 9, 0, 410},
        WakeRule{kMonthlyOnWeekday, 9, 0, 500}, WakeRule{kYearly, 0, 0, 1301},
        WakeRule{kMonthlyOnDay, 0, 0, 0}, WakeRule{7, 0, 0, 1}, WakeRule{kEvery, 1, 1, 5}})
    EXPECT_FALSE(FaultOf(fault).empty());
}

// Day by day through the calendar, for rules without the oddities.
class SlowSearch {
 public:
  SlowSearch(const ZoneClock& clock, const WakeRule& rule) : clock_(clock), rule_(rule) {}

  std::int64_t From(std::int64_t base) const {
    using namespace std::chrono;
    const LocalTime local = clock_.ToLocal(base);
    for (sys_days day = year(local.year) / local.month / local.day;; day += days(1)) {
      if (!Matches(day)) continue;
      const std::int64_t wall =
          sys_seconds(day).time_since_epoch().count() + rule_.hours * 3600 + rule_.minutes * 60;
      if (clock_.Instant(wall) >= base) return clock_.Instant(wall);
    }
  }

 private:
  bool IsKindOfDay(std::chrono::sys_days day) const {
    const unsigned iso = std::chrono::weekday(day).iso_encoding();
    const auto kind = static_cast<unsigned>(rule_.day % 100);
    return kind == kAnyDay || (kind == kWorkingDay && iso < 6) || (kind == kWeekendDay && iso > 5) ||
           kind + 1 == iso;
  }
  bool Matches(std::chrono::sys_days day) const {
    using namespace std::chrono;
    const year_month_day date(day);
    const auto number = static_cast<int>(static_cast<unsigned>(date.day()));
    const auto month = static_cast<int>(static_cast<unsigned>(date.month()));
    if (rule_.type == kDaily) return true;
    if (rule_.type == kWeekly) return ((rule_.day >> (weekday(day).iso_encoding() - 1)) & 1) != 0;
    if (rule_.type == kMonthlyOnDay) return number == rule_.day;
    if (rule_.type == kYearly) return month * 100 + number == rule_.day;
    if (!IsKindOfDay(day)) return false;
    int before = 0, after = 0;
    for (sys_days other = day - days(number - 1); year_month_day(other).month() == date.month();
         other += days(1)) {
      before += other < day && IsKindOfDay(other) ? 1 : 0;
      after += other > day && IsKindOfDay(other) ? 1 : 0;
    }
    return rule_.day / 100 == kLastOrdinal ? after == 0 : before == rule_.day / 100;
  }

  const ZoneClock& clock_;
  const WakeRule& rule_;
};

TEST(Recurrence, FindsWhatASearchDayByDayFinds) {
  Random random(6);
  for (const Zone& zone : kZones) {
    const ZoneClock clock(zone);
    for (int i = 0; i < 600; ++i) {
      WakeRule rule{static_cast<std::int32_t>(1 + random.Below(5)),
                    static_cast<std::int32_t>(random.Below(24)), static_cast<std::int32_t>(random.Below(60)),
                    0};
      // The night in which the clocks change comes up often.
      if (i % 3 == 0) rule.hours = static_cast<std::int32_t>(random.Below(4));
      const auto below = [&random](std::size_t end) { return static_cast<std::int32_t>(random.Below(end)); };
      if (rule.type == kWeekly) rule.day = 1 + below(127);
      if (rule.type == kMonthlyOnDay) rule.day = 1 + below(28);
      if (rule.type == kYearly) rule.day = (1 + below(12)) * 100 + 1 + below(28);
      if (rule.type == kMonthlyOnWeekday) rule.day = below(5) * 100 + below(10);
      const std::int64_t base = 1'700'000'000 + std::int64_t{below(400'000'000)};
      const std::int64_t now = base + below(3) * std::int64_t{below(40'000'000)};
      ASSERT_EQ(Shown(clock, NextWakeTime(rule, base, now, clock)),
                Shown(clock, SlowSearch(clock, rule).From(now)))
          << zone.name << ": " << rule.type << " " << rule.day << " at " << rule.hours << ":" << rule.minutes
          << " from " << Shown(clock, now);
      const WakeRule steps{kEvery, 0, 1 + below(50), below(kMonths)};
      std::int64_t slow = base;
      while (slow <= now) slow += steps.minutes * UnitSeconds(steps.day);
      ASSERT_EQ(NextWakeTime(steps, base, now, clock), slow);
    }
  }
}

TEST(Calendar, EveryDayThereAndBack) {
  const ZoneClock clock(kSantiago);
  // The whole range of the records, in steps of 37 hours.
  for (std::int64_t t = std::numeric_limits<std::int32_t>::min(); t <= kNeverAgain; t += 37 * 3600) {
    const CalendarTime calendar = ToCalendar(t, clock);
    const LocalTime shown = clock.ToLocal(t);
    ASSERT_TRUE(calendar.year == shown.year && calendar.month == shown.month && calendar.day == shown.day &&
                calendar.hour == shown.hour && calendar.minute == shown.minute)
        << t;
    // Its second showing, where autumn repeats an hour, goes back to the first.
    const std::int64_t back = ToInstant(calendar, clock);
    const std::int64_t minute = t - shown.second;
    ASSERT_TRUE(back == minute || back == minute - 3600) << t;
  }
  EXPECT_EQ(DayNumber(2026, 14, 31), DayNumber(2027, 3, 3));
  EXPECT_EQ(DayNumber(2028, 3, 0), DayNumber(2028, 2, 29));
  EXPECT_EQ(DayNumber(2026, -1, 1), DayNumber(2025, 11, 1));
}

TEST(SleepTimes, UnitsAndFlags) {
  EXPECT_EQ(SleepSeconds(3, kWeeks), 3 * 604800);
  EXPECT_EQ(SleepSeconds(2147483647, kMonths), 2147483647LL * 2592000);
  EXPECT_EQ(SleepSeconds(0, kDays), 0);
  EXPECT_EQ(SleepSeconds(7, 5), 7);
  JotletData record;
  record.sleep.lastWake = 5;
  PutToSleep(record, 1LL << 40, ParseWakeFlags(u"1x1"));
  EXPECT_TRUE(record.sleep.asleep && !record.sleep.recurring);
  EXPECT_EQ(record.sleep.nextWake, 2147483647);
  EXPECT_EQ(record.sleep.flags, 5);
  EXPECT_EQ(record.sleep.lastWake, kNone) << "an old end keeps no plain note asleep";
  EXPECT_EQ(FlagsOf(record), (WakeFlags{true, false, true}));
}

TEST(Presets, AreTimesOfTheDaysToComeAlsoWhereTheClocksChange) {
  const auto times = [](const Zone& zone, LocalTime now) {
    const ZoneClock clock(zone);
    std::string all;
    for (int preset = 0; preset < kPresets; ++preset) {
      const auto time = TimeOf(static_cast<Preset>(preset), clock.ToUtc(now), {18 * 60, 8 * 60 + 30}, clock);
      all += Shown(clock, time.value_or(0)) + (preset + 1 < kPresets ? ", " : "");
    }
    return all;
  };
  // A Saturday, before the night in which the hour from 2 to 3 is left out.
  EXPECT_EQ(times(kBerlin, {2026, 3, 28, 17, 50, 0}),
            "2026-03-28 18:10, 2026-03-28 18:00, 2026-03-29 08:30, 2026-03-30 08:30");
  EXPECT_EQ(times(kNewYork, {2026, 12, 31, 23, 45, 0}),
            "2027-01-01 00:05, none, 2027-01-01 08:30, 2027-01-04 08:30");
  EXPECT_EQ(times(kUtc, {2026, 11, 23, 18, 0, 0}),
            "2026-11-23 18:20, none, 2026-11-24 08:30, 2026-11-30 08:30")
      << "on a Monday the next one";
}

}  // namespace
}  // namespace jotlets
