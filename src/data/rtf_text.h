// The words of a rich text without the control that shows it: for files too large to be opened.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/text.h"

namespace jotlets {

/// As much of a text as is searched, in code units, and the largest file, in bytes, that is read for it.
inline constexpr std::size_t kMaximumSearchedText = 1 << 16;
inline constexpr std::uint64_t kLargestSearchedFile = 32 << 20;

/// The beginning of a rich text as plain text of at most `maximum` code units, lines ended by "\r\n". Reads
/// no further than it has to. Any bytes give some text; 8-bit characters are in the code page of
/// their font.
Text RtfTextStart(std::string_view rtf, std::size_t maximum);

/// Words that any control can show, of a text whose showing has ended a program: signs that are written on
/// others, and scripts that few fonts have, become "\uFFFD". As long as before.
Text HarmlessWords(Text words);

}  // namespace jotlets
