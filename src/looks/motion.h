// The times of all that moves on the desktop, in milliseconds. Where the system animates nothing, notes move
// and fade at once (`Appearance::moves`); an alarm goes on, since it has something to say.
#pragma once

#include <cstdint>

namespace jotlets {

/// From one step of a note's way across the screen to the next.
inline constexpr std::int32_t kSlideStep = 17;

/// The same of a note that fades, and how many steps that takes.
inline constexpr std::int32_t kFadeStep = 20;
inline constexpr std::int32_t kFadeSteps = 50;

/// What shows under the mouse alone comes within `kHoverIn`, and goes within `kHoverOut` after a rest.
inline constexpr std::int32_t kHoverStep = 17;
inline constexpr std::int32_t kHoverIn = 120;
inline constexpr std::int32_t kHoverRest = 150;
inline constexpr std::int32_t kHoverOut = 200;

/// From one step to the next of a note that sounds.
inline constexpr std::int32_t kAlarmStep = 50;

}  // namespace jotlets
