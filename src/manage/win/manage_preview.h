// The note that is chosen in the manage window, as far as its paper and its words go.
#pragma once

#include <windows.h>

#include "base/geometry.h"
#include "manage/manage_list.h"
#include "ui/handle.h"

namespace jotlets {

class ManagePreview {
 public:
  /// A static control for the title and a read-only edit control for the words below it.
  void SetUp(HWND title, HWND words);
  /// Where both stand in their window; an empty place hides them.
  void Place(const Rect& place);
  bool IsPlaced() const { return place_.Width() > 0; }

  /// Shows a note. One that is shown already stays as it is, scrolled or selected; a stack has no words.
  void Show(const ManageRow& row, Colour paper, const Text& words);
  void Hide();
  /// The colours of one of the two controls; nullptr for any other.
  HBRUSH Colours(HDC dc, HWND control) const;

 private:
  RECT InsetText() const;
  void FitScrollBar() const;

  HWND title_ = nullptr;
  HWND words_ = nullptr;
  Rect place_;
  Colour paper_;
  bool shown_ = false;
  Text shownTitle_;
  Text shownWords_;
  UniqueFont font_;
  UniqueBrush paperBrush_;
  UniqueBrush barBrush_;
};

}  // namespace jotlets
