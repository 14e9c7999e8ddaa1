// The rich-text editor of a note: a rich edit control, version 5.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <optional>
#include <string>
#include <string_view>

#include "base/geometry.h"
#include "base/text.h"
#include "data/rtf_ink.h"
#include "editor/edit_facts.h"
#include "editor/win/edit_aids.h"
#include "editor/win/edit_direction.h"
#include "editor/win/edit_objects.h"
#include "looks/ink.h"

namespace jotlets {

/// What the note wants to know of its editor beyond what the control tells its parent.
class EditWatcher {
 public:
  virtual ~EditWatcher() = default;
  /// The text may have been scrolled, or have another height.
  virtual void OnEditScrolled() = 0;
  /// The caret or the selection is elsewhere, or the mouse has let go of it.
  virtual void OnEditSelection() {}
  /// The mouse has come over the editor, or has left it.
  virtual void OnEditMouse() = 0;
  /// The user wants a link followed; `target` is of `LinkTarget`.
  virtual void OnEditLink([[maybe_unused]] const Text& target) {}
  /// Whether keys set the direction of paragraphs.
  virtual bool HasDirectionKeys() { return false; }
  /// What was looked for last.
  virtual Text Searched() { return {}; }
  /// What typing brings along.
  virtual TypingSettings Typing() { return {}; }
};

class BEdit {
 public:
  static constexpr int kControlId = 100;
  /// Rich texts of more bytes than this take the control too long: `ShowWords` shows theirs.
  static constexpr std::size_t kLargestRtf = 4 * 1024 * 1024;

  BEdit() = default;
  ~BEdit();
  BEdit(const BEdit&) = delete;
  BEdit& operator=(const BEdit&) = delete;

  struct Look {
    Colour background;
    bool readOnly = false;
    bool scrollbar = true;    // shows a scroll bar of its own
    bool seeThrough = false;  // the parent draws its background

    std::optional<Colour> ink = std::nullopt;  // of the system's, where it settles all colours

    /// The colour of text that has none of its own; black is what the control gives it by itself.
    Colour Ink() const {
      if (!ink) return IsDarkPaper(background) ? InkOn(background) : Colour{};
      // A hair beside the system's colour, which somebody may have chosen for a word.
      return *ink == Colour{} ? Colour{} : Colour{ink->r, ink->g, static_cast<std::uint8_t>(ink->b ^ 1)};
    }
    /// The colour that text of this one is shown in.
    Colour Legible(Colour own) const { return ink ? *ink : LegibleOn(background, own); }
  };

  /// Creates the control inside `parent`; false when the rich-edit library is missing. `watcher` lives as
  /// long as the editor.
  bool Create(HWND parent, const Rect& bounds, const Look& look, EditWatcher& watcher);
  /// Makes the control anew, with the same content: some of its look is settled when it is made.
  void Recreate(const Look& look);
  const Look& MadeWith() const { return look_; }
  HWND Handle() const { return edit_; }

  /// Replaces the content; the change does not count as the user's. False for a rich text that is damaged or
  /// holds objects, of which only the rest is shown.
  bool SetRtf(std::string_view rtf);
  /// The content as rich text; nothing when not all of it could be had.
  std::optional<std::string> Rtf(bool selected = false) const;
  /// Shows the beginning of the words of a text that is too much for the control below a line that says so,
  /// read-only until there is another content. What is shown must not be saved in its place.
  void ShowWords(TextView text, TextView notice);
  bool ShowsBeginning() const { return notice_ > 0; }
  /// Where the words begin, behind the notice of `ShowWords`.
  LONG FirstWord() const { return notice_; }
  void SetPlainText(TextView text);
  /// The text without formatting and notice, lines ended by "\r\n".
  Text PlainText() const;
  /// The code units of a range, bounded by the end of the text, lines ended by "\r".
  Text TextBetween(CHARRANGE range) const;
  /// The number of code units, line ends as one.
  LONG Length() const;
  /// Lies within the text.
  CHARRANGE Selection() const;
  void Select(CHARRANGE range);
  /// What holds for the selection now; `highlights` tell which back colour is which.
  EditFacts Facts(const HighlightColours& highlights) const;
  /// Of these only how the selection is formatted, which asks nobody but the control.
  EditFacts FormatFacts(const HighlightColours& highlights) const;

  /// Shows another colour for a while: all text keeps the ink that it has on its paper.
  void SetBackground(Colour colour);
  /// Gives the text this paper, and all of it that has no colour of its own the ink for it: black or nearly
  /// white, unless that is settled.
  void SetPaper(Colour colour, std::optional<Colour> ink);
  bool HasLightInk() const { return Ink() != Colour{}; }
  Colour Ink() const { return look_.Ink(); }
  void SetBounds(const Rect& bounds);
  void Show(bool shown);
  void SetReadOnly(bool readOnly);
  bool IsReadOnly() const { return look_.readOnly || ShowsBeginning(); }
  Point ScrollPosition() const;
  void SetScrollPosition(Point position);
  /// Scrolls within the text, down for positive pixels.
  void ScrollBy(std::int32_t pixels);
  std::int32_t PageHeight() const;
  /// The height of the whole text in pixels, as far as the control has told it (see `OnNotify`).
  std::int32_t TextHeight() const { return textHeight_; }
  /// Serves a WM_NOTIFY that the control sent to its parent.
  void OnNotify(const NMHDR& header);
  /// Puts the clipboard in the place of the selection: its rich text, or else its plain text. Pictures and
  /// objects are not taken, and a read-only editor takes nothing.
  void Paste();
  void PastePlain();
  bool CanPaste() const;
  /// Tells the parent of a change that the control itself says nothing about.
  void TellChanged();
  /// Has the watcher follow a link.
  void OpenLink(const Text& target) {
    followed_ = target;
    watcher_->OnEditLink(target);
  }
  EditAids& Aids() { return aids_; }
  /// Does what one of the editor's keys does; false when that key belongs to the text.
  bool Do(EditorKey key);
  const Text& FollowedLink() const { return followed_; }

 private:
  static LRESULT CALLBACK Watch(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  LRESULT ServeByControl(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) const;
  LRESULT Serve(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);
  bool ServeTyping(UINT message, WPARAM wParam, LPARAM lParam);
  bool OnKey(WPARAM key);
  void OnLink(const ENLINK& link);
  void SetDefaultFormat();
  bool StreamIn(WPARAM format, std::string_view bytes);
  void PasteFormat(UINT format);
  void Subclass();
  void LetGo(HWND edit);
  LRESULT Control(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) const {
    return CallWindowProcW(control_, edit, message, wParam, lParam);
  }

  HWND edit_ = nullptr;
  WNDPROC control_ = nullptr;  // the control's own
  EditWatcher* watcher_ = nullptr;
  ComPointer<EditObjects> objects_;
  EditAids aids_;
  DirectionKeys directionKeys_;
  Look look_;
  ShownColours shownColours_;
  Text followed_;
  std::int32_t textHeight_ = 0;
  bool trackingMouse_ = false;
  bool keyServed_ = false;  // the character that comes of it is not typed
  LONG notice_ = 0;         // code units of the notice in front of words, which are all that is shown then
};

}  // namespace jotlets
