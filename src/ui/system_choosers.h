// The system's own dialogs for colours, files and folders.
#pragma once

#include <windows.h>

#include <optional>

#include "base/geometry.h"
#include "base/text.h"
#include "ui/resources.h"

namespace jotlets {

/// A colour that the user chooses, beginning with `colour`; nothing when it was cancelled.
std::optional<Colour> ChooseSystemColour(HWND owner, Colour colour);

/// A file to write or to read, its full path, empty when it was cancelled. `filter` is pairs of a name and a
/// pattern, each ended by "|"; `extension` comes behind a name without one.
Text ChooseFileToSave(HWND owner, const Text& filter, const Text& extension, const Text& name);
/// The same where nothing is asked about a file that is there: it is not written over.
Text ChooseNewFile(HWND owner, const Text& filter, const Text& extension, const Text& name);
Text ChooseFileToOpen(HWND owner, const Text& filter);
/// A folder that the user chooses, its path ending in "\"; empty when there is none to go to (none chosen, or
/// the present one).
Text ChooseFolder(HWND owner, const Resources& resources, UINT question, TextView present);

}  // namespace jotlets
