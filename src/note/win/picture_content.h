// The picture of a note, which the note paints.
#pragma once

#include "note/win/picture_work.h"
#include "note/win/shown_content.h"

namespace jotlets {

/// As long as nobody draws on it a picture is its file, shown; then it is a work whose file is made anew.
class PictureContent final : public ShownContent {
 public:
  TextView Extension() const override { return u"png"; }
  bool Fits(std::string_view bytes) const override;
  TextView Load(std::string_view bytes) override;
  bool IsWhole() const override { return work_ || picture_.IsLoaded() || !undecoded_.empty(); }
  bool HasUnsavedChanges() const override { return work_ && work_->Version() != saved_; }
  void SetUnsavedChanges(bool unsaved) override { saved_ = work_ && !unsaved ? work_->Version() : 0; }
  ContentBytes BytesToSave() const override;
  ContentCopy Copy(bool) const override;
  Text PlainText() const override { return {}; }
  Text RichText() const override { return {}; }
  Text TitleWords() const override { return {}; }
  bool SetPlainText(TextView) override { return false; }
  bool SetRichText(TextView) override { return false; }
  void Paste(bool) override {}
  void PasteAtEnd(bool) override {}

  PictureWork* Drawing() const override { return work_.get(); }
  PictureWork* BeginDrawing(const ContentFile& file, std::int32_t steps) override;

  Rect PlaceIn(const Rect& area, std::int32_t dpi) const override;
  std::unique_ptr<SkinInlay> Inlay(const Rect& place, const Rect& seen) const override;
  PictureZoom* Zoom() const override { return &zoom_; }
  Size PictureSize() const override;
  bool HasAllPixels() const override { return work_ || PictureSize() == picture_.PixelSize(); }
  void PutOnClipboard(HWND owner, bool formatted, const ContentFile& file) const override;

 private:
  void DecodeNow() const;

  mutable PictureBitmap picture_;
  mutable PictureZoom zoom_;  // how it is looked at is no part of what it is
  Size size_;
  std::unique_ptr<PictureWork> work_;
  std::uint64_t saved_ = 0;        // the version of the work that its file has
  mutable std::string undecoded_;  // the file of a large picture that nobody has seen yet
};

}  // namespace jotlets
