// The content of a note as its window shows it.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>

#include "editor/text_search.h"
#include "editor/win/edit.h"
#include "note/note_content.h"
#include "picture/picture_zoom.h"
#include "skin/skin_layout.h"
#include "skin/win/skin_renderer.h"
#include "ui/theme.h"

namespace jotlets {

/// What the content tells its note.
class ContentWatcher : public EditWatcher {
 public:
  /// It has changed and is unsaved.
  virtual void OnContentChanged() = 0;
  /// The line above the beginning of a text that cannot be shown as it is.
  virtual Text BeginningNotice() = 0;
  /// These words are looked for from now on, in any note.
  virtual void SetSearched(const Text& words) = 0;
  /// A text of the program, by its number.
  virtual Text WordsOf(std::uint32_t text) = 0;
  /// What a strip says of what was found.
  virtual Text FoundWords(const FoundText& found) = 0;
  /// The look of strips, and the paper that they lie on.
  virtual const Theme& StripLook() const = 0;
  virtual Colour StripPaper() const = 0;
};

/// The content file, for what of it the window does not hold.
struct ContentFile {
  std::function<std::string()> bytes;
  std::function<Text()> richText;
  std::function<std::string()> objects;  // of the file beside a picture
};

class PictureWork;

/// A content with a window of its own says what that does; one that the note paints is painted by its inlay.
class ShownContent : public NoteContent {
 public:
  using Look = BEdit::Look;

  /// Makes its window inside the note's, if it has one.
  virtual void CreateIn(HWND, const Look&) {}
  /// Loads no more than words of a content file that must not be shown as it is, for the reason that the
  /// notice tells; a picture, nothing.
  virtual void LoadWords(std::string_view, TextView) {}
  /// Its window, which takes the keyboard; nullptr for none.
  virtual HWND ContentWindow() const { return nullptr; }
  /// The editor, for the commands that act on one; nullptr for none.
  virtual BEdit* Editor() { return nullptr; }
  /// Whether presses on its area are its own affair; otherwise they take hold of the note.
  virtual bool TakesPresses() const { return false; }

  virtual void SetLook(const Look&) {}
  virtual void SetBackground(Colour) {}
  /// As `SetBackground`, for good: the ink of the text follows.
  virtual void SetPaper(Colour) {}
  virtual void SetReadOnly(bool) {}
  virtual void Show(bool) {}
  /// `area` in client pixels of the note.
  virtual void SetBounds(const Rect&) {}
  /// The picture that is drawn on; nullptr as long as nobody does, and for other contents.
  virtual PictureWork* Drawing() const { return nullptr; }
  /// Gets ready to be drawn on, `steps` of which can be undone; nullptr when it cannot be.
  virtual PictureWork* BeginDrawing(const ContentFile&, std::int32_t) { return nullptr; }
  /// Where all of it lies that is shown in an area, at a scale in dots per inch.
  virtual Rect PlaceIn(const Rect& area, std::int32_t) const { return area; }
  /// What the note paints there, as far as it is seen in the area.
  virtual std::unique_ptr<SkinInlay> Inlay(const Rect&, const Rect&) const { return nullptr; }
  /// How much of a picture is seen; nullptr for other contents.
  virtual PictureZoom* Zoom() const { return nullptr; }
  virtual Size PictureSize() const { return {}; }
  /// A large picture is kept no larger than a screen, until it is drawn on.
  virtual bool HasAllPixels() const { return true; }

  /// Nothing for a content that cannot be scrolled.
  virtual std::optional<Point> ScrollPosition() const { return std::nullopt; }
  virtual void SetScrollPosition(Point) {}
  /// How far it is scrolled down in an area of this height.
  virtual ScrollState Scrolled(std::int32_t) const { return {}; }
  virtual void ScrollDownTo(std::int32_t) {}
  /// Turns pages, down for positive ones.
  virtual void ScrollPages(std::int32_t) {}
  /// How wide its longest line is when nothing is wrapped; nothing for a content without lines.
  virtual std::optional<std::int32_t> NaturalWidth() { return std::nullopt; }

  /// Lets the user look for words, in a strip inside the note.
  virtual void OpenFind(HWND, TextView) {}
  /// Whether the keys of a window in the note are that window's own.
  virtual bool OwnsKeysOf(HWND) const { return false; }
  /// The user has changed the text.
  virtual void OnTextChanged() {}

  /// Serves a WM_NOTIFY that the note was sent.
  virtual void OnNotify(const NMHDR&) {}
  /// Puts all of it on the clipboard, a text also with its formatting if `formatted`.
  virtual void PutOnClipboard(HWND owner, bool formatted, const ContentFile& file) const = 0;
};

}  // namespace jotlets
