// A global hot key: what it is made of, how it is shown, and which keys may be one.
#pragma once

#include <cstdint>

#include "base/text.h"

namespace jotlets {

/// Which modifiers, and the virtual-key code; none at all without a code.
struct HotKey {
  bool windowsKey = false;
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
  std::int32_t key = 0;
  friend bool operator==(const HotKey&, const HotKey&) = default;
};

/// In words ("Win+Alt+S"); empty for none. A key that has no name is shown by its number.
Text HotKeyText(const HotKey& hotKey);

/// Whether programs have the key as one of their own, which it would not reach any more: without the Windows
/// key and with no more than one of the others.
bool IsCommonKey(const HotKey& hotKey);

/// What a press means where a hot key is asked for.
enum class HotKeyPress {
  kTake,    // it is the hot key from now on
  kClear,   // there is none from now on
  kIgnore,  // a modifier alone, or a key that all programs would miss while they are typed into
  kPassOn,  // it belongs to the dialog (Tab, Enter, Esc) or the system (Alt+F4)
};
HotKeyPress MeaningOfPress(const HotKey& pressed);

}  // namespace jotlets
