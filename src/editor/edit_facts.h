// What menus and buttons show of the editor: check marks and what can be done now. Knows nothing of the
// control.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "base/geometry.h"

namespace jotlets {

enum class Alignment { kLeft, kCenter, kRight };
enum class Bullets { kNoBullets, kNormal, kNumbers, kLetters };
enum class Highlight { kNoHighlight, kYellow, kPink, kOrange, kGreen, kBlue };

/// The back colours of the highlights from yellow to blue.
using HighlightColours = std::array<Colour, 5>;

/// Of text formats: what holds for all of the selection, or for what would be typed now.
struct EditFacts {
  bool readOnly = false;
  bool hasSelection = false;
  bool canUndo = false;
  bool canRedo = false;
  bool canPaste = false;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
  bool rtl = false;
  bool checkList = false;              // the first paragraph has a box
  std::optional<Alignment> alignment;  // nothing when paragraphs differ, in the next two as well
  std::optional<Bullets> bullets;
  std::optional<Highlight> highlight;  // also nothing for a back colour that is none of the highlights
};

}  // namespace jotlets
