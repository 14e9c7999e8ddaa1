#include "data/rtf_text.h"

#include <algorithm>
#include <utility>

#include "data/rtf_reader.h"

namespace jotlets {
namespace {

class TextStart final : public RtfReader {
 public:
  TextStart(std::string_view rtf, std::size_t maximum) : RtfReader(rtf), maximum_(maximum) {}

  Text Words() {
    Read();
    text_.resize(std::min(text_.size(), maximum_));
    return std::move(text_);
  }

 private:
  bool IsFull() const override { return text_.size() >= maximum_; }
  void OnText(TextView text) override { text_ += text; }

  std::size_t maximum_;
  Text text_;
};

}  // namespace

Text HarmlessWords(Text words) {
  struct Range {
    char16_t first;
    char16_t last;
  };
  // Latin, Greek, Cyrillic and Armenian; letters of Hebrew and Arabic; punctuation and symbols; Chinese,
  // Japanese and Korean.
  constexpr Range kHarmless[] = {{u'\t', u'\r'},         {u' ', u'~'},           {u'\u00A0', u'\u02FF'},
                                 {u'\u0370', u'\u0482'}, {u'\u048A', u'\u0556'}, {u'\u05D0', u'\u05EA'},
                                 {u'\u0621', u'\u064A'}, {u'\u1E00', u'\u1FFE'}, {u'\u2010', u'\u2027'},
                                 {u'\u2030', u'\u205E'}, {u'\u20A0', u'\u20BF'}, {u'\u2100', u'\u27BF'},
                                 {u'\u3001', u'\u3029'}, {u'\u3041', u'\u3096'}, {u'\u30A1', u'\u30FF'},
                                 {u'\u3400', u'\u9FFF'}, {u'\uAC00', u'\uD7A3'}, {u'\uFF01', u'\uFF9D'}};
  for (char16_t& unit : words) {
    const bool harmless = std::ranges::any_of(
        kHarmless, [unit](const Range& range) { return unit >= range.first && unit <= range.last; });
    if (!harmless) unit = u'\uFFFD';
  }
  return words;
}

Text RtfTextStart(std::string_view rtf, std::size_t maximum) { return TextStart(rtf, maximum).Words(); }

}  // namespace jotlets
