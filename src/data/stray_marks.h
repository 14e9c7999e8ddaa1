// Signs that Arabic and Hebrew write above or below a letter, standing without one. No text has such; Wine's
// text control ends the program over them.
#pragma once

#include <string_view>

#include "base/text.h"

namespace jotlets {

bool HasStrayMark(TextView words);

/// The same of a rich text, where a sign that is formatted otherwise than its letter stands without it, too.
bool RtfHasStrayMark(std::string_view rtf);

}  // namespace jotlets
