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

Text RtfTextStart(std::string_view rtf, std::size_t maximum) { return TextStart(rtf, maximum).Words(); }

}  // namespace jotlets
