// What the tray icon says of itself when the mouse rests on it.
#pragma once

#include <vector>

#include "base/text.h"

namespace jotlets {

/// As many of the lines as the system shows, 127 signs with the title; one that is too long is passed over.
Text KeyTooltip(Text title, const std::vector<Text>& lines);

}  // namespace jotlets
