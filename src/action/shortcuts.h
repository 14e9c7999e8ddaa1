// The keys of the note commands, as the keyboard and the menus go by them.
#pragma once

#include "action/actions.h"
#include "base/geometry.h"
#include "base/shortcut.h"
#include "base/text.h"

namespace jotlets {

/// The command of a key in a note; none for keys that belong to the text.
ActionCode ActionFromKey(const Shortcut& pressed);

/// What a key does with note windows, beside the commands: Alt and the arrows move a note, with Shift they
/// move its right and bottom edge; Ctrl+Tab goes to the next note, with Shift to the one before; F6 goes from
/// the text to the buttons of the note and back, with Shift the other way round.
struct WindowKey {
  Point move;
  Size grow;
  int toNote = 0;   // 1: the next in list order, -1: the one before
  int toParts = 0;  // 1: the next group of buttons, -1: the one before
  friend bool operator==(const WindowKey&, const WindowKey&) = default;
};

/// What a key does with note windows; all zero for other keys.
WindowKey WindowKeyFrom(const Shortcut& pressed);

/// How menus show a key, and the key of a command ("Ctrl+Shift+F", "F2"); empty without one.
Text ShortcutText(const Shortcut& keys);
Text ShortcutText(ActionCode action);

}  // namespace jotlets
