// Where the manage window stood, kept in the options.
#pragma once

#include <windows.h>

#include "base/geometry.h"
#include "data/options.h"

namespace jotlets {

/// The least the window is sized to on the monitor it is on, never more than fits there.
Size SmallestManageWindow(HWND window);

/// Puts the window where the options say, or where it can be seen.
void RestoreManageWindow(HWND window, const Options& options);
/// Writes its place and whether it is maximised to the options.
void StoreManageWindow(HWND window, Options& options);

}  // namespace jotlets
