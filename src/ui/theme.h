// The look that all windows of the program share, and asking the system for it.
#pragma once

#include <windows.h>

#include "looks/window_colours.h"

namespace jotlets {

class Theme {
 public:
  /// Sent to the program's dialogs when the look has changed.
  static constexpr UINT kChangedMessage = WM_THEMECHANGED;

  /// Asks the system anew what it looks like, and goes by it and by the option `Appearance`. Whether the look
  /// has changed.
  bool Follow(std::int32_t choice);

  /// Whether the language of the program is read from right to left: windows and menus are mirrored then.
  void SetRightToLeft(bool rightToLeft) { rightToLeft_ = rightToLeft; }
  bool IsRightToLeft() const { return rightToLeft_; }
  /// The extended style of windows that are mirrored then.
  DWORD LayoutStyle() const { return rightToLeft_ ? DWORD{WS_EX_LAYOUTRTL} : 0; }

  const Appearance& Now() const { return now_; }
  bool IsDark() const { return now_.dark; }
  const WindowColours& Colours() const { return colours_; }
  /// Those of menus, which the system draws itself in high contrast.
  Colour MenuPaper() const;
  Colour MenuInk() const;
  Colour MenuMark() const;

 private:
  bool rightToLeft_ = false;
  Appearance now_;
  WindowColours colours_ = ColoursOf({});
};

/// Tells the program's dialogs and menus that the look has changed.
void TellThemeChanged();

/// Has the system draw the caption of a window light or dark, as far as it can.
void ShowCaption(HWND window, bool dark);

}  // namespace jotlets
