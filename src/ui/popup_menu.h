// Menus that are waited for.
#pragma once

#include <windows.h>

#include "base/geometry.h"

namespace jotlets {

/// Shows a menu and waits; the id of the entry chosen, 0 when the menu was left. What the system answers is
/// believed only when it is an entry of the menu: a submenu left by the keyboard may answer anything.
UINT ChooseFromMenu(HMENU menu, Point at, HWND owner);

}  // namespace jotlets
