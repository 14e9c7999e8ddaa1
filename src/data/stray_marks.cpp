#include "data/stray_marks.h"

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

Script ScriptOfMark(char16_t unit) {
  constexpr Range kArabic[] = {{0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670},
                               {0x06D6, 0x06DC}, {0x06DF, 0x06E4}, {0x06E7, 0x06ED}};
  constexpr Range kHebrew[] = {
      {0x0591, 0x05BD}, {0x05BF, 0x05BF}, {0x05C1, 0x05C2}, {0x05C4, 0x05C5}, {0x05C7, 0x05C7}};
  if (IsIn(kArabic, unit)) return Script::kArabic;
  return IsIn(kHebrew, unit) ? Script::kHebrew : Script::kOther;
}

Script ScriptOfLetter(char16_t unit) {
  constexpr Range kArabic[] = {{0x0620, 0x064A}, {0x066E, 0x06D3}, {0x06D5, 0x06D5},
                               {0x06E5, 0x06E6}, {0x06EE, 0x06EF}, {0x06FA, 0x06FF},
                               {0x0750, 0x077F}, {0xFB50, 0xFDFF}, {0xFE70, 0xFEFC}};
  constexpr Range kHebrew[] = {{0x05D0, 0x05F2}, {0xFB1D, 0xFB4F}};
  if (IsIn(kArabic, unit)) return Script::kArabic;
  return IsIn(kHebrew, unit) ? Script::kHebrew : Script::kOther;
}

// Accents of all scripts, and what joins letters or keeps them apart.
bool GoesOn(char16_t unit) { return IsIn({{{0x0300, 0x036F}, {0x200C, 0x200D}}}, unit); }

class MarkCheck {
 public:
  // False for a sign without its letter.
  bool Take(char16_t unit) {
    const Script mark = ScriptOfMark(unit);
    if (mark != Script::kOther) return mark == script_;
    if (!GoesOn(unit)) script_ = ScriptOfLetter(unit);
    return true;
  }
  void Break() { script_ = Script::kOther; }

 private:
  Script script_ = Script::kOther;  // of the letter that signs may follow
};

// The letters and signs of one byte in the two code pages, given as the Western European ones of the same
// bytes.
char16_t FromOneByte(char16_t unit, Script bytes) {
  constexpr char16_t kArabicLetter = 0x0628;
  constexpr char16_t kArabicMark = 0x064B;
  constexpr char16_t kHebrewLetter = 0x05D0;
  constexpr char16_t kHebrewMark = 0x05B0;
  constexpr Range kArabicMarks[] = {{0xF0, 0xF3}, {0xF5, 0xF6}, {0xF8, 0xF8}, {0xFA, 0xFA}};
  constexpr Range kHebrewMarks[] = {{0xC0, 0xCD}, {0xCF, 0xCF}, {0xD1, 0xD2}};
  if (unit < 0xC0 || unit > 0xFF || bytes == Script::kOther) return unit;
  if (bytes == Script::kArabic) return IsIn(kArabicMarks, unit) ? kArabicMark : kArabicLetter;
  return IsIn(kHebrewMarks, unit) ? kHebrewMark : kHebrewLetter;
}

class MarkReader final : public RtfReader {
 public:
  explicit MarkReader(std::string_view rtf) : RtfReader(rtf, EightBit::kWestern) {}

  bool Finds() {
    Read();
    return stray_;
  }

 private:
  bool IsFull() const override { return stray_; }
  void OnText(TextView text) override {
    for (const char16_t unit : text) stray_ |= !check_.Take(FromOneByte(unit, bytes_));
  }
  void OnWord(std::string_view word, std::int64_t number, bool) override {
    check_.Break();
    if ((word == "fcharset" && number == 178) || (word == "ansicpg" && number == 1256))
      bytes_ = Script::kArabic;
    if ((word == "fcharset" && number == 177) || (word == "ansicpg" && number == 1255))
      bytes_ = Script::kHebrew;
  }
  void OnGroupBegin() override { check_.Break(); }
  void OnGroupEnd() override { check_.Break(); }

  MarkCheck check_;
  // The code page that was named last, whichever font is written in.
  Script bytes_ = Script::kOther;
  bool stray_ = false;
};

}  // namespace

bool HasStrayMark(TextView words) {
  MarkCheck check;
  return std::ranges::any_of(words, [&](char16_t unit) { return !check.Take(unit); });
}

bool RtfHasStrayMark(std::string_view rtf) { return MarkReader(rtf).Finds(); }

}  // namespace jotlets
