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
/// As `ShownSoon` within six days from now; a time that is over, or further away, as the other one tells it:
/// there a day of the week says too little.
Text ShownNear(const Clock& clock, std::int64_t utc, Text (*otherwise)(const LocalTime&));

}  // namespace jotlets
