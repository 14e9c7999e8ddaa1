// The windows of other programs as they are now. No message is ever sent to one of them, so that one that
// hangs, or belongs to a program with more rights, is looked at like any other.
#pragma once

#include <windows.h>

#include <vector>

#include "schedule/attach_pass.h"

namespace jotlets {

struct ForeignWindow {
  HWND window = nullptr;
  WindowFacts facts;
};

/// The top-level windows of other programs, from the topmost down. `front` is the one that counts as being
/// in the foreground.
std::vector<ForeignWindow> ListForeignWindows(HWND front);

/// A window that its program shows to the user as one of its own: with a title, in the task bar.
bool IsUserWindow(const ForeignWindow& window);

/// Which window is in the foreground. A note that is being written into is none of the windows that notes
/// are attached to: the one that was in front before it goes on to count, else a note that is to be seen only
/// with its window would vanish under the hands of whoever clicks on it.
class FrontWindow {
 public:
  HWND Now();

 private:
  HWND last_ = nullptr;
};

class ForeignWindowWatcher final : public WindowWatcher {
 public:
  std::vector<WindowFacts> Look() override;
  FrontWindow& Front() { return front_; }

 private:
  FrontWindow front_;
};

}  // namespace jotlets
