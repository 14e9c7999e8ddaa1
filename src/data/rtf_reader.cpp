#include "data/rtf_reader.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace jotlets {
namespace {

// Groups whose content is not part of the text.
constexpr std::array<std::string_view, 13> kOtherContent = {
    "fonttbl",  "colortbl",  "stylesheet",        "info",     "pict", "object", "fldinst", "header", "footer",
    "footnote", "listtable", "listoverridetable", "themedata"};

struct CharacterWord {
  std::string_view word;
  TextView text;
};
constexpr std::array kCharacterWords = {
    CharacterWord{"line", u"\r\n"},       CharacterWord{"row", u"\r\n"},
    CharacterWord{"tab", u"\t"},          CharacterWord{"cell", u"\t"},
    CharacterWord{"emdash", u"\u2014"},   CharacterWord{"endash", u"\u2013"},
    CharacterWord{"bullet", u"\u2022"},   CharacterWord{"lquote", u"\u2018"},
    CharacterWord{"rquote", u"\u2019"},   CharacterWord{"ldblquote", u"\u201C"},
    CharacterWord{"rdblquote", u"\u201D"}};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace

void RtfReader::Read() {
  while (!rest_.empty() && !IsFull()) {
    const char c = Take();
    if (c == '{') {
      ++depth_;
      pages_.push_back(page_);
      OnGroupBegin();
    } else if (c == '}') {
      CloseGroup();
    } else if (c == '\\') {
      ReadControl();
    } else if (c != '\r' && c != '\n') {
      AddByte(c);
    }
  }
}

void RtfReader::CloseGroup() {
  if (depth_ == skippedDepth_) skippedDepth_ = 0;
  const bool endsFonts = depth_ == fontTableDepth_ && depth_ > 0;
  if (endsFonts) fontTableDepth_ = 0;
  if (depth_ > 0) {
    --depth_;
    page_ = pages_.back();
    pages_.pop_back();
    if (endsFonts) SetFont(defaultFont_);
    OnGroupEnd();
  }
  replaced_ = 0;
  leadByte_ = 0;
}

// A character that stands in for a Unicode one before it is left out.
void RtfReader::AddCharacter(char16_t unit) {
  if (replaced_ > 0) {
    --replaced_;
  } else if (unit != 0) {
    Add(TextView(&unit, 1));
  }
}

void RtfReader::AddByte(char byte) {
  const int named = page_ == 0 ? textPage_ : page_;
  const int page = eightBit_ == EightBit::kByFont ? named : kWesternEuropean;
  if (leadByte_ != 0) {
    const char both[] = {leadByte_, byte};
    leadByte_ = 0;
    AddCharacter(UnitOfBytes(page, {both, 2}));
  } else if (IsLeadByte(page, static_cast<unsigned char>(byte)) && replaced_ == 0) {
    leadByte_ = byte;
  } else {
    AddCharacter(UnitOf(page, byte));
  }
}

char16_t RtfReader::UnitOf(int page, char byte) {
  const auto number = static_cast<unsigned char>(byte);
  if (number < 0x80) return number;
  if (upper_.page != page) upper_ = {page, {}};
  char16_t& unit = upper_.units[number - 0x80];
  if (unit == 0) unit = UnitOfBytes(page, {&byte, 1});
  return unit;
}

void RtfReader::SetFont(std::int64_t number) {
  const auto font = fonts_.find(number);
  page_ = font == fonts_.end() ? 0 : font->second;
}

void RtfReader::ActOnFont(std::string_view word, std::int64_t number) {
  const int page = static_cast<int>(number);
  if (word == "ansicpg") {
    if (IsCodePage(page)) textPage_ = page;
  } else if (word == "deff") {
    defaultFont_ = number;
  } else if (word == "fonttbl") {
    fontTableDepth_ = depth_;
  } else if (word == "plain") {
    SetFont(defaultFont_);
  } else if (word == "f") {
    fontTableDepth_ != 0 ? void(describedFont_ = number) : SetFont(number);
  } else if (fontTableDepth_ != 0 && word == "fcharset") {
    fonts_[describedFont_] = CodePageOfCharset(page);
  } else if (fontTableDepth_ != 0 && word == "cpg") {
    fonts_[describedFont_] = IsCodePage(page) ? page : 0;
  }
}

void RtfReader::ReadControl() {
  if (rest_.empty()) return;
  if (rest_.front() != '\'') leadByte_ = 0;
  if (!IsLetter(rest_.front())) return ReadSymbol(Take());
  const auto length =
      static_cast<std::size_t>(std::find_if_not(rest_.begin(), rest_.end(), IsLetter) - rest_.begin());
  const std::string_view word = rest_.substr(0, length);
  rest_.remove_prefix(length);
  bool given = false;
  const std::int64_t number = ReadNumber(given);
  if (!rest_.empty() && rest_.front() == ' ') Take();
  ActOn(word, number, given);
}

std::int64_t RtfReader::ReadNumber(bool& given) {
  constexpr std::int64_t kLargest = 1'000'000'000;
  const bool negative = rest_.size() > 1 && rest_[0] == '-' && IsDigit(rest_[1]);
  if (negative) Take();
  std::int64_t number = 0;
  while (!rest_.empty() && IsDigit(rest_.front())) {
    number = std::min(number * 10 + (Take() - '0'), kLargest);
    given = true;
  }
  return negative ? -number : number;
}

void RtfReader::ReadSymbol(char symbol) {
  switch (symbol) {
    case '\'': {
      if (rest_.size() < 2) return;
      const int high = HexDigit(rest_[0]);
      const int low = HexDigit(rest_[1]);
      if (high < 0 || low < 0) return;
      rest_.remove_prefix(2);
      AddByte(static_cast<char>(high * 16 + low));
      break;
    }
    case '*': Skip(); break;
    case '~': AddCharacter(0xA0); break;
    case '_': AddCharacter(u'-'); break;
    case '\r':
    case '\n':
      if (!Skipping()) OnParagraphEnd();
      break;
    case '{':
    case '}':
    case '\\': AddCharacter(static_cast<char16_t>(symbol)); break;
    default: break;
  }
}

void RtfReader::ActOn(std::string_view word, std::int64_t number, bool given) {
  ActOnFont(word, number);
  if (word == "u" && given) {
    replaced_ = 0;
    AddCharacter(static_cast<char16_t>(number & 0xFFFF));
    replaced_ = replacements_;
  } else if (word == "uc" && given) {
    replacements_ = std::clamp<std::int64_t>(number, 0, 16);
  } else if (word == "bin" && number > 0) {
    rest_.remove_prefix(std::min(rest_.size(), static_cast<std::size_t>(number)));
  } else if (std::find(kOtherContent.begin(), kOtherContent.end(), word) != kOtherContent.end()) {
    Skip();
  } else if (word == "par") {
    if (!Skipping()) OnParagraphEnd();
  } else {
    const auto row = std::find_if(kCharacterWords.begin(), kCharacterWords.end(),
                                  [&](const CharacterWord& r) { return r.word == word; });
    if (row != kCharacterWords.end()) return Add(row->text);
    OnWord(word, number, given);
  }
}

}  // namespace jotlets
