// The six global hot keys.
#pragma once

#include <windows.h>

#include <array>

#include "base/log.h"
#include "data/options.h"

namespace jotlets {

inline constexpr int kFirstHotKey = 10;  // the ids are 10 to 15

/// Registers them on a window; one that is taken, or has no key, is logged and does no harm.
void RegisterHotKeys(HWND window, const Options& options, Log& log);
void UnregisterHotKeys(HWND window);

}  // namespace jotlets
