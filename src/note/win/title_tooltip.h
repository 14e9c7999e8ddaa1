// Shows a note's title beside the mouse while it rests on the title bar, and what a button does while it
// rests there.
#pragma once

#include <windows.h>

#include "skin/skin_data.h"
#include "ui/handle.h"
#include "ui/theme.h"

namespace jotlets {

class TitleTooltip {
 public:
  /// Provides for a tooltip over `area` of the window. Cheap until the first call: most notes never need one.
  void Offer(HWND window, const SkinData& skin, const Rect& area, const Text& title, const Theme& theme);
  /// The skin has changed: the next `Offer` makes a new one.
  void Forget();
  ~TitleTooltip() { Forget(); }
  TitleTooltip() = default;
  TitleTooltip(const TitleTooltip&) = delete;
  TitleTooltip& operator=(const TitleTooltip&) = delete;

 private:
  HWND tooltip_ = nullptr;
  UniqueFont font_;
  Text title_;
  Rect area_;
};

}  // namespace jotlets
