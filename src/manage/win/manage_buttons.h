// The row of buttons below the list of the manage window.
#pragma once

#include <windows.h>

#include <vector>

#include "manage/manage_actions.h"
#include "ui/resources.h"

namespace jotlets {

/// The gap behind each button, in pixels at 96 dots per inch.
inline constexpr int kManageButtonGap = 6;

struct ManageButton {
  int control = 0;
  int width = 0;
};

/// The buttons of what a view offers, from the left. Each is as wide as its words are in any state, and none
/// is narrow; where `room`, gaps included, is too small for that, they share it as their words need it.
std::vector<ManageButton> ButtonsInRow(HWND dialog, const Resources& resources, ManageView view, int room);

}  // namespace jotlets
