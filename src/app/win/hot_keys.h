// The six global hot keys.
#pragma once

#include <windows.h>

#include <array>

#include "base/log.h"
#include "data/options.h"

namespace jotlets {

inline constexpr int kFirstHotKey = 10;  // the ids are 10 to 15

/// Which of them hold.
using HeldHotKeys = std::array<bool, 6>;

/// Registers them on a window; one that is taken, or has no key, is logged and does no harm.
HeldHotKeys RegisterHotKeys(HWND window, const Options& options, Log& log);
void UnregisterHotKeys(HWND window);
/// How menus show one, as "Win+Alt+S".
Text HotKeyText(const HotKey& hook);

}  // namespace jotlets
