// A note on the desktop: a borderless window with a plain frame, holding its record and its editor or
// picture.
#pragma once

#include <string_view>
#include <utility>

#include "base/clock.h"
#include "base/files.h"
#include "data/jotlet_data.h"
#include "note/frame_layout.h"
#include "note/win/edit.h"
#include "note/win/jotlet_owner.h"
#include "skin/win/picture_bitmap.h"
#include "ui/window.h"

namespace jotlets {

inline constexpr wchar_t kJotletClass[] = L"BraskJotletNote";

class BJotlet final : public Window {
 public:
  /// `record` has a place and a size; `owner` outlives the note.
  BJotlet(JotletOwner& owner, JotletData record) : owner_(owner), record_(std::move(record)) {}

  /// Creates the window, not yet shown; false when the system could not.
  bool CreateWindowFor();
  /// Takes the window away, for good.
  void DestroyWindowNow() { Destroy(); }

  /// Loads the content from its bytes: a rich text, or a PNG for a picture note. A rich-text file that holds
  /// something else is shown as the plain text that it is.
  void LoadContent(std::string_view bytes);
  /// The content file is there but was not read whole: it is kept under another name before it is replaced.
  void KeepOldContent() { keepOldContent_ = true; }
  /// Shows or hides the window; whether the note is a hidden one is another matter.
  void Show();
  void Hide();

  /// The record with its place, size and scroll position brought up to date with the screen.
  JotletData& Record();
  /// The record as it was last brought up to date.
  const JotletData& StoredRecord() const { return record_; }

  bool HasUnsavedContent() const { return contentChanged_; }
  /// Writes the content file when the content has changed since; after a failure it still counts as changed.
  FileStatus SaveContent(Files& files, TextView dataFolder, const Moment& now);

  Text PlainText() const;
  Text Rtf() const;
  void SetTitle(TextView title);
  void SetColour(Colour colour);
  bool SetPlainText(TextView text);
  bool SetRtf(TextView rtf);
  void MoveTo(Point position);
  void PasteClipboard();
  void BringForward();
  void TakeFocus();

 private:
  enum class Drag { kIdle, kMoving, kSizing };

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnPaint();
  LRESULT OnSetCursor(LPARAM lParam);
  LRESULT OnControl(UINT control, UINT notification);
  void OnButtonDown(Point at);
  void OnMouseMove();
  void OnButtonUp(Point at);
  void EndDrag();
  void OnSize();
  void OnFocus(bool gained);
  void OnContextMenu(Point at);
  void OnDpiChanged(const RECT& suggested);

  Size ClientSize() const;
  void PaintFrame(HDC dc, Size size);
  void PaintTitle(HDC dc, const FrameLayout& layout);
  void ContentChanged();
  void TitleChanged();
  void ApplyOpacity();

  JotletOwner& owner_;
  JotletData record_;
  BEdit edit_;
  PictureBitmap picture_;
  Text shownTitle_;
  bool contentChanged_ = false;
  bool keepOldContent_ = false;
  bool hasFocus_ = false;
  Drag drag_ = Drag::kIdle;
  FramePart dragPart_ = FramePart::kContent;
  bool closePressed_ = false;
  Point dragStart_;  // mouse position on the screen at the press
  Rect dragBounds_;  // the window at the press
};

}  // namespace jotlets
