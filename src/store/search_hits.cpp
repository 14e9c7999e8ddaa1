#include "store/search_hits.h"

#include <algorithm>
#include <optional>

#include "store/search_words.h"

namespace jotlets {
namespace {

constexpr std::size_t kMaximumHits = 100;
constexpr std::size_t kBeforeHit = 24;

bool IsBlank(char16_t unit) { return unit <= u' ' || unit == u'\u00A0'; }

// Whether a word may begin or end between a unit and the next.
bool IsBorder(char16_t left, char16_t right) {
  return !IsWordUnit(left) || !IsWordUnit(right) || IsIdeograph(left) || IsIdeograph(right);
}

bool BeginsWord(TextView text, std::size_t at) { return at == 0 || IsBorder(text[at - 1], text[at]); }
bool EndsWord(TextView text, std::size_t end) {
  return end == 0 || end >= text.size() || (!IsCombining(text[end]) && IsBorder(text[end - 1], text[end]));
}

// Signs alone are looked for as they are; between words any of them will do.
Text NeedleWords(TextView words) {
  Text needle;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const char16_t unit = words[at];
    if (IsCombining(unit)) continue;
    if (IsWordUnit(unit)) {
      needle += FoldLetter(unit);
      const bool isPair = (unit & 0xFC00) == 0xD800 && at + 1 < words.size();
      if (isPair) needle += words[++at];
    } else if (!needle.empty() && needle.back() != u' ') {
      needle += u' ';
    }
  }
  while (needle.ends_with(u' ')) needle.pop_back();
  return needle.empty() ? Text(words) : needle;
}

// Where the words that begin at `at` end; nothing when they do not stand there.
std::optional<std::size_t> MatchAt(TextView text, std::size_t at, const Text& needle) {
  for (const char16_t unit : needle) {
    if (unit == u' ') {
      const std::size_t begin = at;
      while (at < text.size() && !IsWordUnit(text[at])) ++at;
      // The index takes ideographs apart.
      if (at == begin && (at == text.size() || !BeginsWord(text, at))) return std::nullopt;
      continue;
    }
    if (at == text.size() || FoldLetter(text[at]) != unit) return std::nullopt;
    ++at;
    while (at < text.size() && IsCombining(text[at])) ++at;
  }
  return at;
}

// One line: runs of blanks are one.
Text Flattened(TextView text) {
  Text line;
  for (const char16_t unit : text) {
    if (!IsBlank(unit)) {
      line += unit;
    } else if (!line.empty() && line.back() != u' ') {
      line += u' ';
    }
  }
  return line;
}

// The beginning of a word that is not far before a place.
std::size_t SnippetBegin(TextView text, std::size_t hit) {
  if (hit <= kBeforeHit) return 0;
  std::size_t begin = hit - kBeforeHit;
  while (begin < hit && !IsBlank(text[begin - 1])) ++begin;
  return begin;
}

}  // namespace

SearchHits::SearchHits(const SearchQuery& query) {
  for (const SearchTerm& term : query.terms) needles_.push_back({NeedleWords(term.words), term});
}

std::vector<TextPart> SearchHits::Find(const Needle& needle, TextView text, bool atWords,
                                       std::size_t maximum) {
  std::vector<TextPart> hits;
  for (std::size_t at = 0; at < text.size() && hits.size() < maximum; ++at) {
    if (FoldLetter(text[at]) != needle.words.front() || (atWords && !BeginsWord(text, at))) continue;
    const auto end = MatchAt(text, at, needle.words);
    const bool whole = atWords && (needle.term.phrase || needle.term.excluded);
    if (!end || (whole && !EndsWord(text, *end))) continue;
    hits.push_back({at, *end});
    at = *end - 1;
  }
  return hits;
}

std::vector<TextPart> SearchHits::FindAll(TextView text, SearchIn where, std::size_t maximum) const {
  std::vector<TextPart> all;
  for (const Needle& needle : needles_) {
    const SearchIn in = needle.term.in == SearchIn::kTag ? SearchIn::kAnywhere : needle.term.in;
    if (needle.term.excluded || (in != SearchIn::kAnywhere && in != where)) continue;
    std::vector<TextPart> hits = Find(needle, text, true, maximum);
    if (hits.empty()) hits = Find(needle, text, false, maximum);
    all.insert(all.end(), hits.begin(), hits.end());
  }
  std::ranges::sort(all, {}, &TextPart::first);
  std::vector<TextPart> apart;
  for (const TextPart& hit : all) {
    if (apart.empty() || hit.first >= apart.back().last) {
      apart.push_back(hit);
    } else {
      apart.back().last = std::max(apart.back().last, hit.last);
    }
  }
  return apart;
}

std::vector<TextPart> SearchHits::InTitle(TextView title) const {
  return FindAll(title, SearchIn::kTitle, kMaximumHits);
}

std::vector<TextPart> SearchHits::InText(TextView text) const {
  return FindAll(text, SearchIn::kAnywhere, kMaximumHits);
}

MarkedText SearchHits::Snippet(TextView text, std::size_t length) const {
  const std::vector<TextPart> first = FindAll(text, SearchIn::kAnywhere, 1);
  const std::size_t begin = first.empty() ? 0 : SnippetBegin(text, first.front().first);
  MarkedText snippet;
  // Blanks may go, so that more of the text than is shown has to be looked at.
  snippet.text = Flattened(text.substr(begin, length * 4)).substr(0, length);
  if (begin > 0) snippet.text.insert(0, u"\u2026 ");
  snippet.hits = InText(snippet.text);
  return snippet;
}

bool SearchHits::Stands(const Needle& needle, const SearchedNote& note) {
  const bool atWords = needle.term.excluded;
  const auto in = [&](TextView text) { return !Find(needle, text, atWords, 1).empty(); };
  switch (needle.term.in) {
    case SearchIn::kAnywhere: return in(note.title) || in(note.text) || in(note.category);
    case SearchIn::kTitle: return in(note.title);
    case SearchIn::kCategory: return in(note.category);
    case SearchIn::kTag: return in(TagsIn(note.title)) || in(TagsIn(note.text));
  }
  return false;
}

bool SearchHits::Match(const SearchedNote& note) const {
  return std::ranges::all_of(
      needles_, [&](const Needle& needle) { return Stands(needle, note) != needle.term.excluded; });
}

}  // namespace jotlets
