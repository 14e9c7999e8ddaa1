// Picture files of every kind that the system can read.
#pragma once

#include <string>
#include <string_view>

namespace jotlets {

/// The PNG bytes of a picture file, upright as its camera says; empty for bytes that hold no picture, a
/// damaged one, or one of more than `kMaxPicturePixels`. PNG and BMP are read here, all else by the system.
std::string PngOfAnyPicture(std::string_view bytes);

}  // namespace jotlets
