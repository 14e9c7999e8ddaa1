// The hidden main window: it translates messages for the program and forwards them.
#pragma once

#include <windows.h>

#include "app/win/program.h"
#include "ui/handle.h"
#include "ui/window.h"

namespace jotlets {

class CMainFrame final : public Window {
 public:
  CMainFrame(const Resources& resources, Theme& theme, ProgramInstance& instance, bool rescue);
  ~CMainFrame() override;

  /// Creates the window and brings the program up; false: it must not run (and nothing has been written).
  bool Start();

  /// Saves and ends, without a question to anybody.
  void ExitNow() { program_.ExitJotlets(u"no more messages", true); }

  /// Serves a message that belongs to nobody's window procedure: keys of dialogs and notes, and accelerators.
  /// True when it is done with.
  bool Translate(MSG& message);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnCopyData(HWND sender, const COPYDATASTRUCT* record);

  UniqueAccelerators accelerators_;
  Program program_;
  UINT taskbarCreated_ = 0;
};

}  // namespace jotlets
