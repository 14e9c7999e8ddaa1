// The clipboard, put and read by the program itself, for notes that need not have the focus.
#pragma once

#include <windows.h>

#include <span>
#include <string>

#include "base/text.h"

namespace jotlets {

/// The same content in one of the forms that programs look for.
struct ClipboardItem {
  UINT format;
  std::string bytes;
};

/// Replaces what is on the clipboard; false when it could not be had, as while another program holds it.
bool PutOnClipboard(HWND owner, std::span<const ClipboardItem> items);
/// Replaces it by the same content as rich text, unless that is empty, and as plain text.
bool PutTextOnClipboard(HWND owner, TextView plain, const std::string& rtf);
/// What is there in the first of these formats that is; empty for none.
ClipboardItem ReadClipboard(HWND owner, std::span<const UINT> formats);

}  // namespace jotlets
