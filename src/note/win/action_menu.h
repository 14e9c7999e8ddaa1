// Menus of note commands, built from their rows: the texts are resources, the keys and states come from the
// same rules that the keyboard asks.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "note/action_state.h"
#include "note/action_table.h"
#include "ui/resources.h"

namespace jotlets {

class BJotlet;

/// A part of a menu that is not the same for every note.
enum class MenuPart {
  kNothing,
  kPastePlain,
  kCheckList,
  kFonts,
  kWebSearch,
  kFile,
  kAttachment,
  kStacks,
  kOfOthers
};

/// An entry that is no action code, such as the name of a stack. It brings along all that it needs to be
/// carried out: while the menu is open, what it was made of may go.
struct ExtraEntry {
  MenuPart part = MenuPart::kNothing;
  Text text;
  std::function<void(BJotlet& jotlet)> run;  // none for a separator
  bool enabled = true;
  bool checked = false;
};

/// What was chosen: at most one of these.
struct MenuChoice {
  ActionCode action = kActionNone;
  const ExtraEntry* extra = nullptr;  // of the menu
};

/// Shows a menu at the mouse, or at its window when the mouse is elsewhere, and waits; the id of the entry
/// chosen, 0 when it was left.
UINT ChooseFromMenu(HMENU menu, HWND owner);

class ActionMenu {
 public:
  ActionMenu(const Resources& resources, NoteMenu which, const ActionFacts& facts,
             std::vector<ExtraEntry> extras);

  /// Shows the menu at the mouse and waits.
  MenuChoice Choose(HWND owner) const;

 private:
  std::vector<ExtraEntry> extras_;
  UniqueMenu menu_;
};

}  // namespace jotlets
