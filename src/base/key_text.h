// Keys in words, as menus, lists and fields show them.
#pragma once

#include <cstdint>

#include "base/text.h"

namespace jotlets {

/// What is held while a key is pressed.
struct KeyModifiers {
  bool windows = false;
  bool ctrl = false;
  bool alt = false;
  bool shift = false;
};

/// A key with its modifiers in words ("Ctrl+Shift+F", "Win+Alt+S", "F2"). `key` is a virtual-key code of the
/// platform; the text is empty for one that has no name here.
Text KeyText(const KeyModifiers& held, std::int32_t key);

}  // namespace jotlets
