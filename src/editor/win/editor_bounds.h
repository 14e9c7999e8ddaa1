// What the rich-edit control of this system can be given, and what is on its way to it.
#pragma once

#include <windows.h>

#include "data/rtf_bounds.h"

namespace jotlets {

const EditorBounds& BoundsOfEditor();

/// Whether the clipboard can be pasted as `format`, which becomes plain text where the rich one must not be
/// given to the control.
bool FindPastable(HWND edit, UINT& format);

}  // namespace jotlets
