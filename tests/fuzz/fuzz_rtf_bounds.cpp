// Rich texts on their way to the control: what is let through is bounded, and what is shown instead is, too.
#include "data/rtf_bounds.h"
#include "data/rtf_text.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const std::string_view rtf = Bytes(data, size);
  // Whatever fits the slow control fits the other.
  if (RtfTrouble(rtf, kSlowEditor).empty()) Check(RtfTrouble(rtf, kSystemEditor).empty());
  const Text words = RtfTextStart(rtf, 64 * 1024);
  Check(TextWork(ReplaceAll(ReplaceAll(BoundedWords(words), u":", u" "), u".", u" ")) <= kSlowEditor.work);
  const Text units = Units(rtf);
  Check(RtfOfPlainText(units).starts_with("{\\rtf1"));
  return 0;
}
