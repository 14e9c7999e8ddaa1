// Decoded pictures, and the PNG reader and writer over libpng.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/geometry.h"

namespace jotlets {

/// Pixels top row first, without gaps: blue, green, red, alpha bytes, colours multiplied by alpha (the form
/// that alpha blending of the platform takes).
struct Picture {
  Size size;
  std::vector<std::uint8_t> pixels;  // width * height * 4
};

/// How a part of a picture is stretched: each pixel is the nearest one of the part, or mixed from the four
/// around its place. A key colour is never mixed.
enum class Sampling : std::uint8_t { kNearest, kMixed };

/// Pictures above this many pixels are refused: a small hostile file can claim any size.
inline constexpr std::int64_t kMaxPicturePixels = 64 * 1024 * 1024;

/// Decodes a PNG; nothing when the bytes are no PNG, are damaged, or hold more pixels than `mostPixels`.
std::optional<Picture> DecodePng(std::string_view bytes, std::int64_t mostPixels = kMaxPicturePixels);

/// Multiplies the colours of straight pixels by their alpha, as `Picture` holds them.
void MultiplyByAlpha(std::vector<std::uint8_t>& pixels);

/// Encodes a picture as a PNG; empty when that fails.
std::string EncodePng(const Picture& picture);

/// The size that a PNG says it has, without decoding it; nothing when the bytes are no PNG.
std::optional<Size> SizeOfPng(std::string_view bytes);

/// A picture made small enough to fit into `most`, each pixel the mean of those that it stands for.
Picture Shrunk(Picture picture, Size most);

/// `size` made smaller, keeping its proportions, until it fits into `area`; at least 1 by 1.
Size FittedSize(Size size, Size area);

}  // namespace jotlets
