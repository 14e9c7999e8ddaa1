#include "ui/dark_controls.h"

#include <commctrl.h>

#include "ui/areas.h"
#include "ui/dark_drawing.h"

namespace jotlets {
namespace {

// What changes the look of a button or a list that drops down: the system draws it at once, past WM_PAINT.
bool ChangesLook(UINT message) {
  switch (message) {
    case BM_SETSTATE:
    case BM_SETCHECK:
    case BM_SETSTYLE:
    case WM_ENABLE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_SETTEXT:
    case WM_UPDATEUISTATE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_MOUSELEAVE:
    case CB_SETCURSEL:
    case CB_SHOWDROPDOWN: return true;
    default: return false;
  }
}

LRESULT DefaultThenPaint(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT answer = DefSubclassProc(control, message, wParam, lParam);
  // The press of a button may have ended its dialog.
  if (IsWindow(control)) RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  return answer;
}

bool IsDrawnByOwner(DressedControl kind, HWND control) {
  return kind == DressedControl::kButton &&
         (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_OWNERDRAW;
}

void PaintKind(DressedControl kind, const DarkPicture& picture) {
  switch (kind) {
    case DressedControl::kButton:
    case DressedControl::kGroup: return DrawDarkButton(picture);
    case DressedControl::kComboBox: return DrawDarkComboBox(picture);
    case DressedControl::kTabs: return DrawDarkTabs(picture);
    case DressedControl::kHeader: return DrawDarkHeader(picture);
    case DressedControl::kUpDown: return DrawDarkUpDown(picture);
    default: return;
  }
}

// The field of a list that one can type into draws itself.
void ExcludeField(HWND control, HDC dc) {
  const HWND field = GetWindow(control, GW_CHILD);
  if (field == nullptr || IsWindowVisible(field) == 0) return;
  RECT area{};
  GetWindowRect(field, &area);
  MapWindowPoints(nullptr, control, reinterpret_cast<POINT*>(&area), 2);
  ExcludeClipRect(dc, area.left, area.top, area.right, area.bottom);
}

// Drawn whole, then shown: nothing flickers. What lies inside a group is not its own.
void Paint(DressedControl kind, HWND control, const Theme& theme) {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(control, &paint);
  RECT area{};
  GetClientRect(control, &area);
  const HFONT font = FontOf(control);
  const UniqueDc memory(CreateCompatibleDC(dc));
  const UniqueBitmap bitmap(CreateCompatibleBitmap(dc, area.right, area.bottom));
  // Of a mirrored picture some systems show the mirror image.
  const bool mirrored = (GetLayout(dc) & LAYOUT_RTL) != 0;
  if (kind == DressedControl::kGroup || mirrored) {
    if (kind != DressedControl::kGroup) ExcludeField(control, dc);
    const Selected selected(dc, font);
    SetBkMode(dc, TRANSPARENT);
    PaintKind(kind, {control, dc, area, theme.Colours()});
  } else if (memory && bitmap) {
    const Selected surface(memory.get(), bitmap.get());
    const Selected selected(memory.get(), font);
    SetBkMode(memory.get(), TRANSPARENT);
    PaintKind(kind, {control, memory.get(), area, theme.Colours()});
    ExcludeField(control, dc);
    BitBlt(dc, 0, 0, area.right, area.bottom, memory.get(), 0, 0, SRCCOPY);
  }
  EndPaint(control, &paint);
}

// The frame lies outside of the client area, which begins where the system's frame ends.
LRESULT PaintFrame(HWND control, UINT message, WPARAM wParam, LPARAM lParam, const Theme& theme) {
  const LRESULT answer = DefSubclassProc(control, message, wParam, lParam);
  const bool sunken = (GetWindowLongPtrW(control, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
  const bool bordered = (GetWindowLongPtrW(control, GWL_STYLE) & WS_BORDER) != 0;
  if (!sunken && !bordered) return answer;
  const HDC dc = GetWindowDC(control);
  RECT frame{};
  GetWindowRect(control, &frame);
  OffsetRect(&frame, -frame.left, -frame.top);
  FrameArea(dc, frame, GetFocus() == control ? theme.Colours().accent : theme.Colours().edge);
  InflateRect(&frame, -1, -1);
  if (sunken) FrameArea(dc, frame, theme.Colours().field);
  ReleaseDC(control, dc);
  return answer;
}

}  // namespace

std::optional<LRESULT> ServeDarkControl(DressedControl kind, HWND control, UINT message, WPARAM wParam,
                                        LPARAM lParam, const Theme& theme) {
  if (kind == DressedControl::kOther || IsDrawnByOwner(kind, control)) return std::nullopt;
  if (kind == DressedControl::kFramed && (message == WM_SETFOCUS || message == WM_KILLFOCUS)) {
    const LRESULT answer = DefSubclassProc(control, message, wParam, lParam);
    // A list without rows draws nothing over what was not erased.
    RedrawWindow(control, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_ERASE);
    return answer;
  }
  if (kind == DressedControl::kFramed)
    return message == WM_NCPAINT ? std::optional(PaintFrame(control, message, wParam, lParam, theme))
                                 : std::nullopt;
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_PAINT && wParam == 0) return Paint(kind, control, theme), 0;
  const bool drawsAtOnce = kind == DressedControl::kButton || kind == DressedControl::kComboBox;
  if (drawsAtOnce && ChangesLook(message)) return DefaultThenPaint(control, message, wParam, lParam);
  return std::nullopt;
}

}  // namespace jotlets
