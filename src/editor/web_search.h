// Where words are looked up on the web: an address that the user has given.
#pragma once

#include "base/text.h"

namespace jotlets {

/// The address that looks `words` up: each "%s" of `address` is replaced by them, or they are appended to an
/// address without one, as UTF-8 with every byte but letters, digits and "-._~" as "%" and two hexadecimal
/// digits. Empty for an address that is none of a web page, and for no words.
Text WebSearchAddress(TextView address, TextView words);

/// The beginning of words as a menu shows them: one line, its ampersands doubled.
Text ShortWords(TextView words);

}  // namespace jotlets
