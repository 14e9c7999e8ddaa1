#include "command/interpreter.h"

#include "command/command_table.h"
#include "data/jotlet_id.h"

namespace jotlets {

void ExecuteApiCommand(CommandHost& host, const ApiReplyChannel& reply, Log& log, TextView command) {
  log.Write(kLogDetail, u"API command received: \"", command, u"\"");
  for (const CommandRow& row : CommandRows()) {
    if (!StartsWithIgnoreCase(command, row.keyword)) continue;
    row.run({host, reply, command.substr(row.keyword.size())});
    return;
  }
  reply.SendLine(kNotUnderstood);
}

Inbound RouteInbound(TextView text, bool skinFixedByPolicy) {
  constexpr TextView kCommandPrefix = u"api ";
  constexpr TextView kNotePrefix = u"#jotlet ";
  if (StartsWithIgnoreCase(text, kCommandPrefix)) {
    return {InboundKind::kCommand, text.substr(kCommandPrefix.size())};
  }
  // A note may end in any words: only what can be nothing but a path is one.
  if (HasExtension(text, u".jsk") && IsPathOfFile(text) && !skinFixedByPolicy)
    return {InboundKind::kSkinFile, text};
  if (text.starts_with(kNotePrefix)) text.remove_prefix(kNotePrefix.size());
  return {InboundKind::kNoteMessage, text};
}

}  // namespace jotlets
