#include "app/win/undo_strip.h"

#include <utility>

#include "action/shortcuts.h"
#include "base/beside.h"
#include "base/win/pressed_key.h"
#include "base/win/wide.h"
#include "ui/areas.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

constexpr wchar_t kStripClass[] = L"JotletsUndoStrip";
constexpr UINT_PTR kTimer = 1;
constexpr UINT_PTR kFocusTimer = 2;
constexpr UINT kShown = 7000;  // milliseconds
constexpr UINT kSettling = 100;
constexpr std::int32_t kMargin = 12;
constexpr std::int32_t kGap = 14;
constexpr std::int32_t kFocusInset = 4;

std::int32_t WidthOf(HDC dc, HFONT font, const Text& text) {
  const Selected selected(dc, font);
  SIZE size{};
  GetTextExtentPoint32W(dc, Wide(text), static_cast<int>(text.size()), &size);
  return static_cast<std::int32_t>(size.cx);
}

void Put(HDC dc, HFONT font, Colour colour, RECT area, const Text& text) {
  const Selected selected(dc, font);
  SetTextColor(dc, ToCOLORREF(colour));
  DrawTextW(dc, Wide(text), static_cast<int>(text.size()), &area,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
}

bool NoneIsActive() {
  const HWND active = GetActiveWindow();
  return active == nullptr || !IsWindowVisible(active);
}

}  // namespace

void UndoStrip::Show(const Rect& note, const Text& words, const Text& undo, std::function<void()> clicked,
                     std::function<void()> gone) {
  Close();
  words_ = words;
  undo_ = undo;
  clicked_ = std::move(clicked);
  gone_ = std::move(gone);
  RegisterWindowClass(kStripClass, nullptr, CS_DROPSHADOW);
  // What a screen reader finds there.
  const Text title = words + u" " + undo;
  const bool alone = NoneIsActive();
  const DWORD quiet = alone ? 0 : WS_EX_NOACTIVATE;
  if (!Create(kStripClass, Wide(title), {note.left, note.top, note.left + 1, note.top + 1},
              {WS_POPUP, WS_EX_TOOLWINDOW | quiet | WS_EX_TOPMOST | theme_.LayoutStyle()}))
    return;
  dpi_ = Dpi();
  const Size size = Measure();
  const Rect area = WorkAreaOf(Handle());
  const Point at = PlaceWithin({note.left, note.top}, size, area);
  SetWindowPos(Handle(), HWND_TOPMOST, at.x, at.y, size.width, size.height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
  SetTimer(Handle(), kTimer, kShown, nullptr);
  // The system gives the focus of the note that has gone to another program first.
  if (alone) SetTimer(Handle(), kFocusTimer, kSettling, nullptr);
}

Size UndoStrip::Measure() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi_));
  font_.reset(CreateFontIndirectW(&metrics.lfMessageFont));
  metrics.lfMessageFont.lfUnderline = TRUE;
  link_.reset(CreateFontIndirectW(&metrics.lfMessageFont));
  const HDC dc = GetDC(Handle());
  undoFrom_ = Scaled(kMargin) + WidthOf(dc, font_.get(), words_) + Scaled(kGap);
  const std::int32_t width = undoFrom_ + WidthOf(dc, link_.get(), undo_) + Scaled(kMargin);
  ReleaseDC(Handle(), dc);
  constexpr std::int32_t kHeight = 32;
  return {width, Scaled(kHeight)};
}

void UndoStrip::Close() {
  clicked_ = nullptr;
  gone_ = nullptr;
  Destroy();
}

// Whoever is told may show the next one.
void UndoStrip::End(const std::function<void()>& tell) {
  const std::function<void()> told = tell;
  Close();
  if (told) told();
}

bool UndoStrip::OnKey(WPARAM key) {
  const bool undoes =
      key == VK_RETURN || key == VK_SPACE || ActionFromKey(PressedShortcut(key)) == kActionUndo;
  if (undoes || key == VK_ESCAPE) End(undoes ? clicked_ : gone_);
  return undoes || key == VK_ESCAPE;
}

LRESULT UndoStrip::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    case WM_SETCURSOR:
      SetCursor(LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_HAND)));
      return TRUE;
    case WM_PAINT: Paint(); return 0;
    // Who is about to click has his time.
    case WM_MOUSEMOVE: SetTimer(Handle(), kTimer, kShown, nullptr); return 0;
    case WM_LBUTTONUP: End(clicked_); return 0;
    case WM_KEYDOWN:
      if (OnKey(wParam)) return 0;
      return Default(message, wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS: InvalidateRect(Handle(), nullptr, FALSE); return 0;
    case WM_TIMER:
      if (wParam != kFocusTimer) {
        End(gone_);
        return 0;
      }
      KillTimer(Handle(), kFocusTimer);
      if (NoneIsActive()) SetForegroundWindow(Handle());
      return 0;
    default: return Default(message, wParam, lParam);
  }
}

void UndoStrip::Paint() {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(Handle(), &paint);
  RECT area{};
  GetClientRect(Handle(), &area);
  const WindowColours& colours = theme_.Colours();
  FillArea(dc, area, colours.surface);
  FrameArea(dc, area, colours.edge);
  SetBkMode(dc, TRANSPARENT);
  RECT words = area;
  words.left = Scaled(kMargin);
  Put(dc, font_.get(), colours.text, words, words_);
  words.left = undoFrom_;
  Put(dc, link_.get(), colours.text, words, undo_);
  if (GetFocus() == Handle()) {
    InflateRect(&area, -Scaled(kFocusInset), -Scaled(kFocusInset));
    area.left = undoFrom_ - Scaled(kFocusInset);
    DrawFocusRect(dc, &area);
  }
  EndPaint(Handle(), &paint);
}

}  // namespace jotlets
