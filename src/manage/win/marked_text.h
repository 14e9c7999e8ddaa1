// One line of text in which the words that were looked for stand out.
#pragma once

#include <windows.h>

#include <vector>

#include "store/search_hits.h"
#include "ui/theme.h"

namespace jotlets {

struct MarkedColours {
  Colour paper;  // behind all
  Colour ink;
  Colour hitPaper;
  Colour hitInk;
  bool underlined = false;  // hits
};

/// The colours of a row in a list, in the look of the program.
MarkedColours RowColours(const Theme& theme, bool selected);

/// Draws as much of a line as fits into `bounds`, from its upper left corner on.
void DrawMarked(HDC context, HFONT font, const RECT& bounds, TextView text, const std::vector<TextPart>& hits,
                const MarkedColours& colours);

}  // namespace jotlets
