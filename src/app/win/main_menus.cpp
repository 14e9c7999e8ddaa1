#include "app/win/main_menus.h"

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {
namespace {

constexpr UINT kNotYet[] = {ID_IMPORT, ID_MANAGE, ID_FRIENDS, ID_OPTIONS, ID_HELP_JOTLETS};

UINT Track(HWND owner, HMENU menu, UINT flags) {
  POINT at{};
  GetCursorPos(&at);
  // Without the first call the menu stays when the user clicks elsewhere, without the second the next one
  // closes at once.
  SetForegroundWindow(owner);
  const BOOL chosen =
      TrackPopupMenu(GetSubMenu(menu, 0), TPM_RIGHTBUTTON | flags, at.x, at.y, 0, owner, nullptr);
  PostMessageW(owner, WM_NULL, 0, 0);
  return static_cast<UINT>(chosen);
}

}  // namespace

UniqueMenu MakeTrayMenu(const Resources& resources, bool hidden) {
  UniqueMenu menu = resources.Menu(IDM_TRAY);
  for (const UINT command : kNotYet) EnableMenuItem(menu.get(), command, MF_BYCOMMAND | MF_GRAYED);
  const Text showOrHide = resources.String(hidden ? IDS_SHOW_ALL : IDS_HIDE_ALL);
  ModifyMenuW(menu.get(), ID_SHOW_OR_HIDE, MF_BYCOMMAND | MF_STRING, ID_SHOW_OR_HIDE, Wide(showOrHide));
  return menu;
}

UniqueMenu MakeJotletMenu(const Resources& resources, const JotletMenu& state) {
  UniqueMenu menu = resources.Menu(IDM_JOTLET);
  const auto check = [&menu](UINT command, bool on) {
    CheckMenuItem(menu.get(), command, MF_BYCOMMAND | (on ? MF_CHECKED : MF_UNCHECKED));
  };
  check(ID_JOTLET_ROLL, state.rolled);
  check(ID_JOTLET_ON_TOP, state.onTop);
  check(ID_JOTLET_LOCK, state.readOnly);
  if (!state.maySetSkin) EnableMenuItem(menu.get(), ID_JOTLET_SKIN, MF_BYCOMMAND | MF_GRAYED);
  return menu;
}

ActionCode ActionOf(UINT command) {
  switch (command) {
    case ID_JOTLET_ROLL: return kActionRoll;
    case ID_JOTLET_ON_TOP: return kActionOnTop;
    case ID_JOTLET_LOCK: return kActionLock;
    case ID_JOTLET_SKIN: return kActionSetSkin;
    default: return kActionNone;
  }
}

void ShowPopupMenu(HWND owner, HMENU menu) { Track(owner, menu, 0); }

UINT ChooseFromMenu(HWND owner, HMENU menu) { return Track(owner, menu, TPM_RETURNCMD); }

}  // namespace jotlets
