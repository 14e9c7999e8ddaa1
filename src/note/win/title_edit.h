// A title edited where it stands: a line to type in over it. Enter, or the focus going elsewhere, takes what
// is typed, Esc leaves it.
#pragma once

#include <windows.h>

#include <functional>

#include "base/geometry.h"
#include "base/text.h"
#include "ui/handle.h"

namespace jotlets {

class TitleEdit {
 public:
  TitleEdit() = default;
  ~TitleEdit();
  TitleEdit(const TitleEdit&) = delete;
  TitleEdit& operator=(const TitleEdit&) = delete;

  /// Opens over `area` of a window and takes the focus. `done` gets the title, nothing when it was left, and
  /// where the focus goes when it has gone already. False when the system has no such line.
  bool Open(HWND window, const Rect& area, const Text& title,
            std::function<void(const Text* title, HWND focus)> done);
  bool IsOpen() const { return edit_ != nullptr; }

 private:
  static LRESULT CALLBACK OnMessage(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR self) noexcept;
  void End(bool taken, HWND focus);

  HWND edit_ = nullptr;
  UniqueFont font_;
  std::function<void(const Text* title, HWND focus)> done_;
};

}  // namespace jotlets
