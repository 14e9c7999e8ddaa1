// The picture of a note, which the note paints.
#pragma once

#include "note/win/shown_content.h"
#include "skin/win/picture_bitmap.h"

namespace jotlets {

/// A picture is changed by another content file alone: it never has anything to save.
class PictureContent final : public ShownContent {
 public:
  TextView Extension() const override { return u"png"; }
  bool Fits(std::string_view bytes) const override;
  TextView Load(std::string_view bytes) override;
  bool IsWhole() const override { return picture_.IsLoaded() || !undecoded_.empty(); }
  bool HasUnsavedChanges() const override { return false; }
  void SetUnsavedChanges(bool) override {}
  ContentBytes BytesToSave() const override { return {}; }
  ContentCopy Copy(bool) const override { return {}; }
  Text PlainText() const override { return {}; }
  Text RichText() const override { return {}; }
  Text TitleWords() const override { return {}; }
  bool SetPlainText(TextView) override { return false; }
  bool SetRichText(TextView) override { return false; }
  void Paste(bool) override {}
  void PasteAtEnd(bool) override {}

  std::unique_ptr<SkinInlay> Inlay(const Rect& area) const override;
  void PutOnClipboard(HWND owner, bool formatted, const ContentFile& file) const override;

 private:
  void DecodeNow() const;

  mutable PictureBitmap picture_;
  mutable std::string undecoded_;  // the file of a large picture that nobody has seen yet
};

}  // namespace jotlets
