// The pictures of dark controls.
#pragma once

#include <windows.h>

#include "looks/window_colours.h"
#include "ui/handle.h"
#include "ui/window.h"

namespace jotlets {

/// A control and what its picture is drawn with: the font is selected, texts are drawn transparent.
struct DarkPicture {
  HWND control;
  HDC dc;
  RECT area;
  const WindowColours& colours;
};

void DrawDarkButton(const DarkPicture& picture);
void DrawDarkComboBox(const DarkPicture& picture);
void DrawDarkTabs(const DarkPicture& picture);
void DrawDarkHeader(const DarkPicture& picture);
void DrawDarkUpDown(const DarkPicture& picture);

}  // namespace jotlets
