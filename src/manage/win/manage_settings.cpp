#include "manage/win/manage_settings.h"

#include <algorithm>

#include "note/monitors.h"
#include "note/win/monitor_setup.h"
#include "ui/window.h"

namespace jotlets {

void RestoreManageWindow(HWND window, const Options& options) {
  const auto& [left, top, width, height] = options.manageWindow;
  const Size size{std::clamp(width, kSmallestManageWindow.width, 30000),
                  std::clamp(height, kSmallestManageWindow.height, 30000)};
  const Rect place = ShownPlace(RectAt({left, top}, size), ReadMonitors());
  SetWindowPos(window, nullptr, place.left, place.top, place.Width(), place.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void StoreManageWindow(HWND window, Options& options) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window, &placement);
  // The system gives this place without the room of task bars, which it counts in where it takes one.
  const bool asItIs = placement.showCmd == SW_SHOWNORMAL;
  RECT bounds = placement.rcNormalPosition;
  if (asItIs) GetWindowRect(window, &bounds);
  const Rect place = FromRECT(bounds);
  options.manageWindow = {place.left, place.top, place.Width(), place.Height()};
  options.manageWindowMax =
      placement.showCmd == SW_SHOWMAXIMIZED ||
      (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
}

}  // namespace jotlets
