// The system's own dialogs for colours, fonts and files.
#pragma once

#include <windows.h>

#include <optional>

#include "base/geometry.h"
#include "base/text.h"
#include "note/win/edit_format.h"

namespace jotlets {

/// A colour that the user chooses, beginning with `colour`; nothing when it was cancelled.
std::optional<Colour> ChooseSystemColour(HWND owner, Colour colour);

/// A font that the user chooses, beginning with `style`; nothing when it was cancelled.
std::optional<FontStyle> ChooseSystemFont(HWND owner, const FontStyle& style);

/// A file to write or to read, its full path, empty when it was cancelled. `filter` is pairs of a name and a
/// pattern, each ended by "|"; `extension` comes behind a name without one.
Text ChooseFileToSave(HWND owner, const Text& filter, const Text& extension, const Text& name);
Text ChooseFileToOpen(HWND owner, const Text& filter);

}  // namespace jotlets
