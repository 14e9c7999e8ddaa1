#include "picture/pixels.h"

#include <utility>

namespace jotlets {
namespace {

std::uint8_t Divided(std::uint8_t colour, std::uint8_t alpha) {
  return alpha == 0 ? std::uint8_t{0}
                    : static_cast<std::uint8_t>(std::min(255, (colour * 255 + alpha / 2) / alpha));
}

std::uint8_t Multiplied(std::uint8_t colour, std::uint8_t alpha) {
  return static_cast<std::uint8_t>((colour * alpha + 127) / 255);
}

template <typename Change>
void ChangeColours(std::vector<std::uint8_t>& pixels, Change change) {
  for (std::size_t at = 0; at + 3 < pixels.size(); at += 4) {
    const std::uint8_t alpha = pixels[at + 3];
    if (alpha == 255) continue;
    for (std::size_t colour = 0; colour < 3; ++colour)
      pixels[at + colour] = change(pixels[at + colour], alpha);
  }
}

}  // namespace

bool IsPictureSize(Size size) {
  return size.width > 0 && size.height > 0 && size.width <= kMaxPicturePixels / size.height;
}

Picture BlankPicture(Size size) {
  if (!IsPictureSize(size)) return {};
  return {size, std::vector<std::uint8_t>(static_cast<std::size_t>(size.width) *
                                          static_cast<std::size_t>(size.height) * 4)};
}

Picture Premultiplied(StraightPicture picture) {
  ChangeColours(picture.pixels, Multiplied);
  return {picture.size, std::move(picture.pixels)};
}

StraightPicture Straight(Picture picture) {
  ChangeColours(picture.pixels, Divided);
  return {picture.size, std::move(picture.pixels)};
}

Picture PartOf(const Picture& picture, const Rect& area) {
  const Rect part = CommonPart(area, WholeOf(picture.size));
  Picture copy = BlankPicture({part.Width(), part.Height()});
  const auto bytes = static_cast<std::size_t>(copy.size.width) * 4;
  for (std::int32_t y = 0; y < copy.size.height; ++y)
    std::memcpy(PixelPlace(copy, 0, y), PixelPlace(picture, part.left, part.top + y), bytes);
  return copy;
}

void PutPart(Picture& picture, Point at, const Picture& part) {
  const Rect target = CommonPart(RectAt(at, part.size), WholeOf(picture.size));
  const auto bytes = static_cast<std::size_t>(target.Width()) * 4;
  for (std::int32_t y = target.top; y < target.bottom; ++y)
    std::memcpy(PixelPlace(picture, target.left, y), PixelPlace(part, target.left - at.x, y - at.y), bytes);
}

std::optional<Colour> ColourAt(const Picture& picture, Point at) {
  if (!WholeOf(picture.size).Contains(at)) return std::nullopt;
  const std::uint8_t* pixel = PixelPlace(picture, at.x, at.y);
  if (pixel[3] == 0) return std::nullopt;
  return Colour{Divided(pixel[2], pixel[3]), Divided(pixel[1], pixel[3]), Divided(pixel[0], pixel[3])};
}

}  // namespace jotlets
