// What the rows of colours of a menu need while it is open: to be measured and drawn for the window that the
// menu belongs to, and to see mouse and keys before the menu does.
#pragma once

#include <windows.h>

#include <span>

#include "ui/swatch_row.h"

namespace jotlets {

class SwatchTracking {
 public:
  /// Until the end of this object, serves the rows of a menu that `owner` is about to show.
  SwatchTracking(HWND owner, std::span<SwatchRow* const> rows, const Theme& theme);
  ~SwatchTracking();
  SwatchTracking(const SwatchTracking&) = delete;
  SwatchTracking& operator=(const SwatchTracking&) = delete;

 private:
  static LRESULT CALLBACK OnFiltered(int code, WPARAM wParam, LPARAM lParam) noexcept;
  static LRESULT CALLBACK OnOwnerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR tracking) noexcept;
  bool Serve(const MSG& message);
  SwatchRow* Find(UINT id) const;

  // A hook is told of nothing that would lead it here. Menus are not shown inside one another.
  static SwatchTracking* current_;

  HWND owner_;
  std::span<SwatchRow* const> rows_;
  const Theme& theme_;
  HHOOK hook_ = nullptr;
};

}  // namespace jotlets
