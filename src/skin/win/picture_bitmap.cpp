#include "skin/win/picture_bitmap.h"

#include <cstring>

namespace jotlets {

bool PictureBitmap::Load(const Picture& picture) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = picture.size.width;
  info.bmiHeader.biHeight = -picture.size.height;  // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* pixels = nullptr;
  bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  size_ = {};
  if (!bitmap_) return false;
  std::memcpy(pixels, picture.pixels.data(), picture.pixels.size());
  pixels_ = static_cast<std::uint8_t*>(pixels);
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
