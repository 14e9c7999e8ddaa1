// Pictures on the clipboard.
#pragma once

#include <windows.h>

#include <string>

namespace jotlets {

/// Replaces what is on the clipboard by a picture, given as a PNG, in the forms that programs look for; false
/// when it could not be had.
bool PutPictureOnClipboard(HWND owner, const std::string& png);
/// Whether there is one to be had.
bool HasClipboardPicture();
/// The picture on the clipboard as a PNG; empty when it holds none that can be read.
std::string ClipboardPicture(HWND owner);

}  // namespace jotlets
