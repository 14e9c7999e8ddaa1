// The small icons of other programs' windows, without asking the windows: a program that hangs would keep the
// asker waiting.
#pragma once

#include <windows.h>

#include <unordered_map>

#include "base/text.h"
#include "ui/handle.h"

namespace jotlets {

class WindowIcons {
 public:
  /// The icon of the window's class, else that of its program file, else the system's for programs. Good as
  /// long as this object is.
  HICON Of(HWND window);

 private:
  HICON OfProgram(HWND window);

  std::unordered_map<HWND, HICON> known_;
  std::unordered_map<Text, UniqueIcon> programs_;  // by path
};

}  // namespace jotlets
