// The menu of the tray icon, and showing it.
#pragma once

#include <windows.h>

#include "ui/resources.h"

namespace jotlets {

/// The tray menu: what this version cannot do yet is greyed, and the entry without a fixed text says what it
/// does now.
UniqueMenu MakeTrayMenu(const Resources& resources, bool hidden);

/// Shows the first pop-up of a menu at the mouse; the choice comes to `owner` as WM_COMMAND.
void ShowPopupMenu(HWND owner, HMENU menu);

}  // namespace jotlets
