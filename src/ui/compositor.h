// What the system's compositor knows of windows; without one they are as they say.
#pragma once

#include <windows.h>

namespace jotlets {

/// Whether a window that counts as visible shows nothing: of a suspended program, or of another virtual
/// desktop.
bool IsCloaked(HWND window);

/// A window as large as it looks, without the frame that the system leaves invisible.
RECT SeenBounds(HWND window);

}  // namespace jotlets
