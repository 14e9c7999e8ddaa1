// Dialogs and pages that are taller than there is room: their list gives way, else they scroll.
#pragma once

#include <windows.h>

namespace jotlets {

/// Where the dialog does not fit into the work area, makes its list lower, and, where that is not enough, has
/// it scroll: by its bar, the wheel, and to whichever control gets the keyboard. One that can be sized
/// becomes smaller instead, and places its controls anew.
void FitHeight(HWND dialog);

/// Lets the wheel over this control scroll what the control is part of: a value that the mouse happens to be
/// over stays as it is. An open list keeps it.
void PassWheel(HWND control);

}  // namespace jotlets
