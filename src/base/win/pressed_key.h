// The key of a message that is being served, with what is held beside it.
#pragma once

#include <windows.h>

#include "base/shortcut.h"

namespace jotlets {

/// The virtual-key code of a key message, with the modifiers that were held as it was sent.
inline Shortcut PressedShortcut(WPARAM key) {
  const auto isHeld = [](int modifier) { return GetKeyState(modifier) < 0; };
  return {static_cast<std::uint16_t>(key), isHeld(VK_CONTROL), isHeld(VK_SHIFT), isHeld(VK_MENU)};
}

}  // namespace jotlets
