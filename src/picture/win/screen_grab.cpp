#include "picture/win/screen_grab.h"

#include <windows.h>

#include <cstring>

namespace jotlets {

PixelBitmap GrabScreen(const Rect& area) {
  PixelBitmap grabbed = MakePixelBitmap({area.Width(), area.Height()});
  if (!grabbed.bitmap) return grabbed;
  const HDC screen = GetDC(nullptr);
  {
    const UniqueDc memory(CreateCompatibleDC(screen));
    const Selected selected(memory.get(), grabbed.bitmap.get());
    BitBlt(memory.get(), 0, 0, area.Width(), area.Height(), screen, area.left, area.top,
           SRCCOPY | CAPTUREBLT);
    GdiFlush();
  }
  ReleaseDC(nullptr, screen);
  return grabbed;
}

Picture PartOfGrab(const PixelBitmap& grabbed, Size size, const Rect& part) {
  const Rect seen = CommonPart(part, WholeOf(size));
  Picture picture = BlankPicture({seen.Width(), seen.Height()});
  if (!grabbed.bitmap || picture.pixels.empty()) return {};
  for (std::int32_t y = 0; y < picture.size.height; ++y) {
    const auto from = static_cast<std::size_t>(seen.top + y) * static_cast<std::size_t>(size.width) +
                      static_cast<std::size_t>(seen.left);
    std::uint8_t* row = PixelPlace(picture, 0, y);
    std::memcpy(row, grabbed.pixels + from * 4, static_cast<std::size_t>(picture.size.width) * 4);
    // The screen has no opacity.
    for (std::int32_t x = 0; x < picture.size.width; ++x) row[x * 4 + 3] = 255;
  }
  return picture;
}

}  // namespace jotlets
