#include "manage/win/manage_settings.h"

#include <algorithm>

#include "note/monitors.h"
#include "note/win/monitor_setup.h"
#include "ui/screen.h"
#include "ui/window.h"

namespace jotlets {

Size SmallestManageWindow(HWND window) {
  const auto dpi = static_cast<int>(GetDpiForWindow(window));
  const Rect work = WorkAreaOf(window);
  return {std::min(MulDiv(640, dpi, USER_DEFAULT_SCREEN_DPI), work.Width()),
          std::min(MulDiv(260, dpi, USER_DEFAULT_SCREEN_DPI), work.Height())};
}

void RestoreManageWindow(HWND window, const Options& options) {
  const auto& [left, top, width, height] = options.manageWindow;
  const auto dpi = static_cast<std::int32_t>(GetDpiForWindow(window));
  const auto scaled = [dpi](std::int32_t length) { return MulDiv(length, dpi, USER_DEFAULT_SCREEN_DPI); };
  const Size smallest = SmallestManageWindow(window);
  const Rect all = VirtualScreen();
  Size size{std::clamp(width, smallest.width, std::max(all.Width(), smallest.width)),
            std::clamp(height, smallest.height, std::max(all.Height(), smallest.height))};
  Point corner{left, top};
  // One that nobody has sized yet is meant at 96 dots per inch, and stands in the work area as a whole.
  if (options.manageWindow == Options().manageWindow) {
    const Rect work = WorkAreaOf(window);
    size = {std::min(scaled(width), work.Width()), std::min(scaled(height), work.Height())};
    corner = {std::max(std::min(left, work.right - size.width), work.left),
              std::max(std::min(top, work.bottom - size.height), work.top)};
  }
  const Rect place = ShownPlace(RectAt(corner, size), ReadMonitors());
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
