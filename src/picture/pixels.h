// Buffers of 32-bit pixels in two forms that are never mixed up, since they are two types; their places and
// colours.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

#include "base/geometry.h"

namespace jotlets {

enum class AlphaForm : std::uint8_t { kStraight, kPremultiplied };

/// Pixels top row first, without gaps: blue, green, red, alpha bytes.
template <AlphaForm form>
struct PixelBuffer {
  Size size;
  std::vector<std::uint8_t> pixels;  // width * height * 4
};

/// Colours multiplied by alpha, so that no colour exceeds its alpha: the form in which pictures are drawn,
/// changed and shown.
using Picture = PixelBuffer<AlphaForm::kPremultiplied>;
/// Colours as files hold them.
using StraightPicture = PixelBuffer<AlphaForm::kStraight>;

/// Pictures above this many pixels are refused: a small hostile file can claim any size.
inline constexpr std::int64_t kMaxPicturePixels = 64 * 1024 * 1024;

/// A pixel as one number: alpha in the highest byte, then red, green and blue.
using Pixel = std::uint32_t;

inline Pixel LoadPixel(const std::uint8_t* from) {
  Pixel pixel = 0;
  std::memcpy(&pixel, from, sizeof pixel);
  return pixel;
}
inline void StorePixel(std::uint8_t* to, Pixel pixel) { std::memcpy(to, &pixel, sizeof pixel); }

/// A product of two bytes that stand for 0 to 1, rounded.
constexpr std::uint32_t ByteProduct(std::uint32_t a, std::uint32_t b) {
  const std::uint32_t product = a * b + 128;
  return (product + (product >> 8)) >> 8;
}

/// A colour with an opacity, multiplied by it.
constexpr Pixel PremultipliedPixel(Colour colour, std::uint8_t alpha) {
  return std::uint32_t{alpha} << 24 | ByteProduct(colour.r, alpha) << 16 | ByteProduct(colour.g, alpha) << 8 |
         ByteProduct(colour.b, alpha);
}

/// `over` laid on `under`, both multiplied by their alpha, `over` weakened to `coverage` of 255.
inline Pixel Blended(Pixel under, Pixel over, std::uint32_t coverage) {
  constexpr std::uint32_t kPair = 0x00FF00FF;
  const auto weakened = [](Pixel pixel, std::uint32_t part) {
    std::uint32_t low = (pixel & kPair) * part + 0x00800080;
    std::uint32_t high = ((pixel >> 8) & kPair) * part + 0x00800080;
    low = ((low + ((low >> 8) & kPair)) >> 8) & kPair;
    high = (high + ((high >> 8) & kPair)) & ~kPair;
    return low | high;
  };
  const Pixel top = coverage == 255 ? over : weakened(over, coverage);
  return top + weakened(under, 255 - (top >> 24));
}

/// Whether a picture of this size can be: at least one pixel, and no more than `kMaxPicturePixels`.
bool IsPictureSize(Size size);

/// A transparent picture; an empty one, of no size, when that size cannot be.
Picture BlankPicture(Size size);

/// The pixel at a place inside of the picture.
template <AlphaForm form>
std::uint8_t* PixelPlace(PixelBuffer<form>& picture, std::int32_t x, std::int32_t y) {
  return picture.pixels.data() + (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.width) +
                                  static_cast<std::size_t>(x)) *
                                     4;
}
template <AlphaForm form>
const std::uint8_t* PixelPlace(const PixelBuffer<form>& picture, std::int32_t x, std::int32_t y) {
  return picture.pixels.data() + (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.width) +
                                  static_cast<std::size_t>(x)) *
                                     4;
}

/// The other form of the same pixels, made in their memory. Of a colour that is all but transparent little is
/// left in the premultiplied form, and nothing of one that is wholly so.
Picture Premultiplied(StraightPicture picture);
StraightPicture Straight(Picture picture);

/// The part of a picture inside `area`; an empty picture when nothing of it is.
Picture PartOf(const Picture& picture, const Rect& area);

/// Copies `part` to a place of `picture`; what lies outside is left out.
void PutPart(Picture& picture, Point at, const Picture& part);

/// The colour of the pixel at a place, without its opacity; nothing outside or where nothing is seen.
std::optional<Colour> ColourAt(const Picture& picture, Point at);

}  // namespace jotlets
