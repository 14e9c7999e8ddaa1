// The bytes of our text files: written as UTF-16 little-endian with its mark, read in that form, as UTF-8
// with its mark, or in the system's ANSI code page.
#pragma once

#include <string>
#include <string_view>

#include "base/code_page.h"
#include "base/text.h"

namespace jotlets {

struct TextFile {
  Text text;
  /// The bytes break their own encoding: half a code unit or half a character at the end, bytes that are not
  /// UTF-8, or NULs, which no writer of ours produces (a file system puts them there after a power failure).
  bool damaged = false;
};

/// Decodes any bytes. NULs are left out of the text.
TextFile DecodeTextFile(std::string_view bytes, const CodePage& ansi);

/// The mark in front of a text, for `MarkedBytes`.
inline constexpr char16_t kByteOrderMark = u'\uFEFF';

/// The bytes of a text that begins with its mark, without a copy: the file that `EncodeTextFile` makes of the
/// rest. The text is good for nothing else afterwards.
std::string_view MarkedBytes(Text& text);

/// FF FE, then `text` in UTF-16 little-endian.
std::string EncodeTextFile(TextView text);

/// Walks over the lines of a text: each without its line feed and the carriage returns before it.
class LineReader {
 public:
  explicit LineReader(TextView text) : rest_(text) {}
  /// The next line in `line`; false at the end. A text that ends in a line feed has no empty line after it.
  bool Next(TextView& line);

 private:
  TextView rest_;
};

}  // namespace jotlets
