// Writing the data folder's files.
#pragma once

#include <span>

#include "base/code_page.h"
#include "base/files.h"
#include "data/data_file.h"

namespace jotlets {

/// Writes a data file as a whole: after any failure or kill the old file stands. `lines` are those of the
/// former save.
FileStatus SaveDataFile(Files& files, TextView path, const DataFileView& view, RecordLines& lines);

/// Writes the options file.
FileStatus SaveOptionsFile(Files& files, TextView path, const Options& options);

/// Writes the friends that an older data file held (its [Friends] lines) to "friends.ini" of the data folder,
/// unless that file is there already.
FileStatus MoveFriends(Files& files, TextView dataFolder, std::span<const Text> friendLines);

}  // namespace jotlets
