#include "ui/icons.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "res/resource.h"
#include "ui/pixel_bitmap.h"

namespace jotlets {
namespace {

// The smallest sheet that need not be enlarged.
std::size_t SheetFor(int side) {
  const auto found = std::ranges::lower_bound(kIconSheets, side);
  return static_cast<std::size_t>(
      std::min(std::distance(std::begin(kIconSheets), found), std::ssize(kIconSheets) - 1));
}

// Those of the window thread, which alone draws.
HBITMAP Sheet(std::size_t index) {
  static std::array<UniqueBitmap, std::size(kIconSheets)> sheets;
  if (!sheets[index])
    sheets[index].reset(static_cast<HBITMAP>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDB_SIGNS + index), IMAGE_BITMAP, 0, 0, 0)));
  return sheets[index].get();
}

// What is white in the sheet becomes ink, multiplied by how white it is, as blending wants it.
void Colorize(std::uint32_t* pixels, int count, Colour ink) {
  for (int i = 0; i < count; ++i) {
    const std::uint32_t cover = pixels[i] & 0xFF;
    const auto part = [cover](std::uint8_t channel) {
      return static_cast<std::uint32_t>(channel) * cover / 255;
    };
    pixels[i] = cover << 24 | part(ink.r) << 16 | part(ink.g) << 8 | part(ink.b);
  }
}

}  // namespace

void DrawIcon(HDC dc, Icon icon, Point middle, int dpi, Colour ink) {
  if (icon == Icon::kNothing) return;
  const int shown = MulDiv(kIconSheets[0], dpi, 96);
  const std::size_t index = SheetFor(shown);
  const int side = kIconSheets[index];
  const HBITMAP sheet = Sheet(index);
  const PixelBitmap cell = MakePixelBitmap({side, side});
  const UniqueDc from(CreateCompatibleDC(dc));
  const UniqueDc to(CreateCompatibleDC(dc));
  if (sheet == nullptr || !cell.bitmap || !from || !to) return;
  const Selected source(from.get(), sheet);
  const Selected target(to.get(), cell.bitmap.get());
  BitBlt(to.get(), 0, 0, side, side, from.get(), 0, (static_cast<int>(icon) - 1) * side, SRCCOPY);
  GdiFlush();
  Colorize(reinterpret_cast<std::uint32_t*>(cell.pixels), side * side, ink);
  // In a mirrored window signs keep their own direction: a question mark has but one.
  const DWORD layout = GetLayout(dc);
  SetLayout(dc, layout | LAYOUT_BITMAPORIENTATIONPRESERVED);
  GdiAlphaBlend(dc, middle.x - shown / 2, middle.y - shown / 2, shown, shown, to.get(), 0, 0, side, side,
                {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
  SetLayout(dc, layout);
}

}  // namespace jotlets
