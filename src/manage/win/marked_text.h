// One line of text in which the words that were looked for stand out.
#pragma once

#include <windows.h>

#include <vector>

#include "store/search_hits.h"

namespace jotlets {

struct MarkedColours {
  HBRUSH brush = nullptr;  // of the system, behind all
  COLORREF ink = 0;
  COLORREF hitPaper = 0;
  COLORREF hitInk = 0;
  bool underlined = false;  // hits
};

/// The colours of a row in a list.
MarkedColours RowColours(bool selected);

/// Draws as much of a line as fits into `bounds`, from its upper left corner on.
void DrawMarked(HDC context, HFONT font, const RECT& bounds, TextView text, const std::vector<TextPart>& hits,
                const MarkedColours& colours);

}  // namespace jotlets
