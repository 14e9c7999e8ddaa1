// The date and time pickers of dialogs.
#pragma once

#include <windows.h>

#include <vector>

#include "base/clock.h"

namespace jotlets {

/// Makes the controls known to the system; call it before a dialog with pickers is shown.
void PreparePickers();

/// Shows times of day without seconds, in the 24-hour or the 12-hour form of the user's locale.
void SetClockForm(HWND picker);

void SetPicker(HWND picker, const LocalTime& time);
LocalTime PickerTime(HWND picker);

/// The date of one picker with the time of day of another, seconds 0, as an instant (seconds since 1970 UTC).
std::int64_t PickedInstant(HWND date, HWND time, const Clock& clock);

/// A date with its day of the week and a time of day, in the user's own words.
Text TimeInWords(const LocalTime& time);

/// The names of the days of the week, from Monday on, and of the months in the user's language.
std::vector<Text> DayNames();
std::vector<Text> MonthNames();

/// As long as the user's locale has it: "Monday, September 7, 2026".
Text LongDate(const LocalTime& time);

}  // namespace jotlets
