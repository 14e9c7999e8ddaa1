// What the platform knows about screens, folders and this program.
#pragma once

#include <windows.h>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

/// The rectangle around all monitors.
Rect VirtualScreen();
Size PrimaryScreenSize();
/// The dots per inch of the monitor at this place, or of the one nearest to it.
std::int32_t DpiAt(Point at);
/// What of the monitor that a window is on is not covered by task bars.
Rect WorkAreaOf(HWND window);

/// Full path of the program file, and its folder with "\" at the end.
Text ProgramPath();
Text ProgramFolder();

/// Makes the process aware of each monitor's scale: version 2 of that where the system has it, else
/// version 1.
void EnableDpiAwareness();

}  // namespace jotlets
