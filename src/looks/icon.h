// The signs that stand before the entries of menus and lists.
#pragma once

#include <cstddef>
#include <cstdint>

namespace jotlets {

enum class Icon : std::uint8_t {
  kNothing,
#define X(name, drawing) k##name,
#include "looks/icon_rows.inc"
#undef X
  kCount,
};

/// The pixels a side of the sheets there are, the smallest first; in each the signs stand below each other.
inline constexpr int kIconSheets[] = {16, 20, 24, 28, 32, 40, 48};

}  // namespace jotlets
