// Rich text between its 8-bit files and the program's text.
#pragma once

#include <string>

#include "base/text.h"

namespace jotlets {

/// The bytes of a rich text: ASCII as it is, every other code unit as "\uN?", which any reader understands
/// whatever the code page.
std::string RtfBytes(TextView rtf);

}  // namespace jotlets
