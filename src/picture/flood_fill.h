// The area of one colour around a place.
#pragma once

#include <vector>

#include "picture/effects.h"

namespace jotlets {

/// Some of the pixels of a picture.
struct PixelSet {
  Size size;                  // of the picture
  Rect bounds;                // no pixel outside is among them
  std::vector<bool> members;  // width * height

  bool Has(std::int32_t x, std::int32_t y) const {
    return members[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width) +
                   static_cast<std::size_t>(x)];
  }
};

/// The pixels that are reached from `start` by going right, left, up and down over pixels of which no channel
/// differs from that of the start by more than `tolerance`. None when the start lies outside or it was
/// cancelled.
PixelSet FloodedPixels(const Picture& picture, Point start, std::int32_t tolerance,
                       const Cancelled& cancelled = {});

/// Gives the pixels an opaque colour.
void FillPixels(Picture& picture, const PixelSet& pixels, Colour colour);

}  // namespace jotlets
