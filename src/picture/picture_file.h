// Pictures from outside, as the content of picture notes.
#pragma once

#include <string>
#include <string_view>

namespace jotlets {

/// The PNG bytes of a picture file, PNG or BMP; empty for bytes that are neither, or damaged.
std::string PngOfPicture(std::string_view bytes);

/// A BMP file of a device-independent bitmap as the clipboard holds it, without a file header; what follows
/// from it is checked by the reader of BMP files.
std::string BmpOfClipboard(std::string_view bitmap);

/// The device-independent bitmap that the clipboard is given for a PNG, without a file header, what is
/// transparent in it in white; empty for bytes that are no PNG.
std::string ClipboardOfPng(std::string_view png);

}  // namespace jotlets
