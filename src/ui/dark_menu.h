// Menus where all is dark: the system draws its own light only.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <deque>

#include "base/text.h"
#include "ui/handle.h"
#include "ui/theme.h"

namespace jotlets {

/// Draws a menu and those below it while it lives, when all is dark.
class DarkMenu {
 public:
  /// `owner` is the window that the menu is shown for. The menu is not to be shown again afterwards.
  DarkMenu(HMENU menu, HWND owner, const Theme& theme);
  ~DarkMenu();
  DarkMenu(const DarkMenu&) = delete;
  DarkMenu& operator=(const DarkMenu&) = delete;

 private:
  struct Entry {
    MSAAMENUINFO info{};  // first: a screen reader looks for the words there
    Text words;
    HBITMAP picture = nullptr;
    bool separator = false;
    bool opens = false;  // another menu
  };

  void Convert(HMENU menu);
  const Entry* Find(ULONG_PTR data) const;
  const Entry* EntryAt(HMENU menu, int position) const;
  int Scaled(int length) const { return MulDiv(length, dpi_, 96); }
  int WidthOf(const Text& words) const;
  void Measure(const Entry& entry, MEASUREITEMSTRUCT& measured) const;
  void Draw(const Entry& entry, const DRAWITEMSTRUCT& item) const;
  void DrawSigns(const Entry& entry, const DRAWITEMSTRUCT& item, Colour ink) const;
  void DrawFrame(const DRAWITEMSTRUCT& item) const;
  LRESULT ChooseByLetter(char16_t letter, HMENU menu) const;
  static LRESULT CALLBACK OnOwnerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR object) noexcept;

  const Theme& theme_;
  HWND owner_;
  int dpi_ = 96;
  std::deque<Entry> entries_;  // whose places menus keep
  UniqueFont font_;
  UniqueBrush ground_;
};

}  // namespace jotlets
