// Writing the data folder's files.
#pragma once

#include "base/code_page.h"
#include "base/files.h"
#include "data/data_file.h"

namespace jotlets {

/// The bytes of a data file as a text, see `MarkedBytes`. `lines` are those of the former save.
Text MarkedDataFile(const DataFileView& view, RecordLines& lines);

/// Writes the options file.
FileStatus SaveOptionsFile(Files& files, TextView path, const Options& options);

}  // namespace jotlets
