#include "note/win/picture_content.h"

#include <utility>

#include "picture/win/picture_clipboard.h"

namespace jotlets {
namespace {

constexpr std::int64_t kDecodedAtOnce = 4 * 1024 * 1024;  // pixels
constexpr Size kLargestShown{2560, 1600};

class WorkInlay final : public SkinInlay {
 public:
  WorkInlay(const PictureWork& work, const Rect& place, const Rect& seen)
      : work_(work), place_(place), seen_(seen) {}
  void Draw(HDC dc) const override { work_.Draw(dc, place_, seen_); }

 private:
  const PictureWork& work_;
  Rect place_;
  Rect seen_;
};

}  // namespace

bool PictureContent::Fits(std::string_view bytes) const { return bytes.starts_with("\x89PNG"); }

TextView PictureContent::Load(std::string_view bytes) {
  work_.reset();
  size_ = SizeOfPng(bytes).value_or(Size());
  const std::int64_t pixels = std::int64_t{size_.width} * size_.height;
  undecoded_ = pixels > kDecodedAtOnce && pixels <= kMaxPicturePixels ? bytes : std::string_view();
  if (!undecoded_.empty()) return {};
  const auto picture = DecodePng(bytes);
  return picture && picture_.Load(*picture) ? TextView() : TextView(u"no readable picture");
}

// A large picture takes its time and, as long as it is decoded, much memory: when it is first seen, one at a
// time, and what is kept is no larger than a screen.
void PictureContent::DecodeNow() const {
  if (undecoded_.empty()) return;
  auto picture = DecodePng(std::exchange(undecoded_, {}));
  if (picture) picture_.Load(Shrunk(std::move(*picture), kLargestShown));
}

PictureWork* PictureContent::BeginDrawing(const ContentFile& file, std::int32_t steps) {
  if (work_) return work_.get();
  auto parts = PartsOf(file.bytes(), file.objects());
  if (!parts) return nullptr;
  work_ = std::make_unique<PictureWork>(*std::move(parts), steps);
  saved_ = work_->Version();
  undecoded_ = {};
  picture_ = {};
  return work_.get();
}

ContentBytes PictureContent::BytesToSave() const {
  if (!HasUnsavedChanges()) return {};
  const PictureFiles& made = work_->Files();
  if (made.png.empty()) return {FileStatus::Failed(u"the picture could not be written as PNG"), {}, {}};
  return {{}, made.png, made.objects};
}

ContentCopy PictureContent::Copy(bool) const {
  if (!HasUnsavedChanges()) return {};
  return {work_->Files().png, {}};
}

Rect PictureContent::PlaceIn(const Rect& area, std::int32_t dpi) const {
  return zoom_.Place({PictureSize(), area, dpi});
}

Size PictureContent::PictureSize() const { return work_ ? work_->PictureSize() : size_; }

std::unique_ptr<SkinInlay> PictureContent::Inlay(const Rect& place, const Rect& seen) const {
  if (work_) return std::make_unique<WorkInlay>(*work_, place, seen);
  DecodeNow();
  if (!picture_.IsLoaded()) return nullptr;
  return std::make_unique<PictureInlay>(picture_, place, seen);
}

void PictureContent::PutOnClipboard(HWND owner, bool, const ContentFile& file) const {
  PutPictureOnClipboard(owner, work_ ? work_->Files().png : file.bytes());
}

}  // namespace jotlets
