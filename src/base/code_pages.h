// The 8-bit code pages that texts of other programs name.
#pragma once

#include <string_view>

namespace jotlets {

inline constexpr int kWesternEuropean = 1252;

/// Whether a code page is one of the system's for a language (874, 932, 936, 949, 950, 1250 to 1258).
bool IsCodePage(int page);

/// The code page of a font's character set, as Windows numbers them; 0 for one that has none of its own.
int CodePageOfCharset(int charset);

/// Whether this byte of a text in the code page is half a character, which the next one completes.
bool IsLeadByte(int page, unsigned char byte);

/// The character of one or two bytes. What the code page lacks stays as it is when it is one byte, and is
/// U+FFFD when it is two. `page` is one of `IsCodePage`.
char16_t UnitOfBytes(int page, std::string_view bytes);

}  // namespace jotlets
