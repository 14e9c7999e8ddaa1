// The clipboard as commands of other programs use it, for notes that need not have the focus.
#pragma once

#include <windows.h>

#include <string>

#include "base/text.h"

namespace jotlets {

/// Replaces what is on the clipboard by the same content as rich text and as plain text; false when it could
/// not be had, as while another program holds it.
bool PutTextOnClipboard(HWND owner, TextView plain, const std::string& rtf);
/// Replaces it by a picture, given as a PNG, in the forms that programs look for.
bool PutPictureOnClipboard(HWND owner, const std::string& png);

/// Whether there is one to be had.
bool HasClipboardPicture();
/// The picture on the clipboard as a PNG; empty when it holds none that can be read.
std::string ClipboardPicture(HWND owner);

}  // namespace jotlets
