// Any bytes as a rich text that becomes other kinds of files: a page has no tag that the program has not
// made, and a name is one that files can have.
#include "data/text_export.h"

#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const std::string_view bytes = Bytes(data, size);
  const Text text = FromUtf8(bytes);
  const Text page = HtmlOfRtf(bytes, text);
  for (std::size_t at = page.find(u'<'); at != Text::npos; at = page.find(u'<', at + 1)) {
    const Text tag = page.substr(at, page.find(u'>', at) - at);
    Check(tag.size() <= 22 && tag.find(u'<', 1) == Text::npos);
  }
  Check(MarkdownOfRtf(bytes).size() <= 16 * size + 16);
  const Text name = FileNameOfTitle(text);
  Check(!name.empty() && name.size() <= 81 && name.find_first_of(u"\\/:*?\"<>|\r\n") == Text::npos);
  return 0;
}
