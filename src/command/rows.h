// Looking a row of one of the language's tables up by its name.
#pragma once

#include <algorithm>
#include <array>

#include "base/text.h"

namespace jotlets {

/// The row whose `name` is this one, without regard to case; nullptr when there is none.
template <typename Row, std::size_t Count>
const Row* FindRow(const std::array<Row, Count>& rows, TextView name) {
  const auto found = std::find_if(rows.begin(), rows.end(),
                                  [name](const Row& row) { return EqualIgnoreCase(row.name, name); });
  return found == rows.end() ? nullptr : &*found;
}

}  // namespace jotlets
