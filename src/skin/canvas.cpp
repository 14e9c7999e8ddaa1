#include "skin/canvas.h"

#include <algorithm>
#include <cstring>

namespace jotlets {
namespace {

Rect Intersection(const Rect& a, const Rect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

bool IsEmpty(const Rect& area) { return area.left >= area.right || area.top >= area.bottom; }

// a * b / 255, rounded.
std::uint32_t Part(std::uint32_t a, std::uint32_t b) {
  const std::uint32_t product = a * b + 128;
  return (product + (product >> 8)) >> 8;
}

std::uint8_t Between(std::uint8_t from, std::uint8_t to, std::int64_t at, std::int64_t last) {
  return static_cast<std::uint8_t>(from + (std::int64_t{to} - from) * at / std::max<std::int64_t>(last, 1));
}

void Blend(std::uint8_t* pixel, Colour colour, std::uint8_t alpha) {
  const std::uint32_t rest = kOpaque - alpha;
  pixel[0] = static_cast<std::uint8_t>(Part(colour.b, alpha) + Part(pixel[0], rest));
  pixel[1] = static_cast<std::uint8_t>(Part(colour.g, alpha) + Part(pixel[1], rest));
  pixel[2] = static_cast<std::uint8_t>(Part(colour.r, alpha) + Part(pixel[2], rest));
}

void FillRow(std::uint8_t* from, std::int32_t count, Colour colour, std::uint8_t alpha) {
  if (alpha != kOpaque) {
    for (; count > 0; --count, from += 4) Blend(from, colour, alpha);
    return;
  }
  const std::uint8_t pixel[4] = {colour.b, colour.g, colour.r, kOpaque};
  for (; count > 0; --count, from += 4) std::memcpy(from, pixel, sizeof pixel);
}

}  // namespace

void Canvas::SetClip(const Rect& area) { clip_ = Intersection(clip_, area); }

void Canvas::Fill(const Rect& area, Colour colour, std::uint8_t alpha) {
  const Rect part = Intersection(area, clip_);
  if (IsEmpty(part)) return;
  for (std::int32_t y = part.top; y < part.bottom; ++y) {
    FillRow(Row(y) + static_cast<std::size_t>(part.left) * 4, part.Width(), colour, alpha);
  }
}

void Canvas::FillGradient(const Rect& area, Colour from, Colour to, bool downwards, std::uint8_t alpha) {
  const Rect part = Intersection(area, clip_);
  if (IsEmpty(part)) return;
  const auto colourAt = [&](std::int64_t at, std::int64_t last) {
    return Colour{Between(from.r, to.r, at, last), Between(from.g, to.g, at, last),
                  Between(from.b, to.b, at, last)};
  };
  if (downwards) {
    for (std::int32_t y = part.top; y < part.bottom; ++y) {
      Fill({part.left, y, part.right, y + 1},
           colourAt(std::int64_t{y} - area.top, std::int64_t{area.bottom} - area.top - 1), alpha);
    }
  } else {
    for (std::int32_t x = part.left; x < part.right; ++x) {
      Fill({x, part.top, x + 1, part.bottom},
           colourAt(std::int64_t{x} - area.left, std::int64_t{area.right} - area.left - 1), alpha);
    }
  }
}

Colour Tinted(Colour colour, Colour tint) {
  return {static_cast<std::uint8_t>(Part(colour.r, tint.r)),
          static_cast<std::uint8_t>(Part(colour.g, tint.g)),
          static_cast<std::uint8_t>(Part(colour.b, tint.b))};
}

// Puts single pixels of a sheet on to a canvas.
class PicturePen {
 public:
  PicturePen(Canvas& canvas, const SheetPart& part) : canvas_(canvas), part_(part) {}

  // `x` and `y` count from the corner of the part's source, and lie inside it.
  void Put(std::int32_t canvasX, std::int32_t canvasY, std::int32_t x, std::int32_t y) const {
    const std::uint8_t* from =
        PixelAt(std::int64_t{part_.source.left} + x, std::int64_t{part_.source.top} + y);
    if (from == nullptr) return;
    std::uint8_t* to = canvas_.Row(canvasY) + static_cast<std::size_t>(canvasX) * 4;
    if (IsKey(from)) {
      std::memcpy(to, from, 4);
      return;
    }
    const std::uint32_t opacity = Part(part_.alpha, MaskAt(x, y));
    if (opacity == 0) return;
    const std::uint32_t rest = kOpaque - Part(from[3], opacity);
    const Colour tint = part_.tint.value_or(Colour{255, 255, 255});
    const std::uint32_t tints[] = {tint.b, tint.g, tint.r};
    for (int channel = 0; channel < 3; ++channel) {
      const std::uint32_t colour = Part(Part(from[channel], tints[channel]), opacity);
      to[channel] = static_cast<std::uint8_t>(std::min<std::uint32_t>(colour + Part(to[channel], rest), 255));
    }
  }

  const Rect& Clip() const { return canvas_.clip_; }

 private:
  const std::uint8_t* PixelAt(std::int64_t x, std::int64_t y) const {
    const Size size = part_.sheet.size;
    if (x < 0 || y < 0 || x >= size.width || y >= size.height) return nullptr;
    return part_.sheet.pixels.data() + static_cast<std::size_t>(y * size.width + x) * 4;
  }
  bool IsKey(const std::uint8_t* pixel) const {
    return part_.key && pixel[3] == kOpaque && pixel[0] == part_.key->b && pixel[1] == part_.key->g &&
           pixel[2] == part_.key->r;
  }
  std::uint32_t MaskAt(std::int32_t x, std::int32_t y) const {
    if (!part_.mask) return kOpaque;
    const std::uint8_t* mask = PixelAt(std::int64_t{part_.mask->x} + x, std::int64_t{part_.mask->y} + y);
    // A mask is grey: any of its channels is its brightness.
    return mask == nullptr ? 0 : mask[1];
  }

  Canvas& canvas_;
  const SheetPart& part_;
};

void DrawPart(Canvas& canvas, const SheetPart& part, Point at) {
  TilePart(canvas, part, {at.x, at.y, at.x + part.source.Width(), at.y + part.source.Height()});
}

void TilePart(Canvas& canvas, const SheetPart& part, const Rect& area) {
  const std::int32_t width = part.source.Width();
  const std::int32_t height = part.source.Height();
  if (width <= 0 || height <= 0) return;
  const PicturePen pen(canvas, part);
  const Rect drawn = Intersection(area, pen.Clip());
  for (std::int32_t y = drawn.top; y < drawn.bottom; ++y) {
    for (std::int32_t x = drawn.left; x < drawn.right; ++x) {
      pen.Put(x, y, (x - area.left) % width, (y - area.top) % height);
    }
  }
}

void StretchPart(Canvas& canvas, const SheetPart& part, const Rect& area) {
  const std::int64_t width = part.source.Width();
  const std::int64_t height = part.source.Height();
  if (width <= 0 || height <= 0 || IsEmpty(area)) return;
  const PicturePen pen(canvas, part);
  const Rect drawn = Intersection(area, pen.Clip());
  for (std::int32_t y = drawn.top; y < drawn.bottom; ++y) {
    for (std::int32_t x = drawn.left; x < drawn.right; ++x) {
      pen.Put(x, y, static_cast<std::int32_t>((x - area.left) * width / area.Width()),
              static_cast<std::int32_t>((y - area.top) * height / area.Height()));
    }
  }
}

}  // namespace jotlets
