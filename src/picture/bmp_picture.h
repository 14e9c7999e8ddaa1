// Picture sheets of skins: the BMP reader, and the choice between it and PNG.
#pragma once

#include <optional>
#include <string_view>

#include "picture/picture.h"

namespace jotlets {

/// Sheets above this many pixels are refused.
inline constexpr std::int64_t kMaxSheetPixels = 16 * 1024 * 1024;

/// Decodes an uncompressed BMP of 1, 4, 8, 16, 24 or 32 bits, or one of 16 or 32 bits with colour masks;
/// nothing when the bytes are none, are cut short, or hold more than `maximum` pixels. Alpha counts when any
/// pixel has some: most writers leave it 0 throughout and mean opaque.
std::optional<Picture> DecodeBmp(std::string_view bytes, std::int64_t maximum = kMaxSheetPixels);

/// Decodes a sheet, PNG or BMP by its first bytes, of at most `kMaxSheetPixels`.
std::optional<Picture> DecodePicture(std::string_view bytes);

}  // namespace jotlets
