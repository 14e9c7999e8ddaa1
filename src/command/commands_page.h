// The tables of the language as the reference page shows them.
#pragma once

#include "base/text.h"

namespace jotlets {

/// The part of the reference page from the heading "## Commands" to its end.
Text CommandsPage();

}  // namespace jotlets
