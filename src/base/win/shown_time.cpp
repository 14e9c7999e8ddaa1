#include "base/win/shown_time.h"

#include <windows.h>

#include "base/win/wide.h"

namespace jotlets {

Text ShownTime(const LocalTime& t) {
  constexpr int kRoom = 80;
  const auto word = [](int value) { return static_cast<WORD>(value); };
  const SYSTEMTIME time{word(t.year), word(t.month), 0, word(t.day), word(t.hour), word(t.minute), 0, 0};
  wchar_t date[kRoom] = {};
  wchar_t clock[kRoom] = {};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, date, kRoom, nullptr);
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr, clock, kRoom);
  return Text(FromWide(date)) + u" " + Text(FromWide(clock));
}

}  // namespace jotlets
