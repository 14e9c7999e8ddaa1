// Where the words of a query stand in a text, and the part of a text that shows them.
#pragma once

#include <cstddef>
#include <vector>

#include "base/text.h"
#include "store/search_query.h"

namespace jotlets {

/// The units from `first` up to `last`, that one excluded.
struct TextPart {
  std::size_t first = 0;
  std::size_t last = 0;
  friend bool operator==(const TextPart&, const TextPart&) = default;
};

struct MarkedText {
  Text text;
  std::vector<TextPart> hits;  // ascending, none overlaps another
};

/// A note as a query is held against it.
struct SearchedNote {
  TextView title;
  TextView text;
  TextView category;
};

class SearchHits {
 public:
  explicit SearchHits(const SearchQuery& query);

  /// Where the words stand: at the beginning of a word if that is anywhere, else inside of one.
  std::vector<TextPart> InTitle(TextView title) const;
  std::vector<TextPart> InText(TextView text) const;
  /// At most `length` units of `text` on one line, from a little before the first hit on.
  MarkedText Snippet(TextView text, std::size_t length) const;
  /// Whether all the words stand somewhere, be it inside of others, and none of those excluded.
  bool Match(const SearchedNote& note) const;

 private:
  struct Needle {
    Text words;  // folded; runs of other signs are one blank
    SearchTerm term;
  };

  static std::vector<TextPart> Find(const Needle& needle, TextView text, bool atWords, std::size_t maximum);
  static bool Stands(const Needle& needle, const SearchedNote& note);
  /// At most `maximum` hits of each word.
  std::vector<TextPart> FindAll(TextView text, SearchIn where, std::size_t maximum) const;

  std::vector<Needle> needles_;
};

}  // namespace jotlets
