// The fonts that were chosen lately, as one option keeps them: their names with "|" between them, the last
// one first.
#pragma once

#include <vector>

#include "base/text.h"

namespace jotlets {

/// Their names: at most eight, each once, whatever the option holds.
std::vector<Text> RecentFonts(TextView option);

/// The option when a font has been chosen; as it was for a name that cannot be kept.
Text WithRecentFont(TextView option, TextView face);

}  // namespace jotlets
