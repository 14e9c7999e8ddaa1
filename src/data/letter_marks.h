// Signs that Arabic and Hebrew write above or below a letter. Wine's text control ends the program over one
// that stands without its letter, be it only that a long word is broken between the two where a line ends.
#pragma once

#include <string_view>

#include "base/text.h"

namespace jotlets {

bool HasMark(TextView words);
bool RtfHasMark(std::string_view rtf);

/// The letters alone, which is how most texts are written.
Text WithoutMarks(Text words);

}  // namespace jotlets
