#include "ui/screen.h"

#include <shellscalingapi.h>

#include "base/win/wide.h"
#include "ui/window.h"

namespace jotlets {

Rect VirtualScreen() {
  const int x = GetSystemMetrics(SM_XVIRTUALSCREEN);
  const int y = GetSystemMetrics(SM_YVIRTUALSCREEN);
  return {x, y, x + GetSystemMetrics(SM_CXVIRTUALSCREEN), y + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

Size PrimaryScreenSize() { return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}; }

std::int32_t DpiAt(Point at) {
  const HMONITOR monitor = MonitorFromPoint({at.x, at.y}, MONITOR_DEFAULTTONEAREST);
  UINT across = static_cast<UINT>(kUsualDpi);
  UINT down = across;
  if (FAILED(GetDpiForMonitor(monitor, MDT_EFFECTIVE_DPI, &across, &down))) return kUsualDpi;
  return static_cast<std::int32_t>(across);
}

Rect WorkAreaOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return FromRECT(monitor.rcWork);
}

Text ProgramPath() {
  Text path(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, WideBuffer(path), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

Text ProgramFolder() {
  const Text path = ProgramPath();
  return path.substr(0, path.find_last_of(u"\\/") + 1);
}

void EnableDpiAwareness() {
  // The manifest asks for the same; a system that reads only one of the two still gets it right.
  if (SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)) return;
  SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
}

}  // namespace jotlets
