// Dates and times in the user's own form.
#pragma once

#include "base/clock.h"

namespace jotlets {

Text ShownDate(const LocalTime& time);
/// Without seconds.
Text ShownTimeOfDay(const LocalTime& time);
/// The date, a blank and the time of day.
Text ShownTime(const LocalTime& time);

}  // namespace jotlets
