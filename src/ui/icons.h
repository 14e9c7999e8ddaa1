// Drawing signs, in any colour and at any scale.
#pragma once

#include <windows.h>

#include "base/geometry.h"
#include "looks/icon.h"

namespace jotlets {

/// Draws a sign around `middle`, 16 pixels a side at 96 dots per inch; nothing for `kNothing`.
void DrawIcon(HDC dc, Icon icon, Point middle, int dpi, Colour ink);

}  // namespace jotlets
