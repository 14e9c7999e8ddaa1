#include "note/win/monitor_setup.h"

#include <windows.h>

#include "ui/screen.h"
#include "ui/window.h"

namespace jotlets {
namespace {

BOOL CALLBACK AddMonitor(HMONITOR monitor, HDC, LPRECT, LPARAM list) noexcept {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (!GetMonitorInfoW(monitor, &info)) return TRUE;
  return reinterpret_cast<MonitorList*>(list)->Add(FromRECT(info.rcWork), FromRECT(info.rcMonitor));
}

}  // namespace

MonitorSetup ReadMonitors() {
  MonitorSetup setup;
  setup.virtualScreen = VirtualScreen();
  EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&setup.monitors));
  return setup;
}

}  // namespace jotlets
