// What the first bytes of a picture file say, without decoding it: so a picture that is too large is refused
// before anything is made of it.
#pragma once

#include <optional>
#include <string_view>

#include "picture/orientation.h"

namespace jotlets {

enum class PictureFormat : std::uint8_t { kPng, kJpeg, kGif, kBmp, kTiff, kIcon, kWebp };

struct PictureHeader {
  PictureFormat format = PictureFormat::kPng;
  Size size;  // before it is oriented; of an icon its largest picture
  /// What a camera says has to be done to it (JPEG and TIFF).
  Orientation orientation = Orientation::kAsItIs;
};

/// Nothing for bytes of another kind, or where the size does not stand or is none. Any bytes may come.
std::optional<PictureHeader> ReadPictureHeader(std::string_view bytes);

}  // namespace jotlets
