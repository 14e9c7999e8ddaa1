#include "ui/pixel_bitmap.h"

namespace jotlets {

PixelBitmap MakePixelBitmap(Size size) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.width;
  info.bmiHeader.biHeight = -size.height;  // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* pixels = nullptr;
  UniqueBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  return {std::move(bitmap), static_cast<std::uint8_t*>(pixels)};
}

}  // namespace jotlets
