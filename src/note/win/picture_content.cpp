#include "note/win/picture_content.h"

#include "skin/win/clipboard.h"

namespace jotlets {

bool PictureContent::Fits(std::string_view bytes) const { return bytes.starts_with("\x89PNG"); }

TextView PictureContent::Load(std::string_view bytes) {
  const auto picture = DecodePng(bytes);
  return picture && picture_.Load(*picture) ? TextView() : TextView(u"no readable picture");
}

std::unique_ptr<SkinInlay> PictureContent::Inlay(const Rect& area) const {
  if (!picture_.IsLoaded()) return nullptr;
  return std::make_unique<PictureInlay>(picture_, area);
}

void PictureContent::PutOnClipboard(HWND owner, bool, const ContentFile& file) const {
  PutPictureOnClipboard(owner, file.bytes());
}

}  // namespace jotlets
