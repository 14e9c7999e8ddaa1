#include "ui/dialog.h"

#include "base/beside.h"
#include "ui/dark_dialog.h"
#include "ui/screen.h"
#include "ui/tall_dialog.h"
#include "ui/window.h"

namespace jotlets {

INT_PTR Dialog::Show(const Resources& resources, UINT id, HWND owner) {
  theme_ = &resources.Look();
  return DialogBoxParamW(resources.DialogModule(id), MAKEINTRESOURCEW(id), owner, Procedure,
                         reinterpret_cast<LPARAM>(this));
}

bool Dialog::Open(const Resources& resources, UINT id, HWND parent) {
  modal_ = false;
  cameFrom_ = GetForegroundWindow();
  theme_ = &resources.Look();
  return CreateDialogParamW(resources.DialogModule(id), MAKEINTRESOURCEW(id), parent, Procedure,
                            reinterpret_cast<LPARAM>(this)) != nullptr;
}

// The window that was worked with before has the keyboard again: the system would give it to any of ours.
void Dialog::Close() {
  if (dialog_ == nullptr) return;
  const HWND back = GetForegroundWindow() == dialog_ ? cameFrom_ : nullptr;
  DestroyWindow(dialog_);
  if (back != nullptr && IsWindowVisible(back)) SetForegroundWindow(back);
}

Text Dialog::ItemText(int control) const { return WindowText(Item(control)); }

void PlaceByOwner(HWND dialog) {
  constexpr int kGap = 8;
  const HWND owner = GetWindow(dialog, GW_OWNER);
  if (owner == nullptr || !IsWindowVisible(owner)) return;
  if ((GetWindowLongPtrW(owner, GWL_STYLE) & WS_CAPTION) == WS_CAPTION) return;
  RECT own{};
  RECT other{};
  GetWindowRect(dialog, &own);
  GetWindowRect(owner, &other);
  const Rect bounds = FromRECT(own);
  const Point at = PlaceBeside({bounds.Width(), bounds.Height()}, FromRECT(other), WorkAreaOf(owner),
                               MulDiv(kGap, static_cast<int>(GetDpiForWindow(owner)), 96));
  SetWindowPos(dialog, nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

HBRUSH Dialog::Colours(UINT message, HDC dc, HWND control) {
  const bool isGround =
      message == WM_CTLCOLORDLG || message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN;
  const HBRUSH own = isGround ? OnColours(dc, control) : nullptr;
  if (own != nullptr || !theme_->IsDark()) return own;
  return DarkColours(message, dc, control, *theme_, DarkSurface());
}

INT_PTR CALLBACK Dialog::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  try {
    if (message == WM_INITDIALOG) {
      auto* object = reinterpret_cast<Dialog*>(lParam);
      SetWindowLongPtrW(dialog, DWLP_USER, lParam);
      object->dialog_ = dialog;
      object->OnInit();
      DressDialog(dialog, *object->theme_);
      PlaceByOwner(dialog);
      FitHeight(dialog);
      // The focus that goes with TRUE would activate a window that is to open behind the user's work.
      return object->modal_ ? TRUE : FALSE;
    }
    auto* object = reinterpret_cast<Dialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (object == nullptr) return FALSE;
    if (message == WM_TIMER) object->OnTimer();
    if (message == WM_NOTIFY) object->OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    if (message == WM_DRAWITEM) {
      object->OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    }
    if (message == Theme::kChangedMessage) DressDialog(dialog, *object->theme_);
    if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) {
      const auto control = message == WM_CTLCOLORDLG ? nullptr : reinterpret_cast<HWND>(lParam);
      return reinterpret_cast<INT_PTR>(object->Colours(message, reinterpret_cast<HDC>(wParam), control));
    }
    if (message == WM_NCDESTROY) object->dialog_ = nullptr;
    if (message != WM_COMMAND) {
      const std::optional<LRESULT> answer = object->OnMessage(message, wParam, lParam);
      if (answer) SetWindowLongPtrW(dialog, DWLP_MSGRESULT, *answer);
      return answer ? TRUE : FALSE;
    }
    const UINT control = LOWORD(wParam);
    if (object->OnCommand(control, HIWORD(wParam))) return TRUE;
    if (!object->modal_) return FALSE;
    if (control == IDOK || control == IDCANCEL) object->End(static_cast<INT_PTR>(control));
    return TRUE;
  } catch (...) {
    OutputDebugStringW(L"an exception left a message unserved");
    return FALSE;
  }
}

}  // namespace jotlets
