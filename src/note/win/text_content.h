// The text of a note, in its editor.
#pragma once

#include "note/win/find_strip.h"
#include "note/win/shown_content.h"

namespace jotlets {

class TextContent final : public ShownContent {
 public:
  /// `watcher` outlives the content.
  explicit TextContent(ContentWatcher& watcher)
      : watcher_(watcher), strip_(edit_, watcher, [this] { SetBounds(area_); }) {}

  TextView Extension() const override { return u"rtf"; }
  bool Fits(std::string_view bytes) const override;
  /// A file that holds no rich text is shown as the plain text that it is.
  TextView Load(std::string_view bytes) override;
  void LoadWords(std::string_view bytes, TextView notice) override;
  bool IsWhole() const override { return edit_.Handle() != nullptr && !edit_.ShowsBeginning(); }
  bool HasUnsavedChanges() const override { return unsaved_; }
  void SetUnsavedChanges(bool unsaved) override { unsaved_ = unsaved; }
  ContentBytes BytesToSave() const override;
  ContentCopy Copy(bool asPlainText) const override;
  Text PlainText() const override { return edit_.PlainText(); }
  Text RichText() const override;
  Text TitleWords() const override;
  bool SetPlainText(TextView text) override;
  bool SetRichText(TextView rtf) override;
  void Paste(bool formatted) override { formatted ? edit_.Paste() : edit_.PastePlain(); }
  void PasteAtEnd(bool formatted) override;

  void CreateIn(HWND note, const Look& look) override { edit_.Create(note, {}, look, watcher_); }
  HWND ContentWindow() const override { return edit_.Handle(); }
  BEdit* Editor() override { return edit_.Handle() == nullptr ? nullptr : &edit_; }
  bool TakesPresses() const override { return true; }
  void SetLook(const Look& look) override;
  void SetBackground(Colour colour) override;
  void SetPaper(Colour colour) override;
  void SetReadOnly(bool readOnly) override;
  void Show(bool shown) override;
  void SetBounds(const Rect& area) override;
  std::optional<Point> ScrollPosition() const override { return edit_.ScrollPosition(); }
  void SetScrollPosition(Point position) override { edit_.SetScrollPosition(position); }
  ScrollState Scrolled(std::int32_t areaHeight) const override;
  void ScrollDownTo(std::int32_t position) override;
  void ScrollPages(std::int32_t pages) override { edit_.ScrollBy(pages * edit_.PageHeight()); }
  std::optional<std::int32_t> NaturalWidth() override;
  void OpenFind(HWND note, TextView words) override { strip_.Open(note, words); }
  bool OwnsKeysOf(HWND window) const override;
  void OnTextChanged() override { strip_.Recount(); }
  void OnNotify(const NMHDR& header) override;
  void PutOnClipboard(HWND owner, bool formatted, const ContentFile& file) const override;

 private:
  void Changed();
  TextView Show(std::string_view rtf);

  ContentWatcher& watcher_;
  BEdit edit_;
  FindStrip strip_;
  Rect area_;          // of both
  std::string given_;  // rich text that was put in, and of which the editor shows no more than words
  bool unsaved_ = false;
};

}  // namespace jotlets
