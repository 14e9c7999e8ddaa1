// Dialogs that are taller than the screen: they are as tall as there is room, and scroll.
#pragma once

#include <windows.h>

namespace jotlets {

/// Where the dialog does not fit into the work area, makes it scroll: by its bar, the wheel, and to whichever
/// control gets the keyboard.
void FitHeight(HWND dialog);

}  // namespace jotlets
