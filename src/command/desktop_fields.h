// The fields of an open note that "get desktop" reads and "set desktop" changes, one row each.
#pragma once

#include "base/text.h"
#include "command/command_host.h"
#include "command/reply_channel.h"

namespace jotlets {

/// One command on its way through the interpreter.
struct CommandCall {
  CommandHost& host;
  const ApiReplyChannel& reply;
  TextView arguments;  // all that follows the keyword
};

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
