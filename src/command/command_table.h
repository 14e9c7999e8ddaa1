// The command language as a table: every command with what the reference page says of it and what carries it
// out.
#pragma once

#include <span>

#include "command/command_call.h"

namespace jotlets {

struct CommandRow {
  TextView keyword;    // a prefix of the command; with its blank when arguments must follow
  TextView arguments;  // their names, as the page writes them
  TextView purpose;
  TextView example;
  TextView replies;  // between them "; "
  void (*run)(const CommandCall& call);
};

/// The commands in matching order: the first whose keyword is a prefix of a command, without regard to case,
/// is the one. A longer keyword therefore stands before its own beginning, and the rows marked `NotYet` keep
/// their place, so that no shorter keyword takes their commands.
std::span<const CommandRow> CommandRows();

}  // namespace jotlets
