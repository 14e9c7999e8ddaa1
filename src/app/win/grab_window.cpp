#include "app/win/grab_window.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/win/wide.h"
#include "picture/grab_area.h"
#include "picture/win/screen_grab.h"
#include "ui/areas.h"
#include "ui/compositor.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

constexpr wchar_t kGrabClass[] = L"JotletsGrab";
constexpr UINT kDelay = 3000;    // milliseconds, in which a menu can be opened
constexpr UINT kSettling = 200;  // in which one has faded out
constexpr Colour kGreen{40, 220, 60};
// At the usual scale.
constexpr int kGlass = 132;  // a side of the magnifying glass
constexpr int kZoom = 6;     // how much larger it shows what is under the pointer
constexpr int kGlassGap = 24;
constexpr int kLine = 2;
constexpr int kWordsHeight = 22;

// The desktop itself, below all windows.
bool IsDesktop(HWND window) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return window == GetShellWindow() || lstrcmpW(name, L"WorkerW") == 0;
}

// What a click can take: windows that are seen, the topmost first, as large as they look. Those that let the
// mouse through, shadows among them, are none.
BOOL CALLBACK CollectWindow(HWND window, LPARAM to) {
  const bool through = (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TRANSPARENT) != 0;
  if (IsWindowVisible(window) == 0 || IsIconic(window) != 0 || through || IsDesktop(window)) return TRUE;
  if (IsCloaked(window)) return TRUE;
  const RECT bounds = SeenBounds(window);
  if (bounds.right > bounds.left && bounds.bottom > bounds.top)
    reinterpret_cast<std::vector<Rect>*>(to)->push_back(FromRECT(bounds));
  return TRUE;
}

BOOL CALLBACK CollectMonitor(HMONITOR, HDC, RECT* bounds, LPARAM to) {
  reinterpret_cast<std::vector<Rect>*>(to)->push_back(FromRECT(*bounds));
  return TRUE;
}

Rect Moved(const Rect& area, Point by) {
  return {area.left + by.x, area.top + by.y, area.right + by.x, area.bottom + by.y};
}

}  // namespace

void GrabWindow::Choose(const Text& title, bool green, Chosen chosen) {
  title_ = title;
  green_ = green;
  takesAll_ = false;
  chosen_ = std::move(chosen);
  Begin(kSettling);
}

void GrabWindow::GrabAll(Chosen chosen) {
  takesAll_ = true;
  chosen_ = std::move(chosen);
  Begin(kSettling);
}

void GrabWindow::Begin(UINT delay) {
  RegisterWindowClass(kGrabClass);
  const WindowStyle style{WS_POPUP, WS_EX_TOOLWINDOW | WS_EX_TOPMOST};
  if (Handle() == nullptr && !Create(kGrabClass, Wide(title_), {}, style)) return Tell({}, false);
  ShowWindow(Handle(), SW_HIDE);
  SetTimer(Handle(), kDelayTimer, delay, nullptr);
}

void GrabWindow::Take() {
  screen_ = VirtualScreen();
  grabbed_ = GrabScreen(screen_);
  const Rect all = WholeOf({screen_.Width(), screen_.Height()});
  if (!grabbed_.bitmap) return Tell({}, false);
  if (takesAll_) return Tell(PartOfGrab(grabbed_, {screen_.Width(), screen_.Height()}, all), false);
  Darken();
  windows_.clear();
  monitors_.clear();
  EnumWindows(CollectWindow, reinterpret_cast<LPARAM>(&windows_));
  EnumDisplayMonitors(nullptr, nullptr, CollectMonitor, reinterpret_cast<LPARAM>(&monitors_));
  for (std::vector<Rect>* areas : {&windows_, &monitors_})
    for (Rect& area : *areas) area = Moved(area, {-screen_.left, -screen_.top});
  from_.reset();
  const Point mouse = MousePosition();
  at_ = {mouse.x - screen_.left, mouse.y - screen_.top};
  Show();
}

void GrabWindow::Show() {
  SetWindowTextW(Handle(), Wide(title_));
  font_.reset(CreateFontW(-Scaled(12), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                          CLEARTYPE_QUALITY, 0, L"Segoe UI"));
  SetWindowPos(Handle(), HWND_TOPMOST, screen_.left, screen_.top, screen_.Width(), screen_.Height(),
               SWP_SHOWWINDOW);
  // Another program may have been worked with meanwhile, whose thread alone may give the keyboard away.
  const DWORD front = GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
  const bool attached = front != GetCurrentThreadId() && AttachThreadInput(GetCurrentThreadId(), front, TRUE);
  SetForegroundWindow(Handle());
  if (attached) AttachThreadInput(GetCurrentThreadId(), front, FALSE);
}

void GrabWindow::Darken() {
  constexpr int kLeft = 150;  // of 256
  dark_ = MakePixelBitmap({screen_.Width(), screen_.Height()});
  if (!dark_.bitmap) return;
  const std::size_t bytes =
      static_cast<std::size_t>(screen_.Width()) * static_cast<std::size_t>(screen_.Height()) * 4;
  std::transform(grabbed_.pixels, grabbed_.pixels + bytes, dark_.pixels,
                 [](std::uint8_t value) { return static_cast<std::uint8_t>(value * kLeft / 256); });
}

Rect GrabWindow::Area() const {
  return GrabbedArea(from_.value_or(at_), at_, windows_, monitors_,
                     WholeOf({screen_.Width(), screen_.Height()}));
}

// With its frame and the words above or in it.
Rect GrabWindow::Shown(const Rect& area) const {
  const std::int32_t edge = Scaled(kWordsHeight + kLine);
  return {area.left - edge, area.top - edge, std::max(area.right, area.left + Scaled(kGlass)) + edge,
          area.bottom + edge};
}

Rect GrabWindow::GlassPlace() const {
  const std::int32_t side = Scaled(kGlass);
  const auto on =
      std::ranges::find_if(monitors_, [this](const Rect& monitor) { return monitor.Contains(at_); });
  const Rect area = on == monitors_.end() ? WholeOf({screen_.Width(), screen_.Height()}) : *on;
  return RectAt(PlaceBesidePointer(at_, {side, side}, Scaled(kGlassGap), area), {side, side});
}

void GrabWindow::MoveTo(Point at) {
  if (at == at_) return;
  const auto invalidate = [this] {
    for (const Rect& area : {Shown(Area()), GlassPlace()}) {
      const RECT changed = ToRECT(area);
      InvalidateRect(Handle(), &changed, FALSE);
    }
  };
  invalidate();
  at_ = at;
  invalidate();
}

void GrabWindow::Press(Point at) {
  MoveTo(at);
  from_ = at;
}

void GrabWindow::Finish() {
  const bool toClipboard = GetKeyState(VK_CONTROL) < 0;
  Tell(PartOfGrab(grabbed_, {screen_.Width(), screen_.Height()}, Area()), toClipboard);
}

void GrabWindow::Close() {
  Destroy();
  grabbed_ = {};
  dark_ = {};
  chosen_ = nullptr;
}

// Whoever is told may choose again.
void GrabWindow::Tell(const Picture& picture, bool toClipboard) {
  const Chosen chosen = std::exchange(chosen_, nullptr);
  Close();
  if (chosen) chosen(picture, toClipboard);
}

bool GrabWindow::OnKey(WPARAM key) {
  const int step = GetKeyState(VK_SHIFT) < 0 ? 10 : 1;
  // The next key may come before the message of the mouse does.
  const auto move = [&](int x, int y) {
    MoveTo({std::clamp(at_.x + x * step, 0, screen_.Width() - 1),
            std::clamp(at_.y + y * step, 0, screen_.Height() - 1)});
    SetCursorPos(at_.x + screen_.left, at_.y + screen_.top);
    const Rect area = Area();
    SetWindowTextW(Handle(),
                   Wide(title_ + u", " + IntText(area.Width()) + u" \u00D7 " + IntText(area.Height())));
    return true;
  };
  switch (key) {
    case VK_LEFT: return move(-1, 0);
    case VK_RIGHT: return move(1, 0);
    case VK_UP: return move(0, -1);
    case VK_DOWN: return move(0, 1);
    case VK_SPACE:
      from_.reset();
      Finish();
      return true;
    case VK_RETURN:
      // The first one begins the area, the second ends it.
      from_ ? Finish() : Press(at_);
      return true;
    case 'D': Begin(kDelay); return true;
    case VK_ESCAPE: Close(); return true;
    default: return false;
  }
}

LRESULT GrabWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const Point at = PointOf(lParam);
  switch (message) {
    case WM_SETCURSOR:
      SetCursor(LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_CROSS)));
      return TRUE;
    case WM_PAINT: Paint(); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_MOUSEMOVE: MoveTo(at); return 0;
    case WM_LBUTTONDOWN:
      Press(at);
      SetCapture(Handle());
      return 0;
    case WM_LBUTTONUP:
      MoveTo(at);
      if (from_) Finish();
      return 0;
    // The mouse was taken away in the middle of a drag.
    case WM_CAPTURECHANGED: from_.reset(); return 0;
    case WM_RBUTTONUP: Close(); return 0;
    case WM_KEYDOWN:
      // Held down it would begin and end the area at once.
      if (wParam == VK_RETURN && (HIWORD(lParam) & KF_REPEAT) != 0) return 0;
      if (OnKey(wParam)) return 0;
      return Default(message, wParam, lParam);
    case WM_TIMER:
      KillTimer(Handle(), kDelayTimer);
      Take();
      return 0;
    // Another window is worked with: the picture is no longer what is wanted.
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE && IsWindowVisible(Handle())) Close();
      return 0;
    default: return Default(message, wParam, lParam);
  }
}

void GrabWindow::Paint() {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(Handle(), &paint);
  const RECT& part = paint.rcPaint;
  const UniqueDc memory(CreateCompatibleDC(dc));
  const Colour ink = green_ ? kGreen : theme_.Colours().accent;
  const Rect area = Area();
  // The glass and the frame are drawn over the picture, in one go.
  const UniqueDc buffer(CreateCompatibleDC(dc));
  const UniqueBitmap drawn(CreateCompatibleBitmap(dc, part.right - part.left, part.bottom - part.top));
  const Selected target(buffer.get(), drawn.get());
  SetViewportOrgEx(buffer.get(), -part.left, -part.top, nullptr);
  {
    const Selected dark(memory.get(), dark_.bitmap.get());
    BitBlt(buffer.get(), part.left, part.top, part.right - part.left, part.bottom - part.top, memory.get(),
           part.left, part.top, SRCCOPY);
  }
  const Selected bright(memory.get(), grabbed_.bitmap.get());
  BitBlt(buffer.get(), area.left, area.top, area.Width(), area.Height(), memory.get(), area.left, area.top,
         SRCCOPY);
  RECT frame = ToRECT(area);
  for (int line = 0; line < Scaled(kLine); ++line) {
    FrameArea(buffer.get(), frame, ink);
    InflateRect(&frame, 1, 1);
  }
  // Above the area, or in it where that is the edge of the screen.
  const std::int32_t height = Scaled(kWordsHeight);
  RECT words{area.left, area.top - height - Scaled(kLine), area.left + Scaled(kGlass),
             area.top - Scaled(kLine)};
  if (words.top < 0) OffsetRect(&words, 0, -words.top);
  const Text size = IntText(area.Width()) + u" \u00D7 " + IntText(area.Height());
  FillArea(buffer.get(), words, {32, 32, 36});
  const Selected font(buffer.get(), font_.get());
  SetBkMode(buffer.get(), TRANSPARENT);
  SetTextColor(buffer.get(), RGB(255, 255, 255));
  DrawTextW(buffer.get(), Wide(size), static_cast<int>(size.size()), &words,
            DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
  DrawGlass(buffer.get(), memory.get());
  SetViewportOrgEx(buffer.get(), 0, 0, nullptr);
  BitBlt(dc, part.left, part.top, part.right - part.left, part.bottom - part.top, buffer.get(), 0, 0,
         SRCCOPY);
  EndPaint(Handle(), &paint);
}

// What is under the pointer, large, its own pixel framed.
void GrabWindow::DrawGlass(HDC dc, HDC grabbed) const {
  const Rect place = GlassPlace();
  const int zoom = Scaled(kZoom);
  const int pixels = place.Width() / zoom;
  RECT edge = ToRECT(place);
  FillArea(dc, edge, {32, 32, 36});
  SetStretchBltMode(dc, COLORONCOLOR);
  StretchBlt(dc, place.left, place.top, pixels * zoom, pixels * zoom, grabbed, at_.x - pixels / 2,
             at_.y - pixels / 2, pixels, pixels, SRCCOPY);
  FrameArea(dc, edge, {255, 255, 255});
  RECT middle{place.left + pixels / 2 * zoom, place.top + pixels / 2 * zoom, 0, 0};
  middle.right = middle.left + zoom;
  middle.bottom = middle.top + zoom;
  InflateRect(&middle, 1, 1);
  FrameArea(dc, middle, {255, 255, 255});
  InflateRect(&middle, 1, 1);
  FrameArea(dc, middle, {0, 0, 0});
}

}  // namespace jotlets
