// The PNG reader and writer over libpng, and pictures made to fit.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "picture/pixels.h"

namespace jotlets {

/// How a part of a picture is stretched: each pixel is the nearest one of the part, or mixed from the four
/// around its place. A key colour is never mixed.
enum class Sampling : std::uint8_t { kNearest, kMixed };

/// Decodes a PNG; nothing when the bytes are no PNG, are damaged, or hold more pixels than `mostPixels`.
std::optional<Picture> DecodePng(std::string_view bytes, std::int64_t mostPixels = kMaxPicturePixels);

/// Encodes a picture as a PNG; empty when that fails.
std::string EncodePng(const Picture& picture);

/// The size that a PNG says it has, without decoding it; nothing when the bytes are no PNG.
std::optional<Size> SizeOfPng(std::string_view bytes);

/// A picture made small enough to fit into `most`, each pixel the mean of those that it stands for.
Picture Shrunk(Picture picture, Size most);

/// Where a picture of this size is shown in an area of a window at a scale, in dots per inch: as large as the
/// scale makes it, from the top-left corner, or made smaller to fit, in the middle.
Rect PicturePlace(Size size, const Rect& area, std::int32_t dpi);

}  // namespace jotlets
