#include "base/win/shown_time.h"

#include <windows.h>

#include "base/win/wide.h"

namespace jotlets {

namespace {

constexpr int kRoom = 80;

SYSTEMTIME ToSYSTEMTIME(const LocalTime& t) {
  const auto word = [](int value) { return static_cast<WORD>(value); };
  return {word(t.year), word(t.month), 0, word(t.day), word(t.hour), word(t.minute), 0, 0};
}

}  // namespace

Text ShownDate(const LocalTime& t) {
  const SYSTEMTIME time = ToSYSTEMTIME(t);
  wchar_t date[kRoom] = {};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, date, kRoom, nullptr);
  return Text(FromWide(date));
}

Text ShownTimeOfDay(const LocalTime& t) {
  const SYSTEMTIME time = ToSYSTEMTIME(t);
  wchar_t clock[kRoom] = {};
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr, clock, kRoom);
  return Text(FromWide(clock));
}

Text ShownSoon(const LocalTime& t, const LocalTime& today) {
  if (t.year == today.year && t.month == today.month && t.day == today.day) return ShownTimeOfDay(t);
  const SYSTEMTIME time = ToSYSTEMTIME(t);
  wchar_t day[kRoom] = {};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, L"ddd", day, kRoom, nullptr);
  return Text(FromWide(day)) + u" " + ShownTimeOfDay(t);
}

Text ShownTime(const LocalTime& t) { return ShownDate(t) + u" " + ShownTimeOfDay(t); }

Text ShownNear(const Clock& clock, std::int64_t utc, Text (*otherwise)(const LocalTime&)) {
  constexpr std::int64_t kSoon = 6 * 24 * 3600;
  const Moment now = clock.Now();
  const LocalTime time = clock.ToLocal(utc);
  return utc > now.utc && utc - now.utc < kSoon ? ShownSoon(time, now.local) : otherwise(time);
}

}  // namespace jotlets
