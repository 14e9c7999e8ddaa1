// Areas in one colour.
#pragma once

#include <windows.h>

#include "ui/window.h"

namespace jotlets {

inline void FillArea(HDC dc, const RECT& area, Colour colour) {
  SetDCBrushColor(dc, ToCOLORREF(colour));
  FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

/// Its edge, one pixel wide.
inline void FrameArea(HDC dc, const RECT& area, Colour colour) {
  SetDCBrushColor(dc, ToCOLORREF(colour));
  FrameRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace jotlets
