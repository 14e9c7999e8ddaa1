#include "schedule/win/foreign_windows.h"

#include "base/win/wide.h"
#include "ui/compositor.h"
#include "ui/window.h"

namespace jotlets {
namespace {

bool IsOurs(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process == GetCurrentProcessId();
}

template <typename Read>
Text ReadText(HWND window, Read read) {
  Text text(kMaxWindowText + 1, u'\0');
  const int length = read(window, WideBuffer(text), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length > 0 ? length : 0));
  return text;
}

// Where a minimised window would come back to. The system tells it as seen from the work area.
Rect RestoredBounds(HWND window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  if (!GetWindowPlacement(window, &placement)) return {};
  Rect bounds = FromRECT(placement.rcNormalPosition);
  if ((GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0) return bounds;
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  const RECT normal = ToRECT(bounds);
  if (!GetMonitorInfoW(MonitorFromRect(&normal, MONITOR_DEFAULTTONEAREST), &monitor)) return bounds;
  const Point offset{static_cast<std::int32_t>(monitor.rcWork.left - monitor.rcMonitor.left),
                     static_cast<std::int32_t>(monitor.rcWork.top - monitor.rcMonitor.top)};
  return RectAt({bounds.left + offset.x, bounds.top + offset.y}, {bounds.Width(), bounds.Height()});
}

Rect BoundsOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return FromRECT(bounds);
}

struct Listing {
  HWND front;
  std::vector<ForeignWindow> windows;
};

BOOL CALLBACK ListOne(HWND window, LPARAM parameter) {
  auto& listing = *reinterpret_cast<Listing*>(parameter);
  if (IsOurs(window)) return TRUE;
  WindowFacts facts;
  facts.title = ReadText(window, InternalGetWindowText);
  facts.className = ReadText(window, GetClassNameW);
  facts.minimised = IsIconic(window) != 0;
  facts.visible = IsWindowVisible(window) != 0 && !IsCloaked(window);
  facts.foreground = window == listing.front;
  facts.bounds = facts.minimised ? RestoredBounds(window) : BoundsOf(window);
  listing.windows.push_back({window, std::move(facts)});
  return TRUE;
}

}  // namespace

std::vector<ForeignWindow> ListForeignWindows(HWND front) {
  Listing listing{front, {}};
  EnumWindows(ListOne, reinterpret_cast<LPARAM>(&listing));
  return std::move(listing.windows);
}

bool IsUserWindow(const ForeignWindow& listed) {
  const LONG_PTR extended = GetWindowLongPtrW(listed.window, GWL_EXSTYLE);
  if (!listed.facts.visible || listed.facts.title.empty()) return false;
  if ((extended & WS_EX_APPWINDOW) != 0) return true;
  return (extended & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE)) == 0 &&
         GetWindow(listed.window, GW_OWNER) == nullptr;
}

HWND FrontWindow::Now() {
  const HWND front = GetForegroundWindow();
  if (front != nullptr && !IsOurs(front)) last_ = front;
  return last_;
}

std::vector<WindowFacts> ForeignWindowWatcher::Look() {
  std::vector<WindowFacts> facts;
  for (ForeignWindow& window : ListForeignWindows(front_.Now())) facts.push_back(std::move(window.facts));
  return facts;
}

}  // namespace jotlets
