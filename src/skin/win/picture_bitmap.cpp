#include "skin/win/picture_bitmap.h"

#include <cstring>

#include "ui/pixel_bitmap.h"

namespace jotlets {

bool PictureBitmap::Load(const Picture& picture) {
  PixelBitmap made = MakePixelBitmap(picture.size);
  bitmap_ = std::move(made.bitmap);
  size_ = {};
  if (!bitmap_) return false;
  std::memcpy(made.pixels, picture.pixels.data(), picture.pixels.size());
  pixels_ = made.pixels;
  size_ = picture.size;
  return true;
}

void PictureBitmap::Put(Point at, const Picture& part) {
  const Rect seen = CommonPart(RectAt(at, part.size), WholeOf(size_));
  if (!bitmap_ || IsEmptyRect(seen)) return;
  GdiFlush();
  const auto bytes = static_cast<std::size_t>(seen.Width()) * 4;
  for (std::int32_t y = seen.top; y < seen.bottom; ++y) {
    const auto to = static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width) +
                    static_cast<std::size_t>(seen.left);
    std::memcpy(pixels_ + to * 4, PixelPlace(part, seen.left - at.x, y - at.y), bytes);
  }
}

void PictureBitmap::Draw(HDC dc, const Rect& area) const {
  if (!bitmap_ || area.Width() <= 0 || area.Height() <= 0) return;
  const UniqueDc memory(CreateCompatibleDC(dc));
  const Selected selected(memory.get(), bitmap_.get());
  const Size fitted = FittedSize(size_, {area.Width(), area.Height()});
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  GdiAlphaBlend(dc, area.left, area.top, fitted.width, fitted.height, memory.get(), 0, 0, size_.width,
                size_.height, blend);
}

}  // namespace jotlets
