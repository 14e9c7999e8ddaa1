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
  if (!bitmap_) return false;
  std::memcpy(pixels, picture.pixels.data(), picture.pixels.size());
  size_ = picture.size;
  return true;
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
