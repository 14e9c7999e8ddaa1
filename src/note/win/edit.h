// The rich-text editor of a note: a rich edit control, version 5.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

class BEdit {
 public:
  static constexpr int kControlId = 100;

  /// Creates the control inside `parent`; false when the rich-edit library is missing.
  bool Create(HWND parent, const Rect& bounds, Colour background, bool readOnly);
  HWND Handle() const { return edit_; }

  /// Replaces the content; the change does not count as the user's. False for a damaged rich text, of which
  /// what could be read is shown.
  bool SetRtf(std::string_view rtf);
  std::string Rtf() const;
  void SetPlainText(TextView text);
  /// The text without formatting, lines ended by "\r\n".
  Text PlainText() const;
  /// The first code units of the text, at most `most`, lines ended by "\r".
  Text TextStart(std::int32_t most) const;

  void SetBackground(Colour colour);
  void SetBounds(const Rect& bounds);
  Point ScrollPosition() const;
  void SetScrollPosition(Point position);
  /// Inserts the clipboard at the caret.
  void Paste();

 private:
  HWND edit_ = nullptr;
};

}  // namespace jotlets
