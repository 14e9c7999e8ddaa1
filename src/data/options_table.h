// The table of the options: one row for each line of "options.ini", which its reader, its writer and its
// reference page go through.
#pragma once

#include <cstdint>
#include <limits>
#include <span>

#include "base/text.h"
#include "data/options.h"

namespace jotlets {

/// What a number is brought into; without bounds for what is no number.
struct OptionRange {
  std::int32_t minimum = std::numeric_limits<std::int32_t>::min();
  std::int32_t maximum = std::numeric_limits<std::int32_t>::max();
  bool HasBounds() const { return maximum != std::numeric_limits<std::int32_t>::max(); }
};

/// One option. A flag is written only when it differs from its default, which gives its absence a meaning;
/// every other form is always written.
struct OptionRow {
  TextView key;
  TextView form;  // how the value is written, for the reference page
  void (*read)(Options&, TextView value, const OptionRange& range);
  /// Appends the value; false: the line is left out.
  bool (*write)(const Options&, Text& out);
  OptionRange range;
  TextView meaning;
};

/// In the order of the file.
std::span<const OptionRow> OptionRows();

}  // namespace jotlets
