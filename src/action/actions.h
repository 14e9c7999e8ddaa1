// The vocabulary of note commands: the names that skin buttons carry and the codes that notes act on. What a
// command does is not known here.
#pragma once

#include <cstdint>

#include "base/text.h"

namespace jotlets {

/// `kActionClose` is 1, and so on: the codes of the rows.
enum ActionCode : std::int32_t {
  kActionNone = 0,
#define X(code, name, ...) kAction##name = code,
#include "action/action_rows.inc"
#undef X
  kActionEnd  // one past the last
};

/// The action called `name`, without regard to case; `kActionNone` when there is none.
ActionCode ActionFromName(TextView name);

/// The name of an action in lower case; empty for what is no action.
Text ActionName(std::int32_t code);

}  // namespace jotlets
