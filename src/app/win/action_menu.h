// Menus of note commands, built from data: the texts are resources, the keys and states come from the same
// rules that the keyboard asks.
#pragma once

#include <windows.h>

#include <span>

#include "note/action_state.h"
#include "ui/resources.h"

namespace jotlets {

/// One entry: a command, a separator (neither command nor entries), or a menu of its own with a text.
struct MenuEntry {
  ActionCode action = kActionNone;
  UINT text = 0;
  std::span<const MenuEntry> entries = {};
};

extern const std::span<const MenuEntry> kJotletMenu;
extern const std::span<const MenuEntry> kTextMenu;

/// Shows a menu at the mouse and waits; the number of the chosen entry, 0 when it was left.
UINT ChooseFromMenu(HMENU menu, HWND owner);

class ActionMenu {
 public:
  ActionMenu(const Resources& resources, std::span<const MenuEntry> entries, const ActionFacts& facts);

  /// Shows the menu at the mouse and waits; the chosen command, none when it was left.
  ActionCode Choose(HWND owner) const;

 private:
  UniqueMenu menu_;
};

}  // namespace jotlets
