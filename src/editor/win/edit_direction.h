// Ctrl and a Shift key, pressed and released with nothing else between: paragraphs run from the side of that
// key.
#pragma once

#include <windows.h>

namespace jotlets {

/// Whether the user has a keyboard for a language that is written from right to left.
bool HasRightToLeftKeyboard();

class DirectionKeys {
 public:
  /// Follows the keys and clicks that the editor is told of; whether a message released such a pair of keys.
  bool Follow(UINT message, WPARAM wParam, LPARAM lParam);
  bool IsRightToLeft() const { return side_ == VK_RSHIFT; }

 private:
  UINT side_ = 0;  // of the Shift key, as a virtual key
  bool held_ = false;
};

}  // namespace jotlets
