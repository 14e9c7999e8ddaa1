// Walks through a rich text and tells what is in it. Any bytes can be read; each is looked at once.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "base/code_pages.h"
#include "base/text.h"

namespace jotlets {

class RtfReader {
 public:
  /// Which code page bytes outside ASCII are in: that of their font, or always the Western European one.
  enum class EightBit : std::uint8_t { kByFont, kWestern };

  explicit RtfReader(std::string_view rtf, EightBit eightBit = EightBit::kByFont)
      : rest_(rtf), eightBit_(eightBit) {}
  virtual ~RtfReader() = default;
  RtfReader(const RtfReader&) = delete;
  RtfReader& operator=(const RtfReader&) = delete;

  /// Reads until the end, or until `IsFull`.
  void Read();

 protected:
  virtual bool IsFull() const = 0;
  /// Words of the text: never those of groups that are no part of it.
  virtual void OnText(TextView text) = 0;
  virtual void OnParagraphEnd() { OnText(u"\r\n"); }
  /// A control word that stands for no text, also in groups that are no part of it.
  virtual void OnWord(std::string_view, std::int64_t, bool) {}
  virtual void OnGroupBegin() {}
  virtual void OnGroupEnd() {}
  /// The group that is open now is no part of the text.
  void Skip() {
    if (!Skipping()) skippedDepth_ = depth_;
  }
  bool Skipping() const { return skippedDepth_ != 0; }

 private:
  char Take() {
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }
  void CloseGroup();
  void AddCharacter(char16_t unit);
  void AddByte(char byte);
  char16_t UnitOf(int page, char byte);
  void SetFont(std::int64_t number);
  void ActOnFont(std::string_view word, std::int64_t number);
  void ReadControl();
  std::int64_t ReadNumber(bool& given);
  void ReadSymbol(char symbol);
  void Add(TextView text) {
    if (!Skipping()) OnText(text);
  }
  void ActOn(std::string_view word, std::int64_t number, bool given);

  std::string_view rest_;
  std::size_t depth_ = 0;
  std::size_t skippedDepth_ = 0;  // of the group that is left out, 0 for none
  EightBit eightBit_;
  std::map<std::int64_t, int> fonts_;  // code pages by font number, 0 for that of the text
  std::size_t fontTableDepth_ = 0;     // of the group, 0 outside of it
  std::int64_t describedFont_ = 0;
  std::int64_t defaultFont_ = 0;
  int textPage_ = kWesternEuropean;
  int page_ = 0;            // of the font that is written in; 0 for that of the text
  std::vector<int> pages_;  // of the groups around this one
  char leadByte_ = 0;       // the first half of a character
  // What the bytes above ASCII have turned out to be in a code page; 0 for those that have not come yet.
  struct UpperHalf {
    int page = 0;
    std::array<char16_t, 128> units{};
  };
  UpperHalf upper_;
  std::int64_t replacements_ = 1;
  std::int64_t replaced_ = 0;
};

}  // namespace jotlets
