// The program that stands for those of others, and its window as tests use it.
#pragma once

#include <windows.h>

#include "desktop.h"

namespace jotlets {

/// The window stops answering for good.
inline constexpr UINT kHangMessage = WM_APP + 1;

class ForeignProgram {
 public:
  /// Starts the program, whose title and class need no quoting, and waits for its window.
  ForeignProgram(const Text& title, const Text& className);
  HWND Window() const { return window_; }
  void Move(Point to) const;
  void Rename(const Text& title) const;
  /// Brings the window to the front, as a click on it does, and waits until it is there.
  bool Activate() const;
  void Minimise() const { ShowWindowAsync(window_, SW_MINIMIZE); }
  void Restore() const { ShowWindowAsync(window_, SW_SHOWNOACTIVATE); }
  void Hang() const { PostMessageW(window_, kHangMessage, 0, 0); }
  void Close() const { PostMessageW(window_, WM_CLOSE, 0, 0); }

 private:
  Process process_;
  HWND window_ = nullptr;
};

}  // namespace jotlets
