// Any bytes as the beginning of a rich text, and as links within it: no more text than was asked for, and no
// address that holds a break.
#include "data/rtf_text.h"

#include "editor/link_text.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const Text text = RtfTextStart(Bytes(data, size), 1000);
  Check(text.size() <= 1000);
  for (const std::size_t at : {std::size_t{0}, text.size() / 2, text.size()}) {
    const TextView word = WordAt(text, at);
    for (const Text& target : {LinkTarget(word), LinkFromText(word)})
      Check(target.find_first_of(u" \r\n\t") == Text::npos &&
            (target.empty() || LinkTarget(target) == target));
  }
  return 0;
}
