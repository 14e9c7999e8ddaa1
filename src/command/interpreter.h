// The command language: one line of text in, exactly one reply line out.
#pragma once

#include "base/log.h"
#include "base/text.h"
#include "command/command_host.h"
#include "command/reply_channel.h"

namespace jotlets {

/// Interprets one command (its transport prefix already taken off) and sends exactly one reply.
void ExecuteApiCommand(CommandHost& host, const ApiReplyChannel& reply, Log& log, TextView command);

/// What the message that brought a text in answers.
enum class Taken {
  kNotReady = 0,  // the program is still loading, or going: the same text may be offered again
  kYes = 1,
  kFailed = 2,  // nothing became of it, and nothing would the next time
};

/// No text from outside has more bytes: what a file to import may have, and more than an editor is given.
inline constexpr std::size_t kLargestInbound = 4 * 1024 * 1024;

/// What an inbound text is.
enum class InboundKind { kCommand, kSkinFile, kNoteMessage };
struct Inbound {
  InboundKind kind;
  TextView text;  // without the prefix that told its kind
};

/// Tells commands ("api " in front), skin files (a full path with the extension "jsk", unless policy fixes
/// the skin) and note messages ("#jotlet " in front is taken off) apart.
Inbound RouteInbound(TextView text, bool skinFixedByPolicy);

}  // namespace jotlets
