// Where the manage window stood, kept in the options.
#pragma once

#include <windows.h>

#include "base/geometry.h"
#include "data/options.h"

namespace jotlets {

/// Pixels at 96 dots per inch.
inline constexpr Size kSmallestManageWindow{640, 260};

/// Puts the window where the options say, or where it can be seen.
void RestoreManageWindow(HWND window, const Options& options);
/// Writes its place and whether it is maximised to the options.
void StoreManageWindow(HWND window, Options& options);

}  // namespace jotlets
