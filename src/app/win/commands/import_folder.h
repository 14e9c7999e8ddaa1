// The dialog side of importing notes: which folder or file, how far it is, what could not be taken.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "desk/folder_import.h"
#include "ui/resources.h"

namespace jotlets {

/// Makes stored notes of the folder or file at `path`; their keys. Asks which where that is empty.
std::vector<std::int64_t> ImportNotes(HWND owner, const Resources& resources, const Text& path,
                                      const FolderImport::Context& context);

}  // namespace jotlets
