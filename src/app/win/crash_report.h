// What is left of a run that ended by a fault: a small file in the data folder, which the next start tells
// of.
#pragma once

#include <vector>

#include "base/files.h"
#include "base/log.h"
#include "base/text.h"

namespace jotlets {

/// From now on a fault that nobody handles writes "crash-" and the time with the extension ".txt": the code,
/// the version, and where the program was, as offsets in its modules.
void CatchCrashes();

/// Where the file goes; until then there is none.
void SetCrashFolder(TextView dataFolder);

/// The reports that nobody has been told of. They keep their text under names that begin with "crashed-".
std::vector<Text> CollectCrashReports(Files& files, Log& log, TextView dataFolder);

}  // namespace jotlets
