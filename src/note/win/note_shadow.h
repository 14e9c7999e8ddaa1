// The shadow window of a note or a stack: a window of its own, right below the note's, that lets the mouse
// through.
#pragma once

#include "note/shadow_shape.h"
#include "ui/window.h"

namespace jotlets {

inline constexpr wchar_t kNoteShadowClass[] = L"BraskJotletNoteShadow";

class NoteShadow final : public Window {
 public:
  explicit NoteShadow(const wchar_t* className = kNoteShadowClass) : className_(className) {}

  /// Makes and draws its window, unseen, for a note that will be there. Before the note's own: not every
  /// screen stacks windows anew that come to be shown, and the shadow would lie over the note.
  void Prepare(Point place, const ShadowCaster& caster);
  /// Brings the shadow to where the note is and right below it, `darkness` being the note's own alpha. When
  /// the note has come to the front, so does the shadow.
  void Follow(HWND note, const ShadowCaster& caster, BYTE darkness, bool orderChanged);
  void Hide();
  /// Takes the shadow away for good.
  void Close() { Destroy(); }

 private:
  bool MakeWindow(const Rect& bounds);
  void Stack(HWND note, const Rect& bounds, bool orderChanged);
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    return Default(message, wParam, lParam);
  }
  bool DrawShape(const Rect& bounds, const ShadowCaster& caster, BYTE darkness);

  const wchar_t* className_;
  ShadowCaster drawn_;
  BYTE drawnDarkness_ = 0;
  bool stacking_ = false;
};

}  // namespace jotlets
