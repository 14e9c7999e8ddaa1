// A font as a person chooses it, and a text style as the editor applies it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "base/geometry.h"
#include "base/text.h"
#include "editor/text_style.h"

namespace jotlets {

struct FontStyle {
  Text face;
  std::int32_t points10 = 100;  // tenths of a point
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeout = false;
  Colour colour;
  std::uint8_t charset = DEFAULT_CHARSET;
  friend bool operator==(const FontStyle&, const FontStyle&) = default;
};

/// One without a face is not set.
struct EditStyle {
  FontStyle font;
  std::optional<Colour> back;
  std::optional<ParagraphStyle> paragraphs;
};

}  // namespace jotlets
