// The controls of dialogs that the system draws light only, drawn by the program where all is dark. What they
// do stays the system's.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "ui/theme.h"

namespace jotlets {

enum class DressedControl : std::uint8_t {
  kButton,
  kGroup,  // in the light, too: its head stands on the surface
  kComboBox,
  kTabs,
  kHeader,
  kUpDown,
  kFramed,  // only its frame is ours
  kOther,
};

/// Serves a message of a control; nothing for one that is the system's.
std::optional<LRESULT> ServeDarkControl(DressedControl kind, HWND control, UINT message, WPARAM wParam,
                                        LPARAM lParam, const Theme& theme);

}  // namespace jotlets
