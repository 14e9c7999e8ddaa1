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

bool IsSaid(TextView said, TextView word, bool atBeginning) {
  for (std::size_t at = said.find(word); at != TextView::npos; at = said.find(word, at + 1))
    if (!atBeginning || at == 0 || said[at - 1] == u' ') return true;
  return false;
}

}  // namespace

std::vector<std::uint16_t> FindSettings(TextView query, std::span<const SettingWords> settings) {
  const std::vector<Text> words = WordsOf(query);
  std::vector<std::uint16_t> found;
  if (words.empty()) return found;
  std::vector<std::uint16_t> inside;
  for (const SettingWords& setting : settings) {
    const Text said = FoldCase(setting.words);
    const auto holds = [&](bool atBeginning) {
      return std::ranges::all_of(words, [&](const Text& word) { return IsSaid(said, word, atBeginning); });
    };
    if (holds(true)) {
      found.push_back(setting.id);
    } else if (holds(false)) {
      inside.push_back(setting.id);
    }
  }
  found.insert(found.end(), inside.begin(), inside.end());
  return found;
}

}  // namespace jotlets
