// Menus that are waited for.
#pragma once

#include <windows.h>

#include <span>

#include "base/geometry.h"
#include "ui/swatch_row.h"
#include "ui/theme.h"

namespace jotlets {

/// Shows a menu and waits; the id of the entry chosen, 0 when the menu was left. What the system answers is
/// believed only when it is an entry of the menu: a submenu left by the keyboard may answer anything. `rows`
/// are the rows of colours that stand in it or in a menu below.
UINT ChooseFromMenu(const Theme& theme, HMENU menu, Point at, HWND owner,
                    std::span<SwatchRow* const> rows = {});

/// Shows a menu and waits; its owner is sent the command that was chosen.
void ShowMenu(const Theme& theme, HMENU menu, Point at, HWND owner);

}  // namespace jotlets
