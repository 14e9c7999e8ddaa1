#include "schedule/win/time_pickers.h"

#include <commctrl.h>

#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "schedule/calendar.h"

namespace jotlets {
namespace {

SYSTEMTIME SystemTimeOf(const LocalTime& t) {
  const auto word = [](int value) { return static_cast<WORD>(value); };
  return {word(t.year), word(t.month), 0, word(t.day), word(t.hour), word(t.minute), 0, 0};
}

std::vector<Text> LocaleNames(LCTYPE first, LCTYPE count) {
  constexpr int kRoom = 80;
  std::vector<Text> names;
  for (LCTYPE i = 0; i < count; ++i) {
    wchar_t name[kRoom] = {};
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, first + i, name, kRoom);
    names.emplace_back(FromWide(name));
  }
  return names;
}

}  // namespace

void PreparePickers() {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_DATE_CLASSES | ICC_UPDOWN_CLASS};
  InitCommonControlsEx(&controls);
}

void SetClockForm(HWND picker) {
  DWORD form = 0;
  GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_ITIME | LOCALE_RETURN_NUMBER,
                  reinterpret_cast<LPWSTR>(&form), sizeof form / sizeof(wchar_t));
  SendMessageW(picker, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(form == 1 ? L"HH:mm" : L"hh:mm tt"));
}

void SetPicker(HWND picker, const LocalTime& time) {
  SYSTEMTIME shown = SystemTimeOf(time);
  SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&shown));
}

LocalTime PickerTime(HWND picker) {
  SYSTEMTIME shown{};
  SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
  return {shown.wYear, shown.wMonth, shown.wDay, shown.wHour, shown.wMinute, 0};
}

std::int64_t PickedInstant(HWND date, HWND time, const Clock& clock) {
  const LocalTime day = PickerTime(date);
  const LocalTime ofDay = PickerTime(time);
  return ToInstant({day.year, day.month, day.day, ofDay.hour, ofDay.minute}, clock);
}

std::vector<Text> DayNames() { return LocaleNames(LOCALE_SDAYNAME1, 7); }
std::vector<Text> MonthNames() { return LocaleNames(LOCALE_SMONTHNAME1, 12); }

Text LongDate(const LocalTime& time) {
  constexpr int kRoom = 120;
  const SYSTEMTIME shown = SystemTimeOf(time);
  wchar_t date[kRoom] = {};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_LONGDATE, &shown, nullptr, date, kRoom, nullptr);
  return Text(FromWide(date));
}

Text TimeInWords(const LocalTime& time) { return LongDate(time) + u", " + ShownTimeOfDay(time); }

}  // namespace jotlets
