#include "settings/settings_search.h"

#include <algorithm>

namespace jotlets {
namespace {

std::vector<Text> WordsOf(TextView query) {
  std::vector<Text> words;
  const Text folded = FoldCase(query);
  for (TextView rest = TrimBlanks(folded); !rest.empty();) {
    const Split parts = SplitAtFirst(rest, u' ');
    words.emplace_back(parts.head);
    rest = TrimBlanks(parts.tail);
  }
  return words;
}

}  // namespace

std::vector<std::uint16_t> FindSettings(TextView query, std::span<const SettingWords> settings) {
  const std::vector<Text> words = WordsOf(query);
  std::vector<std::uint16_t> found;
  if (words.empty()) return found;
  for (const SettingWords& setting : settings) {
    const Text said = FoldCase(setting.words);
    if (std::ranges::all_of(words, [&](const Text& word) { return said.find(word) != Text::npos; }))
      found.push_back(setting.id);
  }
  return found;
}

}  // namespace jotlets
