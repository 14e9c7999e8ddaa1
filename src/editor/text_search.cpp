#include "editor/text_search.h"

#include <algorithm>

namespace jotlets {

std::vector<std::size_t> FindAll(TextView text, TextView wanted, std::size_t maximum) {
  std::vector<std::size_t> hits;
  if (wanted.empty()) return hits;
  const Text folded = FoldCase(text);
  const Text words = FoldCase(wanted);
  std::size_t at = folded.find(words);
  while (at != Text::npos && hits.size() < maximum) {
    hits.push_back(at);
    at = folded.find(words, at + words.size());
  }
  return hits;
}

std::size_t NextHit(const std::vector<std::size_t>& hits, TextSpan selection, FindStep step) {
  if (hits.empty() || step == FindStep::kNowhere) return hits.size();
  if (step == FindStep::kPrevious) {
    const auto behind = std::ranges::lower_bound(hits, selection.first);
    return behind == hits.begin() ? hits.size() - 1 : static_cast<std::size_t>(behind - hits.begin()) - 1;
  }
  const auto next =
      std::ranges::lower_bound(hits, step == FindStep::kStay ? selection.first : selection.last);
  return next == hits.end() ? 0 : static_cast<std::size_t>(next - hits.begin());
}

std::size_t HitNumber(const std::vector<std::size_t>& hits, TextSpan selection, std::size_t length) {
  const auto hit = std::ranges::lower_bound(hits, selection.first);
  if (hit == hits.end() || *hit != selection.first || selection.last != selection.first + length) return 0;
  return static_cast<std::size_t>(hit - hits.begin()) + 1;
}

}  // namespace jotlets
