// The menus of the tray icon and of a note, and showing them.
#pragma once

#include <windows.h>

#include "ui/resources.h"

namespace jotlets {

/// The tray menu: what this version cannot do yet is greyed, and the entry without a fixed text says what it
/// does now.
UniqueMenu MakeTrayMenu(const Resources& resources, bool hidden);
UniqueMenu MakeJotletMenu(const Resources& resources);

/// Shows the first pop-up of a menu at the mouse; the choice comes to `owner` as WM_COMMAND.
void ShowPopupMenu(HWND owner, HMENU menu);

/// Shows it and waits; the chosen command, 0 for none.
UINT ChooseFromMenu(HWND owner, HMENU menu);

}  // namespace jotlets
