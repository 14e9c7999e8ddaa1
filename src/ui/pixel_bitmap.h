// Bitmaps whose pixels the program writes itself.
#pragma once

#include <windows.h>

#include "base/geometry.h"
#include "ui/handle.h"

namespace jotlets {

/// 32 bits a pixel, top row first, without gaps, all zero; the pixels are the bitmap's.
struct PixelBitmap {
  UniqueBitmap bitmap;  // nullptr when the system could not make one
  std::uint8_t* pixels = nullptr;
};

PixelBitmap MakePixelBitmap(Size size);

}  // namespace jotlets
