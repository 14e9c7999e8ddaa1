// Menus of note commands, built from their rows: the texts are resources, the keys and states come from the
// same rules that the keyboard asks.
#pragma once

#include <windows.h>

#include <span>

#include "note/action_state.h"
#include "note/action_table.h"
#include "ui/resources.h"

namespace jotlets {

/// A part of a menu that is not the same for every note.
enum class MenuPart { kNothing, kAttachment, kStacks };

/// An entry that is no action code, such as the name of a stack.
struct ExtraEntry {
  MenuPart part = MenuPart::kNothing;
  UINT id = 0;  // `kFirstExtra` or above; 0 for a separator
  Text text;
  bool enabled = true;
  bool checked = false;
};
inline constexpr UINT kFirstExtra = 1000;

/// Shows a menu at the mouse and waits; the number of the chosen entry, 0 when it was left.
UINT ChooseFromMenu(HMENU menu, HWND owner);

class ActionMenu {
 public:
  ActionMenu(const Resources& resources, NoteMenu which, const ActionFacts& facts,
             std::span<const ExtraEntry> extras);

  /// For what others add to it.
  HMENU Handle() const { return menu_.get(); }

  /// Shows the menu at the mouse and waits; the action code or extra entry chosen, 0 when it was left.
  UINT Choose(HWND owner) const;

 private:
  UniqueMenu menu_;
};

}  // namespace jotlets
