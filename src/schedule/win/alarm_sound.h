// The sounds of notes that wake and of alarms.
#pragma once

#include "base/log.h"
#include "base/text.h"
#include "data/options.h"

namespace jotlets {

/// Any other number stands for the sound of the options for everything else.
enum AlarmSound : int { kWakeSound = 1, kAlarmSound = 2 };

/// Plays the sound of a kind, and returns at once; a file that is none plays nothing. "beep", in any case,
/// and the name of no file stand for the system's own beep. The alarm sound goes on as the options say, but
/// for a trial, which nothing would stop.
void PlayAlarmSound(const Options& options, Log& log, int kind, bool trial = false);

/// Ends every sound that is playing.
void StopSounds();

}  // namespace jotlets
