// The fields of an open note that "get desktop" reads and "set desktop" changes, one row each.
#pragma once

#include <span>

#include "command/command_call.h"

namespace jotlets {

/// Replies with the value.
struct FieldReader {
  TextView name;
  TextView form;  // of the reply
  void (*read)(const CommandCall& call, DesktopJotlet& jotlet);
};

/// Makes the change, saves, and replies.
struct FieldWriter {
  TextView name;
  TextView value;  // its form
  TextView replies;
  void (*write)(const CommandCall& call, DesktopJotlet& jotlet, TextView value);
};

std::span<const FieldReader> DesktopReaders();
std::span<const FieldWriter> DesktopWriters();

/// The row of a field name, without regard to case; nullptr for a name that is none.
const FieldReader* FindFieldReader(TextView name);
const FieldWriter* FindFieldWriter(TextView name);

}  // namespace jotlets
