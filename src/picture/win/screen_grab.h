// Pictures of the screen.
#pragma once

#include "picture/pixels.h"
#include "ui/pixel_bitmap.h"

namespace jotlets {

/// What is seen in an area of the screen now; without a bitmap when the system gives none.
PixelBitmap GrabScreen(const Rect& area);

/// A part of such a picture, opaque. `size` is that of all of it.
Picture PartOfGrab(const PixelBitmap& grabbed, Size size, const Rect& part);

}  // namespace jotlets
