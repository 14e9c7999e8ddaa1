#include "manage/win/manage_buttons.h"

#include <algorithm>

#include "base/win/wide.h"
#include "manage/undo_steps.h"
#include "res/resource.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at 96 dots per inch.
constexpr int kUsualWidth = 98;
constexpr int kPadding = 20;

int WidthOf(HDC dc, const Text& words) {
  RECT area{};
  DrawTextW(dc, Wide(words), static_cast<int>(words.size()), &area, DT_SINGLELINE | DT_CALCRECT);
  return static_cast<int>(area.right);
}

// What is undone changes, the places of the buttons do not.
int WidthOfWords(HDC dc, HWND dialog, const Resources& resources, ManageAction action) {
  const int control = IDC_MANAGE_ACTION + static_cast<int>(action);
  int width = WidthOf(dc, WindowText(GetDlgItem(dialog, control)));
  if (action == ManageAction::kUndo)
    for (UINT undo = IDS_MANAGE_UNDO; undo < IDS_MANAGE_UNDO + kUndoKinds; ++undo)
      width = std::max(width, WidthOf(dc, resources.String(undo)));
  return width;
}

}  // namespace

std::vector<ManageButton> ButtonsInRow(HWND dialog, const Resources& resources, ManageView view, int room) {
  const auto scaled = [dpi = static_cast<int>(GetDpiForWindow(dialog))](int length) {
    return MulDiv(length, dpi, 96);
  };
  std::vector<ManageButton> buttons;
  int needed = 0;
  int wished = 0;
  const HDC dc = GetDC(dialog);
  {
    const Selected font(dc, FontOf(dialog));
    for (std::size_t i = 0; i < kManageActions; ++i) {
      const auto action = static_cast<ManageAction>(i);
      if (!Offers(view, action)) continue;
      const int width = WidthOfWords(dc, dialog, resources, action) + scaled(kPadding);
      buttons.push_back({IDC_MANAGE_ACTION + static_cast<int>(i), width});
      needed += width;
      wished += std::max(width, scaled(kUsualWidth));
    }
  }
  ReleaseDC(dialog, dc);
  room = std::max(room - static_cast<int>(buttons.size()) * scaled(kManageButtonGap), 0);
  for (ManageButton& button : buttons)
    button.width =
        wished > room ? MulDiv(button.width, room, needed) : std::max(button.width, scaled(kUsualWidth));
  return buttons;
}

}  // namespace jotlets
