// Commands about attached notes and stacks.
#pragma once

#include "command/command_call.h"

namespace jotlets {

/// "get attached <id> encoded"
void GetAttached(const CommandCall& call);
/// "get stack <number> utitle"
void GetStack(const CommandCall& call);

}  // namespace jotlets
