#include "ui/dialog.h"

#include <commctrl.h>

#include <iterator>

#include "base/beside.h"
#include "ui/areas.h"
#include "ui/dialog_look.h"
#include "ui/screen.h"
#include "ui/tall_dialog.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at 96 dots per inch.
constexpr int kFootGap = 9;    // above the buttons
constexpr int kRing = 2;       // pixels around a picker that has the keyboard
constexpr int kFootRoom = 20;  // below them, at most

bool IsVisiblePushButton(HWND control) {
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
  const LONG_PTR type = style & BS_TYPEMASK;
  if ((style & WS_VISIBLE) == 0 || (type != BS_PUSHBUTTON && type != BS_DEFPUSHBUTTON)) return false;
  wchar_t name[16] = {};
  GetClassNameW(control, name, static_cast<int>(std::size(name)));
  return lstrcmpiW(name, WC_BUTTONW) == 0;
}

// A list without a frame is no field.
bool IsFramed(HWND list) {
  return (GetWindowLongPtrW(list, GWL_STYLE) & WS_BORDER) != 0 ||
         (GetWindowLongPtrW(list, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
}

// A dialog that is about a note or a stack, which have no caption of the system's, is shown beside it; one
// with another owner stays where it is.
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

}  // namespace

INT_PTR Dialog::Show(const Resources& resources, UINT id, HWND owner) {
  theme_ = &resources.Look();
  const std::vector<std::byte> form = resources.DialogTemplate(id);
  return DialogBoxIndirectParamW(GetModuleHandleW(nullptr), reinterpret_cast<LPCDLGTEMPLATEW>(form.data()),
                                 owner, Procedure, reinterpret_cast<LPARAM>(this));
}

bool Dialog::Open(const Resources& resources, UINT id, HWND parent) {
  modal_ = false;
  cameFrom_ = GetForegroundWindow();
  theme_ = &resources.Look();
  const std::vector<std::byte> form = resources.DialogTemplate(id);
  return CreateDialogIndirectParamW(GetModuleHandleW(nullptr), reinterpret_cast<LPCDLGTEMPLATEW>(form.data()),
                                    parent, Procedure, reinterpret_cast<LPARAM>(this)) != nullptr;
}

// The window that was worked with before has the keyboard again: the system would give it to any of ours.
void Dialog::Close() {
  if (dialog_ == nullptr) return;
  const HWND back = GetForegroundWindow() == dialog_ ? cameFrom_ : nullptr;
  DestroyWindow(dialog_);
  if (back != nullptr && IsWindowVisible(back)) SetForegroundWindow(back);
}

Text Dialog::ItemText(int control) const { return WindowText(Item(control)); }

void Dialog::Notify(const NMHDR& header) {
  const bool focus =
      header.code == static_cast<UINT>(NM_SETFOCUS) || header.code == static_cast<UINT>(NM_KILLFOCUS);
  if (focus && IsDatePicker(header.hwndFrom)) {
    RECT ring = AreaOf(header.hwndFrom);
    InflateRect(&ring, kRing, kRing);
    InvalidateRect(dialog_, &ring, TRUE);
  }
  OnNotify(header);
}

HBRUSH Dialog::Colours(UINT message, HDC dc, HWND control) {
  const bool isGround =
      message == WM_CTLCOLORDLG || message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN;
  const HBRUSH own = isGround ? OnColours(dc, control) : nullptr;
  if (own != nullptr) return own;
  const WindowColours& colours = theme_->Colours();
  if (message == WM_CTLCOLORLISTBOX && !IsFramed(control))
    return ControlColours(WM_CTLCOLORSTATIC, dc, control, *theme_, colours.views);
  const bool inFoot = control != nullptr && IsInFoot(control);
  return ControlColours(message, dc, control, *theme_, inFoot ? colours.foot : Surface());
}

std::optional<LONG> Dialog::FootTop() const {
  if ((GetWindowLongPtrW(dialog_, GWL_STYLE) & WS_CHILD) != 0) return std::nullopt;
  RECT client{};
  GetClientRect(dialog_, &client);
  const int dpi = static_cast<int>(GetDpiForWindow(dialog_));
  for (HWND child = GetWindow(dialog_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsVisiblePushButton(child)) continue;
    const RECT area = AreaOf(child);
    if (area.bottom + MulDiv(kFootRoom, dpi, 96) >= client.bottom)
      return area.top - MulDiv(kFootGap, dpi, 96);
  }
  return std::nullopt;
}

bool Dialog::IsInFoot(HWND control) const {
  const std::optional<LONG> foot = FootTop();
  return foot && AreaOf(control).top >= *foot;
}

RECT Dialog::AreaOf(HWND control) const {
  RECT area{};
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

void Dialog::DrawRing(HDC dc) const {
  const HWND focus = GetFocus();
  if (focus == nullptr || GetParent(focus) != dialog_ || !IsDatePicker(focus)) return;
  RECT ring = AreaOf(focus);
  for (int i = 0; i < kRing; ++i) {
    InflateRect(&ring, 1, 1);
    FrameArea(dc, ring, theme_->Colours().accent);
  }
}

bool Dialog::Erase(HDC dc) {
  const HBRUSH brush = Colours(WM_CTLCOLORDLG, dc, nullptr);
  if (brush == nullptr) return false;
  RECT area{};
  GetClientRect(dialog_, &area);
  FillRect(dc, &area, brush);
  DrawRing(dc);
  const std::optional<LONG> foot = FootTop();
  if (!foot) return true;
  area.top = *foot;
  FillArea(dc, area, theme_->Colours().foot);
  area.bottom = area.top + 1;
  FillArea(dc, area, theme_->Colours().line);
  return true;
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
      // The focus that goes with TRUE would activate a window that is to open behind the user's work, and
      // would be taken from a control that has been given it.
      return object->modal_ && !IsChild(dialog, GetFocus()) ? TRUE : FALSE;
    }
    auto* object = reinterpret_cast<Dialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (object == nullptr) return FALSE;
    if (message == WM_TIMER) object->OnTimer();
    if (message == WM_NOTIFY) object->Notify(*reinterpret_cast<const NMHDR*>(lParam));
    if (message == WM_DRAWITEM) {
      object->OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    }
    if (message == Theme::kChangedMessage) DressDialog(dialog, *object->theme_);
    if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) {
      const auto control = message == WM_CTLCOLORDLG ? nullptr : reinterpret_cast<HWND>(lParam);
      return reinterpret_cast<INT_PTR>(object->Colours(message, reinterpret_cast<HDC>(wParam), control));
    }
    if (message == WM_ERASEBKGND && object->Erase(reinterpret_cast<HDC>(wParam))) {
      SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
      return TRUE;
    }
    // The ground of the buttons moves with them.
    if (message == WM_SIZE) InvalidateRect(dialog, nullptr, TRUE);
    if (message == WM_NCDESTROY) object->dialog_ = nullptr;
    if (message != WM_COMMAND) {
      const std::optional<LRESULT> answer = object->OnMessage(message, wParam, lParam);
      if (answer) SetWindowLongPtrW(dialog, DWLP_MSGRESULT, *answer);
      return answer ? TRUE : FALSE;
    }
    const UINT control = LOWORD(wParam);
    // Enter asks for the default button, be it grey or not.
    if (control == IDOK && object->Item(IDOK) != nullptr && !IsWindowEnabled(object->Item(IDOK))) return TRUE;
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
