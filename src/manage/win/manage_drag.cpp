#include "manage/win/manage_drag.h"

#include "ui/window.h"

namespace jotlets {

void ManageDrag::Begin(HWND window, ManageView from) {
  if (from == ManageView::kStacks) return;
  window_ = window;
  from_ = from;
  SetCapture(window);
}

// On the desktop, or on another program's window, they come to lie there.
std::optional<ManageDrag::Target> ManageDrag::UnderMouse() const {
  const POINT mouse{MousePosition().x, MousePosition().y};
  RECT window{};
  if (GetWindowRect(window_, &window) == FALSE) return std::nullopt;
  if (PtInRect(&window, mouse) == FALSE) return Target{};
  const std::optional<ManagePlace> row = views_.PlaceAt(mouse);
  return row && ActionOfDrop(from_, *row) ? std::optional(Target{row}) : std::nullopt;
}

std::optional<ManageDrag::Target> ManageDrag::Follow() const {
  const std::optional<Target> target = UnderMouse();
  SetCursor(LoadCursorW(nullptr, target ? IDC_HAND : IDC_NO));
  views_.ShowTarget(target ? target->row : std::nullopt);
  return target;
}

void ManageDrag::End() {
  if (window_ == nullptr) return;
  window_ = nullptr;
  views_.ShowTarget(std::nullopt);
}

}  // namespace jotlets
