// Any text as a text style. What was written once is read as it was, in one line of 20 fields, or of 27 with
// a name.
#include <algorithm>

#include "editor/text_style.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  if (size == 0) return 0;
  const std::string_view bytes = Bytes(data + 1, size - 1);
  const TextStyle style = ParseTextStyle((data[0] & 1) != 0 ? Units(bytes) : FromUtf8(bytes));
  Check(style.faceName.size() <= 31);
  const Text written = ComposeTextStyle(style);
  const auto bars = std::count(written.begin(), written.end(), u'|');
  Check(bars == 19 || bars == 26);
  Check(written.find_first_of(u"\r\n") == Text::npos);
  Check(ParseTextStyle(written) == style);
  return 0;
}
