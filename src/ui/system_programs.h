// The system's own programs, by their full paths: one of the same name that lies beside a document or beside
// us is never started.
#pragma once

#include <windows.h>

#include "base/text.h"

namespace jotlets {

/// Shows a file in the explorer, selected in its folder and not opened; false when that could not be started.
bool ShowInExplorer(HWND owner, TextView path);

/// Shows a page of the program's own, by its full path, in the user's browser; false when that could not be
/// started. Never for a path that came from outside: the system starts whatever is registered for a file.
bool OpenOwnPage(HWND owner, const Text& path);

/// Opens a text file in the system's editor; false when that could not be started.
bool OpenInNotepad(HWND owner, TextView path);

}  // namespace jotlets
