// The system's own programs, by their full paths: one of the same name that lies beside a document or beside
// us is never started.
#pragma once

#include <windows.h>

#include "base/text.h"

namespace jotlets {

/// Shows a file in the explorer, selected in its folder and not opened; false when that could not be started.
bool ShowInExplorer(HWND owner, TextView path);

/// Opens a text file in the system's editor; false when that could not be started.
bool OpenInNotepad(HWND owner, TextView path);

}  // namespace jotlets
