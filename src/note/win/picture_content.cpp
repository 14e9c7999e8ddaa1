#include "note/win/picture_content.h"

#include <utility>

#include "skin/win/clipboard.h"

namespace jotlets {
namespace {

constexpr std::int64_t kDecodedAtOnce = 4 * 1024 * 1024;  // pixels
constexpr Size kLargestShown{2560, 1600};

}  // namespace

bool PictureContent::Fits(std::string_view bytes) const { return bytes.starts_with("\x89PNG"); }

TextView PictureContent::Load(std::string_view bytes) {
  const auto size = SizeOfPng(bytes);
  const std::int64_t pixels = size ? std::int64_t{size->width} * size->height : 0;
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

std::unique_ptr<SkinInlay> PictureContent::Inlay(const Rect& area) const {
  DecodeNow();
  if (!picture_.IsLoaded()) return nullptr;
  return std::make_unique<PictureInlay>(picture_, area);
}

void PictureContent::PutOnClipboard(HWND owner, bool, const ContentFile& file) const {
  PutPictureOnClipboard(owner, file.bytes());
}

}  // namespace jotlets
