// Menus of note commands, built from data: the texts are resources, the keys and states come from the same
// rules that the keyboard asks.
#pragma once

#include <windows.h>

#include <span>

#include "note/action_state.h"
#include "ui/resources.h"

namespace jotlets {

/// A part of a menu that is not the same for every note.
enum class MenuPart { kNothing, kAttachment, kStacks };

/// One entry: a command, a separator (neither command nor entries), or a menu of its own with a text. A part
/// stands for the `ExtraEntry`s of it, in a menu of their own when there is a text.
struct MenuEntry {
  ActionCode action = kActionNone;
  UINT text = 0;
  std::span<const MenuEntry> entries = {};
  MenuPart part = MenuPart::kNothing;
};

/// An entry that is no action code, such as the name of a stack.
struct ExtraEntry {
  MenuPart part = MenuPart::kNothing;
  UINT id = 0;  // `kFirstExtra` or above; 0 for a separator
  Text text;
  bool enabled = true;
  bool checked = false;
};
inline constexpr UINT kFirstExtra = 1000;

extern const std::span<const MenuEntry> kJotletMenu;
extern const std::span<const MenuEntry> kTextMenu;

/// Shows a menu at the mouse and waits; the number of the chosen entry, 0 when it was left.
UINT ChooseFromMenu(HMENU menu, HWND owner);

class ActionMenu {
 public:
  ActionMenu(const Resources& resources, std::span<const MenuEntry> entries, const ActionFacts& facts,
             std::span<const ExtraEntry> extras);

  /// For what others add to it.
  HMENU Handle() const { return menu_.get(); }

  /// Shows the menu at the mouse and waits; the action code or extra entry chosen, 0 when it was left.
  UINT Choose(HWND owner) const;

 private:
  UniqueMenu menu_;
};

}  // namespace jotlets
