#include "ui/compositor.h"

#include <dwmapi.h>

#include "base/win/system_library.h"

namespace jotlets {
namespace {

template <typename Value>
bool Ask(HWND window, DWORD attribute, Value& value) {
  static const auto ask =
      SystemFunction<decltype(DwmGetWindowAttribute)>(L"dwmapi.dll", "DwmGetWindowAttribute");
  return ask != nullptr && SUCCEEDED(ask(window, attribute, &value, sizeof value));
}

}  // namespace

bool IsCloaked(HWND window) {
  DWORD cloaked = 0;
  return Ask(window, DWMWA_CLOAKED, cloaked) && cloaked != 0;
}

RECT SeenBounds(HWND window) {
  RECT bounds{};
  if (!Ask(window, DWMWA_EXTENDED_FRAME_BOUNDS, bounds)) GetWindowRect(window, &bounds);
  return bounds;
}

}  // namespace jotlets
