// One command on its way through the interpreter, and what the handlers of all rows share.
#pragma once

#include <initializer_list>

#include "base/text.h"
#include "command/command_host.h"
#include "command/reply_channel.h"

namespace jotlets {

struct CommandCall {
  CommandHost& host;
  const ApiReplyChannel& reply;
  TextView arguments;  // all that follows the keyword
};

inline constexpr TextView kNotUnderstood = u"999 Not understood";
inline constexpr TextView kJotletNotFound = u"998 jotlet not found";
inline constexpr TextView kNotFound = u"995 not found";
inline constexpr TextView kProblemSaving = u"995 problem saving";
inline constexpr TextView kIsReadOnly = u"996 jotlet is read only";
inline constexpr TextView kIsImage = u"997 jotlet is image";
inline constexpr TextView kUnableToSend = u"994 Unable to send";
inline constexpr TextView kUnableToLoad = u"997 unable to load file";
inline constexpr TextView kForbidden = u"997 forbidden by GPO";

/// The handler of a row whose feature this version does not have.
void NotYet(const CommandCall& call);

/// Saves, and replies "000 OK " and the word, or that this failed; what the command did stands.
void SavedOk(const CommandCall& call, TextView word);

/// "000 OK " and the word, or the line of the refusal.
void Answer(const CommandCall& call, bool done, TextView word, TextView refusal);

/// "<id> <rest>": blanks around the whole, and around the rest, do not count. For actions and fields to read
/// the rest is one word; for fields to change it is the field's name, a blank and the value.
struct Addressed {
  TextView id;
  TextView rest;
};
Addressed SplitAddressed(TextView arguments);

/// A note in its encoded form, with its content as it is now.
Text EncodedNote(const CommandCall& call, const JotletData& record);

/// Decimal numbers with a separator between them.
Text Numbers(std::initializer_list<std::int64_t> numbers, TextView separator);

}  // namespace jotlets
