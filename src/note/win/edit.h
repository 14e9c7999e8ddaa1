// The rich-text editor of a note: a rich edit control, version 5.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

/// What the note wants to know of its editor beyond what the control tells its parent.
class EditWatcher {
 public:
  virtual ~EditWatcher() = default;
  /// The text may have been scrolled, or have another height.
  virtual void OnEditScrolled() = 0;
  /// The mouse has come over the editor, or has left it.
  virtual void OnEditMouse() = 0;
};

class BEdit {
 public:
  static constexpr int kControlId = 100;

  BEdit() = default;
  ~BEdit();
  BEdit(const BEdit&) = delete;
  BEdit& operator=(const BEdit&) = delete;

  struct Look {
    Colour background;
    bool readOnly = false;
    bool scrollbar = true;    // shows a scroll bar of its own
    bool seeThrough = false;  // the parent draws its background
  };

  /// Creates the control inside `parent`; false when the rich-edit library is missing. `watcher` lives as
  /// long as the editor.
  bool Create(HWND parent, const Rect& bounds, const Look& look, EditWatcher& watcher);
  /// Makes the control anew, with the same content: some of its look is settled when it is made.
  void Recreate(const Look& look);
  const Look& MadeWith() const { return look_; }
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
  void Show(bool shown);
  void SetReadOnly(bool readOnly);
  Point ScrollPosition() const;
  void SetScrollPosition(Point position);
  /// The height of the whole text in pixels, as far as the control has told it (see `OnNotify`).
  std::int32_t TextHeight() const { return textHeight_; }
  /// Serves a WM_NOTIFY that the control sent to its parent.
  void OnNotify(const NMHDR& header);
  /// Inserts the clipboard at the caret.
  void Paste();

 private:
  static LRESULT CALLBACK Watch(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                DWORD_PTR object) noexcept;

  HWND edit_ = nullptr;
  EditWatcher* watcher_ = nullptr;
  Look look_;
  std::int32_t textHeight_ = 0;
  bool trackingMouse_ = false;
};

}  // namespace jotlets
