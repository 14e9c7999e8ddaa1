// The dialog side of importing notes: which folder or file, how far it is, what could not be taken.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "desk/folder_import.h"
#include "ui/resources.h"

namespace jotlets {

/// Asks whether a folder or a file is meant, and which, and makes stored notes of it; their keys.
std::vector<std::int64_t> ImportNotes(HWND owner, const Resources& resources,
                                      const FolderImport::Context& context);

}  // namespace jotlets
