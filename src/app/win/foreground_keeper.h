// The window that the user works with stays so, whatever appears meanwhile.
#pragma once

#include <windows.h>

namespace jotlets {

class ForegroundKeeper {
 public:
  ForegroundKeeper() : window_(GetForegroundWindow()) {}
  /// Gives the foreground back to the window that had it, if that is still there.
  ~ForegroundKeeper() {
    if (window_ != nullptr && GetForegroundWindow() != window_ && IsWindow(window_))
      SetForegroundWindow(window_);
  }
  ForegroundKeeper(const ForegroundKeeper&) = delete;
  ForegroundKeeper& operator=(const ForegroundKeeper&) = delete;

 private:
  HWND window_;
};

}  // namespace jotlets
