// Finds settings by the words that stand beside them.
#pragma once

#include <span>
#include <vector>

#include "settings/setting.h"

namespace jotlets {

/// What the dialog says of a setting: its name, what follows, its choices, its heading, its page.
struct SettingWords {
  std::uint16_t id = 0;
  Text words;
};

/// The settings of which each word of the query is said, in any case: those of which words begin so before
/// the others, each in their order. None for a query without a word.
std::vector<std::uint16_t> FindSettings(TextView query, std::span<const SettingWords> settings);

}  // namespace jotlets
