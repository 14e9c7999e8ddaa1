// The fields of an open note that "get desktop" reads and "set desktop" changes, one row each.
#pragma once

#include "command/command_call.h"

namespace jotlets {

struct FieldReader {
  TextView name;
  Text (*read)(CommandHost& host, DesktopJotlet& jotlet);
};

/// Makes the change, saves, and replies.
struct FieldWriter {
  TextView name;
  void (*write)(const CommandCall& call, DesktopJotlet& jotlet, TextView value);
};

/// The row of a field name, without regard to case; nullptr for a name that is none.
const FieldReader* FindFieldReader(TextView name);
const FieldWriter* FindFieldWriter(TextView name);

/// "r,g,b" as a colour, each number cut to 0 to 255; missing ones are 0.
Colour ParseColour(TextView text);

}  // namespace jotlets
