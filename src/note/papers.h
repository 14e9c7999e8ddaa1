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

/// The same papers where everything is dark.
inline constexpr std::array<Colour, kPapers.size()> kDarkPapers = {{{0x39, 0x33, 0x1C},
                                                                    {0x3E, 0x2F, 0x26},
                                                                    {0x3F, 0x2A, 0x33},
                                                                    {0x33, 0x2C, 0x42},
                                                                    {0x22, 0x31, 0x44},
                                                                    {0x26, 0x36, 0x2A},
                                                                    {0x30, 0x34, 0x38},
                                                                    {0x2B, 0x2B, 0x2B}}};

/// Which paper this colour is; nothing for a colour of one's own.
constexpr std::optional<std::size_t> PaperOf(Colour colour) {
  for (std::size_t i = 0; i < kPapers.size(); ++i)
    if (kPapers[i] == colour) return i;
  return std::nullopt;
}

/// The yellow of notes that were made without choosing a colour, which is none of the papers.
inline constexpr Colour kUnchosenPaper{255, 255, 180};

/// What is drawn for a colour where everything is dark; one of the user's own stays.
constexpr Colour DarkPaper(Colour colour) {
  const auto paper = colour == kUnchosenPaper ? std::optional<std::size_t>(0) : PaperOf(colour);
  return paper ? kDarkPapers[*paper] : colour;
}

}  // namespace jotlets
