#include "command/place_commands.h"

namespace jotlets {

void GetAttached(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  const JotletData* record = call.host.FindAttached(to.id);
  if (record == nullptr) {
    call.reply.SendLine(kJotletNotFound);
  } else if (!EqualIgnoreCase(to.rest, u"encoded")) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    call.reply.Value(EncodedNote(call, *record));
  }
}

// A number is written in one way only: "01" names no stack.
void GetStack(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  const StackRecord* stack = call.host.FindStack(ParseInt(to.id));
  if (stack == nullptr || IntText(stack->number) != to.id) {
    call.reply.SendLine(u"998 stack not found");
  } else if (!EqualIgnoreCase(to.rest, u"utitle")) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    call.reply.Value(HexTitle(stack->title));
  }
}

}  // namespace jotlets
