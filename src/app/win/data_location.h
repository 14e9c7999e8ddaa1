// Moving the data folder to another place.
#pragma once

#include "base/files.h"
#include "base/log.h"

namespace jotlets {

/// Points the registry value at the new folder and copies the data set there. A folder that holds a data file
/// already is refused, and after a failed copy the registry value is as before: the data never seems lost.
/// When it went well, the program is to be started anew.
FileStatus MoveData(Files& files, Log& log, TextView fromFolder, TextView toFolder);

}  // namespace jotlets
