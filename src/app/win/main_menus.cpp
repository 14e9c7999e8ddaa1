#include "app/win/main_menus.h"

#include <array>
#include <utility>

#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/drawn_menu.h"
#include "ui/popup_menu.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::pair<UINT, Icon> kTrayIcons[] = {
    {ID_NEW_JOTLET, Icon::kPlus},   {ID_NEW_FROM_CLIPBOARD, Icon::kPaste},
    {ID_IMPORT, Icon::kImport},     {ID_RESCUE, Icon::kRescue},
    {ID_MANAGE, Icon::kAll},        {ID_FRIENDS, Icon::kFriends},
    {ID_OPTIONS, Icon::kSliders},   {ID_MOVE_DATA, Icon::kFolder},
    {ID_BACKUP, Icon::kBackup},     {ID_RESTORE, Icon::kRestore},
    {ID_HELP_JOTLETS, Icon::kHelp}, {ID_EXIT_JOTLETS, Icon::kPower}};

// Between separators, before the entry at `position`.
void InsertCustomEntries(HMENU menu, int position, const std::vector<CustomCommand>& custom) {
  if (custom.empty()) return;
  const auto insert = [&](UINT flags, int id, const Text& text) {
    InsertMenuW(menu, static_cast<UINT>(position++), MF_BYPOSITION | flags, static_cast<UINT_PTR>(id),
                Wide(text));
  };
  insert(MF_SEPARATOR, 0, {});
  for (const CustomCommand& command : custom) insert(MF_STRING, command.menuId, command.caption);
  insert(MF_SEPARATOR, 0, {});
}

}  // namespace

UniqueMenu MakeTrayMenu(const Resources& resources, bool hidden, const std::vector<CustomCommand>& custom) {
  UniqueMenu menu = resources.Menu(IDM_TRAY);
  const Text showOrHide = resources.String(hidden ? IDS_SHOW_ALL : IDS_HIDE_ALL);
  ModifyMenuW(menu.get(), ID_SHOW_OR_HIDE, MF_BYCOMMAND | MF_STRING, ID_SHOW_OR_HIDE, Wide(showOrHide));
  SetMenuIcon(menu.get(), ID_SHOW_OR_HIDE, hidden ? Icon::kEye : Icon::kEyeOff);
  const HMENU entries = GetSubMenu(menu.get(), 0);
  for (const auto& [command, icon] : kTrayIcons) SetMenuIcon(entries, command, icon);
  InsertCustomEntries(entries, GetMenuItemCount(entries) - 1, custom);
  return menu;
}

void ShowHotKeys(HMENU menu, const HotKeys& hotKeys) {
  constexpr std::array<UINT, HotKeys::kCount> kEntries = {
      0, ID_NEW_FROM_CLIPBOARD, ID_SHOW_OR_HIDE, 0, 0, ID_RESCUE};
  for (std::size_t i = 0; i < HotKeys::kCount; ++i) {
    const Text key = hotKeys.Held(i);
    if (kEntries[i] == 0 || key.empty()) continue;
    wchar_t shown[128]{};
    const int length = GetMenuStringW(menu, kEntries[i], shown, 128, MF_BYCOMMAND);
    Text text = Text(FromWide(shown, static_cast<std::size_t>(length))) + u"\t" + key;
    MENUITEMINFOW entry{};
    entry.cbSize = sizeof entry;
    entry.fMask = MIIM_STRING;
    entry.dwTypeData = WideBuffer(text);
    SetMenuItemInfoW(menu, kEntries[i], FALSE, &entry);
  }
}

void ShowPopupMenu(const Theme& theme, HWND owner, HMENU menu) {
  const Point at = MousePosition();
  // Without the first call the menu stays when the user clicks elsewhere, without the last the next one
  // closes at once.
  SetForegroundWindow(owner);
  ShowMenu(theme, GetSubMenu(menu, 0), at, owner);
  PostMessageW(owner, WM_NULL, 0, 0);
}

}  // namespace jotlets
