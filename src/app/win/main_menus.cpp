#include "app/win/main_menus.h"

#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr UINT kNotYet[] = {ID_MANAGE, ID_FRIENDS, ID_OPTIONS, ID_HELP_JOTLETS};

}  // namespace

UniqueMenu MakeTrayMenu(const Resources& resources, bool hidden) {
  UniqueMenu menu = resources.Menu(IDM_TRAY);
  for (const UINT command : kNotYet) EnableMenuItem(menu.get(), command, MF_BYCOMMAND | MF_GRAYED);
  const Text showOrHide = resources.String(hidden ? IDS_SHOW_ALL : IDS_HIDE_ALL);
  ModifyMenuW(menu.get(), ID_SHOW_OR_HIDE, MF_BYCOMMAND | MF_STRING, ID_SHOW_OR_HIDE, Wide(showOrHide));
  return menu;
}

void ShowPopupMenu(HWND owner, HMENU menu) {
  const Point at = MousePosition();
  // Without the first call the menu stays when the user clicks elsewhere, without the last the next one
  // closes at once.
  SetForegroundWindow(owner);
  TrackPopupMenu(GetSubMenu(menu, 0), TPM_RIGHTBUTTON, at.x, at.y, 0, owner, nullptr);
  PostMessageW(owner, WM_NULL, 0, 0);
}

}  // namespace jotlets
