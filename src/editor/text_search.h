// Finding words in a text: where they are, and which of the places is next.
#pragma once

#include <cstddef>
#include <vector>

#include "base/text.h"

namespace jotlets {

/// The beginnings of all places where `wanted` stands in `text`, without regard to case, from the first on; a
/// place does not overlap the one before. None for an empty `wanted`; no more than `maximum`.
std::vector<std::size_t> FindAll(TextView text, TextView wanted, std::size_t maximum = 100000);

/// Where a search goes to: on from the selection, on with the same place included as for words that are still
/// being typed, back, or nowhere.
enum class FindStep { kNext, kStay, kPrevious, kNowhere };

/// Which place is selected, counted from 1 (0 for none), of how many.
struct FoundText {
  std::size_t number = 0;
  std::size_t count = 0;
};

/// A range of the text, `first` to `last`.
struct TextSpan {
  std::size_t first = 0;
  std::size_t last = 0;
};

/// The index of the hit that a step leads to, going round at the ends; `hits.size()` for none.
std::size_t NextHit(const std::vector<std::size_t>& hits, TextSpan selection, FindStep step);

/// Which of the hits is selected, counted from 1; 0 for none.
std::size_t HitNumber(const std::vector<std::size_t>& hits, TextSpan selection, std::size_t length);

}  // namespace jotlets
