// The words of a text as the search index has them, and a query in the index's own language. Letters count
// without case and accents. Writing without blanks (Chinese, Japanese, Korean) is taken character by
// character, so that any run of it is found.
#pragma once

#include <string>

#include "base/text.h"
#include "store/search_query.h"

namespace jotlets {

char16_t FoldLetterBeyondAscii(char16_t unit);
/// A letter without case and accent, as far as European alphabets go. A search goes through it for each unit
/// of all texts.
inline char16_t FoldLetter(char16_t unit) {
  if (unit >= 0x80) return FoldLetterBeyondAscii(unit);
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
}
/// Whether a unit belongs to a word: a letter or a digit of any script.
bool IsWordUnit(char16_t unit);
/// A sign on the letter before it.
inline bool IsCombining(char16_t unit) { return unit >= 0x0300 && unit <= 0x036F; }
/// Whether a unit, or the pair that it is half of, is a word by itself.
bool IsIdeograph(char16_t unit);

/// `text` with every unit a database can hold: halves of pairs and NULs are replaced.
Text StorableText(TextView text);
/// `text` with blanks around every ideograph.
Text SpreadText(TextView text);
/// The #words in `text`, without their sign, separated by blanks.
Text TagsIn(TextView text);

/// The query in the language of FTS5 over the columns title, text, category and tags, in UTF-8; empty when it
/// has no words that could be looked up. `titlesOnly`: words that may stand anywhere have to stand in the
/// title.
std::string FullTextExpression(const SearchQuery& query, bool titlesOnly);

}  // namespace jotlets
