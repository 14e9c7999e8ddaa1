// What the rich-edit control of this system can be given, and what is on its way to it.
#pragma once

#include <windows.h>

#include "data/rtf_bounds.h"

namespace jotlets {

const EditorBounds& BoundsOfEditor();

/// The beginning of a text as the control can show it, however long its lines and whatever signs are in it.
Text ShowableWords(TextView text);

/// Whether the clipboard can be pasted as `format`, which becomes plain text where the rich one must not be
/// given to the control.
bool FindPastable(HWND edit, UINT& format);

}  // namespace jotlets
