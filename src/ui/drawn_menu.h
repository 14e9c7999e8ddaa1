// Menus as the program draws them: with a sign before the words and the key at the right edge, light and
// dark.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <deque>

#include "base/text.h"
#include "looks/icon.h"
#include "ui/handle.h"
#include "ui/theme.h"

namespace jotlets {

/// Gives an entry the sign that stands before its words.
void SetMenuIcon(HMENU menu, UINT command, Icon icon);
/// Gives it to the entry that was appended last.
void SetLastMenuIcon(HMENU menu, Icon icon);

/// Draws a menu and those below it while it lives; high contrast is the system's to draw.
class DrawnMenu {
 public:
  /// `owner` is the window that the menu is shown for. The menu is not to be shown again afterwards.
  DrawnMenu(HMENU menu, HWND owner, const Theme& theme);
  ~DrawnMenu();
  DrawnMenu(const DrawnMenu&) = delete;
  DrawnMenu& operator=(const DrawnMenu&) = delete;

 private:
  struct Entry {
    MSAAMENUINFO info{};  // first: a screen reader looks for the words there
    Text words;
    Icon icon = Icon::kNothing;
    HBITMAP picture = nullptr;
    bool separator = false;
    bool opens = false;  // another menu
  };

  void Convert(HMENU menu);
  const Entry* Find(ULONG_PTR data) const;
  const Entry* EntryAt(HMENU menu, int position) const;
  int Scaled(int length) const { return MulDiv(length, dpi_, 96); }
  int WidthOf(const Text& words, bool bold) const;
  void Measure(const Entry& entry, MEASUREITEMSTRUCT& measured) const;
  void Draw(const Entry& entry, const DRAWITEMSTRUCT& item) const;
  void DrawWords(const Entry& entry, const DRAWITEMSTRUCT& item) const;
  void DrawSigns(const Entry& entry, const DRAWITEMSTRUCT& item) const;
  void DrawFrame(const DRAWITEMSTRUCT& item) const;
  LRESULT ChooseByLetter(char16_t letter, HMENU menu) const;
  static LRESULT CALLBACK OnOwnerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR object) noexcept;

  const Theme& theme_;
  HWND owner_;
  int dpi_ = 96;
  std::deque<Entry> entries_;  // whose places menus keep
  UniqueFont font_;
  UniqueFont boldFont_;  // of what a double click does
  UniqueBrush ground_;
};

}  // namespace jotlets
