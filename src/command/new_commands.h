// The commands that make notes.
#pragma once

#include "command/command_call.h"

namespace jotlets {

void NewPastedPicture(const CommandCall& call);
void NewPastedPlain(const CommandCall& call);
void NewPasted(const CommandCall& call);
void NewFromPicture(const CommandCall& call);
void NewWithText(const CommandCall& call);
void NewSleepingEncoded(const CommandCall& call);
void NewEncoded(const CommandCall& call);

}  // namespace jotlets
