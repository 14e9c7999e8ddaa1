// The window that the user works with stays so, whatever appears meanwhile.
#pragma once

#include <windows.h>

namespace jotlets {

class ForegroundKeeper {
 public:
  ForegroundKeeper() : window_(GetForegroundWindow()) {}
  /// Gives the foreground back to the window that had it, if that is still there and one of ours took it: who
  /// has gone on to another program meanwhile stays there.
  ~ForegroundKeeper() {
    const HWND now = GetForegroundWindow();
    if (window_ != nullptr && now != window_ && IsOurs(now) && IsWindow(window_))
      SetForegroundWindow(window_);
  }
  ForegroundKeeper(const ForegroundKeeper&) = delete;
  ForegroundKeeper& operator=(const ForegroundKeeper&) = delete;

 private:
  static bool IsOurs(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId();
  }

  HWND window_;
};

}  // namespace jotlets
