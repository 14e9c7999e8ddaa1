// What somebody searches for, as typed: words, each a beginning of one in the note; "a phrase"; -word;
// title:, category: and tag: (or #word) for where it stands; before: and after: a day; is:image, is:sleeping
// and so on.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/clock.h"
#include "base/text.h"

namespace jotlets {

/// Where a word has to stand.
enum class SearchIn : std::uint8_t { kAnywhere, kTitle, kCategory, kTag };

struct SearchTerm {
  Text words;  // never blank
  SearchIn in = SearchIn::kAnywhere;
  bool phrase = false;  // whole words in a row; of anything else the last word is a beginning
  bool excluded = false;
  friend bool operator==(const SearchTerm&, const SearchTerm&) = default;
};

/// Where a note is.
enum class SearchPlace : std::uint8_t { kDesktop, kAttached, kSleeping, kRecurring, kClosed, kStored };

inline constexpr std::size_t kSearchPlaces = 6;

/// A set of places: the sum of 1 << place.
using SearchPlaces = std::uint32_t;
constexpr SearchPlaces PlaceBit(SearchPlace place) { return 1U << static_cast<unsigned>(place); }
inline constexpr SearchPlaces kAllPlaces = (1U << kSearchPlaces) - 1;

struct SearchQuery {
  std::vector<SearchTerm> terms;
  SearchPlaces places = kAllPlaces;
  std::optional<bool> image;
  std::optional<LocalTime> after;   // changed at this time or later
  std::optional<LocalTime> before;  // changed earlier than this

  /// Whether it asks for nothing at all.
  bool IsEmpty() const { return terms.empty() && places == kAllPlaces && !image && !after && !before; }
};

/// Reads what was typed. Anything gives some query: what is no operator, or none that makes sense, is a word,
/// and one that is not finished yet counts for nothing. Only the beginning of a very long text is looked at.
SearchQuery ParseSearchQuery(TextView typed);

}  // namespace jotlets
