// The shadow window of a note or a stack: a window of its own, right below the note's, that lets the mouse
// through.
#pragma once

#include "ui/window.h"

namespace jotlets {

inline constexpr wchar_t kNoteShadowClass[] = L"BraskJotletNoteShadow";

class NoteShadow final : public Window {
 public:
  explicit NoteShadow(const wchar_t* className = kNoteShadowClass) : className_(className) {}

  /// Makes and draws its window, unseen, for a note that will be there. Before the note's own: not every
  /// screen stacks windows anew that come to be shown, and the shadow would lie over the note.
  void Prepare(const Rect& note);
  /// Brings the shadow to where the note is, `darkness` being the note's own alpha; away with it when the
  /// note is not to be seen.
  void Follow(HWND note, bool shown, BYTE darkness);
  /// Takes the shadow away for good.
  void Close() { Destroy(); }

 private:
  bool MakeWindow(const Rect& bounds);
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    return Default(message, wParam, lParam);
  }
  bool DrawShape(const Rect& bounds, BYTE darkness);

  const wchar_t* className_;
  Size drawn_;
  BYTE drawnDarkness_ = 0;
};

}  // namespace jotlets
