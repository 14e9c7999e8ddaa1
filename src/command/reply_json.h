// Replies and events as JSON, for scripts that would rather not take lines apart.
#pragma once

#include <string>

#include "base/text.h"

namespace jotlets {

/// One object in UTF-8, in one line: "code" (a number), "ok" (whether it is 0 or 1), "text" (all behind the
/// code), and what can be told apart in the answer to this command: "id", "list", "x" and "y" ... or "value".
std::string ReplyAsJson(TextView command, TextView reply);

/// One event line as an object: "code", "text", and "reason", "word", "id" or "ids" where it has them.
std::string EventAsJson(TextView line);

}  // namespace jotlets
