// The menus of the tray icon and of a note, and showing them.
#pragma once

#include <windows.h>

#include "note/actions.h"
#include "ui/resources.h"

namespace jotlets {

/// The tray menu: what this version cannot do yet is greyed, and the entry without a fixed text says what it
/// does now.
UniqueMenu MakeTrayMenu(const Resources& resources, bool hidden);

/// What the menu of a note shows of it.
struct JotletMenu {
  bool rolled = false;
  bool onTop = false;
  bool readOnly = false;
  bool maySetSkin = true;
};
UniqueMenu MakeJotletMenu(const Resources& resources, const JotletMenu& state);

/// The note command of a menu entry; none for other entries.
ActionCode ActionOf(UINT command);

/// Shows the first pop-up of a menu at the mouse; the choice comes to `owner` as WM_COMMAND.
void ShowPopupMenu(HWND owner, HMENU menu);

/// Shows it and waits; the chosen command, 0 for none.
UINT ChooseFromMenu(HWND owner, HMENU menu);

}  // namespace jotlets
