#include "data/letter_marks.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "data/rtf_reader.h"

namespace jotlets {
namespace {

enum class Script : std::uint8_t { kOther, kArabic, kHebrew };

struct Range {
  char16_t first;
  char16_t last;
};

bool IsIn(std::span<const Range> ranges, char16_t unit) {
  return std::ranges::any_of(
      ranges, [unit](const Range& range) { return unit >= range.first && unit <= range.last; });
}

bool IsMark(char16_t unit) {
  constexpr Range kMarks[] = {{0x0591, 0x05BD}, {0x05BF, 0x05BF}, {0x05C1, 0x05C2}, {0x05C4, 0x05C5},
                              {0x05C7, 0x05C7}, {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670},
                              {0x06D6, 0x06DC}, {0x06DF, 0x06E4}, {0x06E7, 0x06ED}};
  return IsIn(kMarks, unit);
}

// The signs of one byte in the two code pages, given as the Western European ones of the same bytes.
bool IsMarkOfOneByte(char16_t unit, Script bytes) {
  constexpr Range kArabic[] = {{0xF0, 0xF3}, {0xF5, 0xF6}, {0xF8, 0xF8}, {0xFA, 0xFA}};
  constexpr Range kHebrew[] = {{0xC0, 0xCD}, {0xCF, 0xCF}, {0xD1, 0xD2}};
  if (bytes == Script::kOther) return false;
  return bytes == Script::kArabic ? IsIn(kArabic, unit) : IsIn(kHebrew, unit);
}

class MarkReader final : public RtfReader {
 public:
  explicit MarkReader(std::string_view rtf) : RtfReader(rtf, EightBit::kWestern) {}

  bool Finds() {
    Read();
    return found_;
  }

 private:
  bool IsFull() const override { return found_; }
  void OnText(TextView text) override {
    for (const char16_t unit : text) found_ |= IsMark(unit) || IsMarkOfOneByte(unit, bytes_);
  }
  void OnWord(std::string_view word, std::int64_t number, bool) override {
    if ((word == "fcharset" && number == 178) || (word == "ansicpg" && number == 1256))
      bytes_ = Script::kArabic;
    if ((word == "fcharset" && number == 177) || (word == "ansicpg" && number == 1255))
      bytes_ = Script::kHebrew;
  }

  // The code page that was named last, whichever font is written in.
  Script bytes_ = Script::kOther;
  bool found_ = false;
};

}  // namespace

bool HasMark(TextView words) { return std::ranges::any_of(words, IsMark); }

bool RtfHasMark(std::string_view rtf) { return MarkReader(rtf).Finds(); }

Text WithoutMarks(Text words) {
  std::erase_if(words, IsMark);
  return words;
}

}  // namespace jotlets
