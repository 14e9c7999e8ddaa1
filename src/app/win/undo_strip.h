// A strip that says what has become of a note, for some seconds, and offers to undo it. It takes the focus
// only where no other window of the program is there to have it: that one's Ctrl+Z undoes it too.
#pragma once

#include <windows.h>

#include <functional>

#include "base/text.h"
#include "ui/handle.h"
#include "ui/theme.h"
#include "ui/window.h"

namespace jotlets {

class UndoStrip final : public Window {
 public:
  /// `theme` outlives the strip.
  explicit UndoStrip(const Theme& theme) : theme_(theme) {}

  /// Shows the strip where the note was, wholly on that monitor. `undo` is the word to click; `clicked` and
  /// `gone` tell how it ended, each at most once.
  void Show(const Rect& note, const Text& words, const Text& undo, std::function<void()> clicked,
            std::function<void()> gone);
  /// Takes it away; nobody is told.
  void Close();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnKey(WPARAM key);
  void Paint();
  void End(const std::function<void()>& tell);
  Size Measure();
  std::int32_t Scaled(std::int32_t pixels) const { return MulDiv(pixels, dpi_, 96); }

  const Theme& theme_;
  Text words_;
  Text undo_;
  std::int32_t undoFrom_ = 0;
  std::int32_t dpi_ = 96;
  UniqueFont font_;
  UniqueFont link_;
  std::function<void()> clicked_;
  std::function<void()> gone_;
};

}  // namespace jotlets
