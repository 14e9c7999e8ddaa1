// The clipboard as commands of other programs use it, for notes that need not have the focus.
#pragma once

#include <windows.h>

#include <span>
#include <string>

#include "base/text.h"

namespace jotlets {

struct ClipboardItem {
  UINT format;
  std::string bytes;
};

/// Replaces what is on the clipboard; false when it could not be had, as while another program holds it.
bool PutOnClipboard(HWND owner, std::span<const ClipboardItem> items);

/// The same content as rich text and as plain text.
bool PutTextOnClipboard(HWND owner, TextView plain, const std::string& rtf);
/// A picture, given as a PNG, in the forms that programs look for.
bool PutPictureOnClipboard(HWND owner, const std::string& png);

/// The picture on the clipboard as a PNG; empty when it holds none that can be read.
std::string ClipboardPicture(HWND owner);

}  // namespace jotlets
