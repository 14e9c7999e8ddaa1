// Moving the data folder to another place.
#pragma once

#include <windows.h>

#include "base/files.h"
#include "base/log.h"
#include "ui/resources.h"

namespace jotlets {

/// Asks the user for a folder; empty when there is none to move to (none chosen, or the present one).
Text ChooseDataFolder(HWND owner, const Resources& resources, UINT question, TextView present);

/// Points the registry value at the new folder and copies the data set there. A folder that holds a data file
/// already is refused, and after a failed copy the registry value is as before: the data never seems lost.
/// When it went well, the program is to be started anew.
FileStatus MoveData(Files& files, Log& log, TextView fromFolder, TextView toFolder);

}  // namespace jotlets
