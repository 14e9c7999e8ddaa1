// Text as the rules of the program see it: exact UTF-16 code units, unpaired surrogates included, on every
// build. Nothing here knows about windows, code pages or locales.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jotlets {

using Text = std::u16string;
using TextView = std::u16string_view;

/// The number at the front of `text`: optional blanks, an optional sign, decimal digits up to the first
/// non-digit. No digits reads as 0; a value out of range saturates.
std::int32_t ParseInt(TextView text);

/// Appends `value` in plain decimal.
void AppendInt(Text& out, std::int64_t value);

/// Appends `value` as "%04i" does: padded with zeros to four characters, the sign counted among them.
void AppendPaddedInt(Text& out, std::int32_t value);

/// Appends `value` as upper-case hexadecimal digits without padding.
void AppendHex(Text& out, std::uint32_t value);

/// The decimal form of `value`.
Text IntText(std::int64_t value);

/// Up to `most` comma-separated numbers of `text`; missing ones are not added.
std::vector<std::int32_t> ParseIntList(TextView text, std::size_t maximum);

/// One code unit without regard to case: ASCII, Latin, Greek and Cyrillic letters.
char16_t FoldCase(char16_t unit);

/// Every code unit of `text` folded; two texts are the same note id exactly when their folds are equal.
Text FoldCase(TextView text);

bool EqualIgnoreCase(TextView a, TextView b);
bool StartsWithIgnoreCase(TextView text, TextView prefix);

/// Whether the name of a file ends in `extension` (dot included), with something before it.
bool HasExtension(TextView name, TextView extension);

/// Position of `what` in `text` without regard to case, or TextView::npos.
std::size_t FindIgnoreCase(TextView text, TextView what);

/// `text` with every `from` replaced by `to`, left to right, replacements not searched again.
Text ReplaceAll(TextView text, TextView from, TextView to);

/// `text` without the blanks (U+0020 only) at both ends.
TextView TrimBlanks(TextView text);

/// The part before the first `separator`, and the part after it; all of `text` and nothing when there is
/// none.
struct Split {
  TextView head;
  TextView tail;
};
Split SplitAtFirst(TextView text, char16_t separator);

/// Angle escaping of free text in record lines: "<" becomes "&lt", then ">" becomes "&gt", deliberately
/// without a semicolon. A text that itself holds "&lt" therefore comes back with "<".
Text EscapeAngles(TextView text);
Text UnescapeAngles(TextView text);

/// Hex text form: each UTF-16 code unit as four upper-case hexadecimal digits.
Text HexTitle(TextView text);

/// The inverse of `HexTitle`: one code unit for every whole group of four digits; in a group that is not
/// hexadecimal the digits before the first foreign character count.
Text UnhexTitle(TextView text);

/// `text` with carriage returns, line feeds and NULs turned into blanks ("\r\n" into one).
Text OneLine(TextView text);

/// The first `maximum` code units of a longer text, without half of a character at the end.
TextView StartOf(TextView text, std::size_t maximum);

/// UTF-8 of `text`. An unpaired surrogate is written as its own three bytes, so that no text is lost.
std::string ToUtf8(TextView text);

/// UTF-16 of `bytes`; what is not UTF-8 becomes U+FFFD. Surrogates written as three bytes (see `ToUtf8`) are
/// taken as they are. `*valid`, when given, tells whether all of it was well-formed.
Text FromUtf8(std::string_view bytes, bool* valid = nullptr);

/// The UTF-16 text of ASCII characters, for literals that arrive as narrow text.
Text FromAscii(std::string_view ascii);

/// `path` with exactly one "\" at its end; an empty path stays empty.
Text WithSeparator(TextView path);

}  // namespace jotlets
