// What the rich-edit control of this system can be given, and what is on its way to it.
#pragma once

#include <windows.h>

#include <string>

#include "data/rtf_bounds.h"

namespace jotlets {

const EditorBounds& BoundsOfEditor();

/// The bytes of the clipboard in a format, without what stands behind the end of a text; empty for none.
std::string ClipboardBytes(HWND window, UINT format);

}  // namespace jotlets
