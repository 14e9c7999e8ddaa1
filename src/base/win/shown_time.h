// Dates and times in the user's own form.
#pragma once

#include "base/clock.h"

namespace jotlets {

/// The date, a blank and the time of day, without seconds.
Text ShownTime(const LocalTime& time);

}  // namespace jotlets
