// The papers: the colours that a note is offered.
#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "base/geometry.h"

namespace jotlets {

/// Yellow, peach, pink, violet, blue, green, grey and graphite; their names are the texts from IDS_PAPER on.
inline constexpr std::array<Colour, 8> kPapers = {{{0xFF, 0xF4, 0xB8},
                                                   {0xFF, 0xE2, 0xCC},
                                                   {0xFF, 0xD9, 0xE6},
                                                   {0xE8, 0xDA, 0xFF},
                                                   {0xCF, 0xE6, 0xFF},
                                                   {0xD9, 0xF2, 0xD0},
                                                   {0xE9, 0xEC, 0xEF},
                                                   {0x2B, 0x2B, 0x2B}}};

/// Which paper this colour is; nothing for a colour of one's own.
constexpr std::optional<std::size_t> PaperOf(Colour colour) {
  for (std::size_t i = 0; i < kPapers.size(); ++i)
    if (kPapers[i] == colour) return i;
  return std::nullopt;
}

}  // namespace jotlets
