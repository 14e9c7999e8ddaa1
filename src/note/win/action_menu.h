// Menus of a note, built from their rows: the texts are resources, the keys and states come from the same
// rules that the keyboard asks.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "action/action_state.h"
#include "action/note_menus.h"
#include "ui/handle.h"
#include "ui/resources.h"
#include "ui/swatch_row.h"

namespace jotlets {

class BJotlet;

/// An entry that is no command. It brings along all that it needs to be carried out: while the menu is open,
/// what it was made of may go.
struct ExtraEntry {
  MenuPart part = MenuPart::kNothing;
  Text text;  // behind a Tab when the part has a text of its own
  std::function<void(BJotlet& jotlet)> run;
  bool enabled = true;
  bool checked = false;
};

/// Colours to choose from in one entry.
struct ColourEntry {
  MenuPart part = MenuPart::kNothing;
  Text caption;  // for who cannot see them
  std::vector<Swatch> swatches;
  std::optional<std::size_t> current;
  std::function<void(BJotlet& jotlet, std::size_t index)> run;
  bool enabled = true;
};

/// What a menu has beside commands.
struct MenuExtras {
  std::vector<ExtraEntry> entries;
  std::vector<ColourEntry> colours;
  std::vector<UniqueBitmap> styles;  // what each saved text style looks like
};

class ActionMenu {
 public:
  ActionMenu(const Resources& resources, NoteMenu which, const ActionFacts& facts, MenuExtras extras);

  /// Shows the menu at a point of the screen and waits; what is to be done, nothing when it was left.
  std::function<void(BJotlet& jotlet)> Choose(HWND owner, Point at) const;

 private:
  const Theme& theme_;
  MenuExtras extras_;
  std::vector<std::unique_ptr<SwatchRow>> rows_;  // of the colours, one for each
  UniqueMenu menu_;
};

}  // namespace jotlets
