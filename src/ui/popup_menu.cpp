#include "ui/popup_menu.h"

#include "ui/drawn_menu.h"
#include "ui/swatch_tracking.h"

namespace jotlets {
namespace {

bool HasCommand(HMENU menu, UINT command) {
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    MENUITEMINFOW entry{};
    entry.cbSize = sizeof entry;
    entry.fMask = MIIM_ID | MIIM_SUBMENU | MIIM_FTYPE;
    if (!GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &entry)) continue;
    if (entry.hSubMenu != nullptr) {
      if (HasCommand(entry.hSubMenu, command)) return true;
    } else if (entry.wID == command && (entry.fType & MFT_SEPARATOR) == 0) {
      return true;
    }
  }
  return false;
}

UINT FlagsOf(const Theme& theme) {
  return TPM_RIGHTBUTTON | (theme.IsRightToLeft() ? UINT{TPM_LAYOUTRTL} : 0u);
}

}  // namespace

UINT ChooseFromMenu(const Theme& theme, HMENU menu, Point at, HWND owner, std::span<SwatchRow* const> rows) {
  const SwatchTracking tracking(owner, rows, theme);
  const DrawnMenu drawn(menu, owner, theme);
  const auto chosen =
      static_cast<UINT>(TrackPopupMenu(menu, FlagsOf(theme) | TPM_RETURNCMD, at.x, at.y, 0, owner, nullptr));
  return HasCommand(menu, chosen) ? chosen : 0;
}

void ShowMenu(const Theme& theme, HMENU menu, Point at, HWND owner) {
  const DrawnMenu drawn(menu, owner, theme);
  TrackPopupMenu(menu, FlagsOf(theme), at.x, at.y, 0, owner, nullptr);
}

}  // namespace jotlets
