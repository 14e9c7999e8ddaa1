// What can follow in a command that is being typed, from the tables of the language.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "base/text.h"

namespace jotlets {

/// Asks the program for a list: the ids in the answer to "get list <kind>".
using ListOfIds = std::function<std::vector<Text>(TextView kind)>;

/// The words that may stand behind `words` and begin with `begun`, without regard to case, each once.
std::vector<Text> CompleteCommand(std::span<const Text> words, TextView begun, const ListOfIds& ids);

}  // namespace jotlets
