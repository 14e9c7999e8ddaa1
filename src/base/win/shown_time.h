// Dates and times in the user's own form.
#pragma once

#include "base/clock.h"

namespace jotlets {

Text ShownDate(const LocalTime& time);
/// Without seconds.
Text ShownTimeOfDay(const LocalTime& time);
/// A time in the days to come: the time of day, with the day of the week before it unless it is `today`.
Text ShownSoon(const LocalTime& time, const LocalTime& today);
/// The date, a blank and the time of day.
Text ShownTime(const LocalTime& time);

}  // namespace jotlets
