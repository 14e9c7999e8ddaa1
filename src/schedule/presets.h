// The times that a note is put away until without a dialog.
#pragma once

#include <cstdint>
#include <optional>

#include "base/clock.h"

namespace jotlets {

/// In the order in which menus and dialogs offer them.
enum class Preset : std::uint8_t { kSoon, kThisEvening, kTomorrowMorning, kNextWeek };
inline constexpr int kPresets = 4;

/// When evening and morning are, in minutes since midnight.
struct DayTimes {
  std::int32_t evening = 18 * 60;
  std::int32_t morning = 9 * 60;
};

/// The time of a preset, seconds since 1970 UTC: 20 minutes from now, this evening, tomorrow morning, the
/// morning of the Monday to come. Nothing for an evening that is over.
std::optional<std::int64_t> TimeOf(Preset preset, std::int64_t now, const DayTimes& times,
                                   const Clock& clock);

}  // namespace jotlets
