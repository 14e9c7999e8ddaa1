// The note that is chosen in the manage window: its title, and its text on its paper, which can be changed
// there, or its picture.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "base/geometry.h"
#include "manage/manage_list.h"
#include "note/win/text_content.h"
#include "res/resource.h"
#include "skin/win/picture_bitmap.h"
#include "ui/handle.h"
#include "ui/resources.h"

namespace jotlets {

struct PreviewedText {
  std::string content;  // of its file, or of its editor if it is open
  bool fixed = false;   // its note is locked, or not all of it can be had
};

/// Where the preview has its texts from, and who takes them back.
class PreviewSource {
 public:
  virtual ~PreviewSource() = default;
  /// The text of a note as it is now, open or not; nothing for a picture, and when there is no such note.
  virtual std::optional<PreviewedText> TextOf(const Text& id) = 0;
  /// Reads the picture of a note, no larger than that, and tells `seen` of it later, unless it is asked for
  /// another before; nothing comes of a file that holds none.
  virtual void AskPicture(const Text& id, Size largest, std::function<void(const Picture&)> seen) = 0;
  /// Gives a note another text; false when it could not be written, which the log tells.
  virtual bool ChangeText(const Text& id, const std::string& rtf) = 0;
  /// Does what a key does in the text of a note; false when that is nothing.
  virtual bool ServeKey(BEdit& edit, WPARAM key) = 0;
  /// The menu of a text, at a place of the screen.
  virtual void ShowMenu(BEdit& edit, Point at) = 0;
  /// Follows a link of a note as far as the user lets it.
  virtual void OpenLink(HWND window, const Text& id, const Text& target) = 0;
  /// What typing brings along.
  virtual TypingSettings Typing() = 0;
};

class ManagePreview final : private ContentWatcher {
 public:
  /// Posted to the window when a text could not be saved. It is on the clipboard then.
  static constexpr UINT kUnsavedMessage = WM_APP + 90;
  /// Posted to it when a link is to be followed, by `FollowLink`: a question about it may end the window.
  static constexpr UINT kLinkMessage = WM_APP + 91;
  /// A timer of the window, which lets it call `Save`.
  static constexpr UINT_PTR kSaveTimer = 90;

  ManagePreview(const Resources& resources, PreviewSource& source)
      : resources_(resources), source_(source), text_(*this) {}

  /// Makes the text behind a static control for the title, which draws a picture as well.
  void SetUp(HWND title);
  /// Where both stand in their window; an empty place hides them.
  void Place(const Rect& place);
  bool IsPlaced() const { return place_.Width() > 0; }

  /// Shows a note. One that is shown already stays as it is, scrolled or selected; a stack has no words.
  /// As long as the text has the keyboard its note stays, whatever becomes of the row:
  /// what is typed goes on in it.
  void Show(const ManageRow& row);
  void Hide();
  /// Gives what was changed to its note. By itself when another is shown or the keyboard leaves the text.
  void Save() { Save(false); }
  /// The window goes.
  void End();
  /// The look of the program has changed.
  void FollowLook();

  /// Serves what the text tells its window; false when it is of another control.
  bool OnCommand(UINT control, UINT notification);
  void OnNotify(const NMHDR& header) { text_.OnNotify(header); }
  /// Serves the keys of the text, but for those that lead out of it.
  bool ServeKey(WPARAM key);
  void ShowMenu(POINT at);
  void FollowLink();
  bool IsText(HWND window) const { return window != nullptr && window == text_.ContentWindow(); }
  void DrawTitle(const DRAWITEMSTRUCT& item) const;

 private:
  void ShowPicture(const ManageRow& row);
  void AskPicture();
  void ShowTitle(const Text& title);
  bool IsShown() const { return IsPlaced() && (!id_.empty() || !pictured_.empty()); }

  void OnEditScrolled() override {}
  void OnEditMouse() override {}
  void OnContentChanged() override {}
  void OnEditLink(const Text&) override { PostMessageW(GetParent(title_), kLinkMessage, 0, 0); }
  Text BeginningNotice() override { return resources_.String(IDS_BEGINNING); }
  TypingSettings Typing() override { return source_.Typing(); }
  // Words are looked for by the field above.
  void SetSearched(const Text&) override {}
  Text WordsOf(std::uint32_t text) override { return resources_.String(text); }
  Text FoundWords(const FoundText&) override { return {}; }
  const Theme& StripLook() const override { return resources_.Look(); }
  Colour StripPaper() const override { return Paper(); }

  HWND TextWindow() const { return text_.ContentWindow(); }
  Colour Paper() const;
  BEdit::Look EditLook() const;
  bool HasKeyboard() const { return title_ != nullptr && GetFocus() == TextWindow(); }
  void Load(PreviewedText shown, bool other);
  void ReadAgain();
  void Save(bool last);
  int Scaled(int length) const;
  void Inset() const;

  const Resources& resources_;
  PreviewSource& source_;
  TextContent text_;
  HWND title_ = nullptr;
  Rect place_;
  Colour colour_;
  Text id_;                      // of the note whose text is shown; empty for none
  Text pictured_;                // of the one whose picture is shown
  std::int32_t picturedAt_ = 0;  // when that was changed last
  PictureBitmap picture_;
  bool asked_ = false;   // for it
  std::string given_;    // as the source last gave it
  bool whole_ = true;    // the text holds all of that
  bool failed_ = false;  // to be saved, which the user knows
  Text shownTitle_;
  UniqueFont font_;
};

}  // namespace jotlets
