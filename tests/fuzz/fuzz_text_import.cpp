// Any bytes as a text of another kind: what comes of it is a rich text that says the same words.
#include "data/rtf_bounds.h"
#include "data/text_file.h"
#include "data/text_import.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const Text text = FromUtf8(Bytes(data, size));
  for (const ImportedText& imported : {TextOfMarkdown(text), TextOfHtml(text)}) {
    std::size_t words = 0;
    for (const TextParagraph& paragraph : imported.paragraphs)
      for (const TextRun& run : paragraph.runs) words += run.text.size();
    // A target is said once more at most.
    Check(words + imported.title.size() <= 3 * text.size() + 3 * imported.paragraphs.size());
    const std::string rtf = RtfOfParagraphs(imported.paragraphs);
    Check(RtfTrouble(rtf, kSystemEditor).empty());
    Check(RtfParagraphs(rtf, rtf.size()).size() <= imported.paragraphs.size());
  }
  return 0;
}
