// The commands addressed to one note: "do desktop", "get desktop", "set desktop" and "get closed".
#pragma once

#include <span>

#include "command/command_call.h"

namespace jotlets {

/// Carries the action out, saves what it changes, and replies.
struct ActionRow {
  TextView name;
  TextView purpose;
  TextView replies;
  void (*run)(const CommandCall& call, DesktopJotlet& jotlet);
};

std::span<const ActionRow> DesktopActions();

void DoDesktop(const CommandCall& call);
void GetDesktop(const CommandCall& call);
void GetClosed(const CommandCall& call);
void SetDesktop(const CommandCall& call);

}  // namespace jotlets
