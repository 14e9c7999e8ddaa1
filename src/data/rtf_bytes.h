// Rich text between its 8-bit files and the program's text.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace jotlets {

/// The bytes of a rich text: ASCII as it is, every other code unit as "\uN?", which any reader understands
/// whatever the code page.
std::string RtfBytes(TextView rtf);

/// What a control wrote, as a rich text that reads back as the same: controls end their stream with a NUL or
/// two and write one that is in the text as it is, which no rich text has, and some write an exact distance
/// of lines with two signs, which then reads as words.
std::string MendedRtf(std::string_view rtf);

}  // namespace jotlets
