#include "schedule/presets.h"

#include "schedule/calendar.h"

namespace jotlets {
namespace {

constexpr std::int64_t kSoonSeconds = 20 * 60;

// Minutes past the hour roll over.
std::int64_t OnDay(const CalendarTime& today, std::int64_t daysLater, std::int32_t minutes,
                   const Clock& clock) {
  return ToInstant({today.year, today.month, today.day + daysLater, 0, minutes}, clock);
}

std::int64_t DaysToMonday(const CalendarTime& today) {
  constexpr std::int64_t kWeek = 7;
  constexpr std::int64_t kMonday = 2;
  const std::int64_t day = DayOfWeek(DayNumber(today.year, today.month, today.day));
  return (kMonday - day + kWeek - 1) % kWeek + 1;
}

}  // namespace

std::optional<std::int64_t> TimeOf(Preset preset, std::int64_t now, const DayTimes& times,
                                   const Clock& clock) {
  const CalendarTime today = ToCalendar(now, clock);
  switch (preset) {
    case Preset::kSoon: return now + kSoonSeconds;
    case Preset::kThisEvening: {
      const std::int64_t evening = OnDay(today, 0, times.evening, clock);
      return evening > now ? std::optional(evening) : std::nullopt;
    }
    case Preset::kTomorrowMorning: return OnDay(today, 1, times.morning, clock);
    case Preset::kNextWeek: return OnDay(today, DaysToMonday(today), times.morning, clock);
  }
  return std::nullopt;
}

}  // namespace jotlets
