// A rich text as paragraphs of words with their looks, as far as other kinds of files can say them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace jotlets {

/// Words that look the same.
struct TextRun {
  Text text;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
  bool LooksAs(const TextRun& other) const {
    return bold == other.bold && italic == other.italic && underline == other.underline &&
           strikethrough == other.strikethrough;
  }
};

struct TextParagraph {
  enum class List : std::uint8_t { kNoList, kBullets, kNumbers };
  List list = List::kNoList;
  std::uint8_t level = 0;  // of an item, how many lists it is inside of; what is read from rich text has none
  std::uint8_t heading = 0;  // the level of one, from 1; what is read from rich text has none
  std::vector<TextRun> runs;
};

/// The rich text of paragraphs, in ASCII.
std::string RtfOfParagraphs(const std::vector<TextParagraph>& paragraphs);

/// The paragraphs of a rich text with at most `maximum` code units of words. Any bytes give some.
std::vector<TextParagraph> RtfParagraphs(std::string_view rtf, std::size_t maximum);

}  // namespace jotlets
