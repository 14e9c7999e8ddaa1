// The menu of the tray icon, and showing it.
#pragma once

#include <windows.h>

#include "app/win/hot_keys.h"
#include "command/custom_commands.h"
#include "ui/resources.h"

namespace jotlets {

/// The tray menu: what this version cannot do yet is greyed, and the entry without a fixed text says what it
/// does now. The entries of other programs come before the last, with their ids.
UniqueMenu MakeTrayMenu(const Resources& resources, bool hidden, const std::vector<CustomCommand>& custom);
inline constexpr std::int32_t kFirstCustomId = 20000;
/// Shows the hot keys that hold behind those entries of the tray menu that have no other key.
void ShowHotKeys(HMENU menu, const HotKeys& hotKeys);

/// Shows the first pop-up of a menu at the mouse; the choice comes to `owner` as WM_COMMAND.
void ShowPopupMenu(const Theme& theme, HWND owner, HMENU menu);

}  // namespace jotlets
