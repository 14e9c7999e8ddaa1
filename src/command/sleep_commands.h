// The commands about the time of notes: sleep, wake, recurrence and alarms.
#pragma once

#include "command/command_call.h"

namespace jotlets {

void WakeNote(const CommandCall& call);
void SleepNote(const CommandCall& call);
void RecurNote(const CommandCall& call);
void StartNoteAlarm(const CommandCall& call);
void StopNoteAlarm(const CommandCall& call);
void GetSleeping(const CommandCall& call);
void SetSleeping(const CommandCall& call);

}  // namespace jotlets
