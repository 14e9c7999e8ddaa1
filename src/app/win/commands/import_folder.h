// The dialog side of importing a folder: which one, how far it is, what could not be taken.
#pragma once

#include <windows.h>

#include "desk/folder_import.h"
#include "ui/resources.h"

namespace jotlets {

void ImportFolder(HWND owner, const Resources& resources, const FolderImport::Context& context);

}  // namespace jotlets
