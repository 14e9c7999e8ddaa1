// What the program asks Windows about this user: folders, the registry's data-folder value.
#pragma once

#include "base/files.h"
#include "data/data_folder.h"

namespace jotlets {

DataFolderFacts GatherDataFolderFacts();

/// Writes the data folder as the value "Path" of "Software\Brask\jotlets" of the current user; an empty one
/// removes the value.
FileStatus WriteRegistryPath(TextView folder);

/// Whether the system starts this program when the user signs in, and having it do so.
bool IsStartedWithWindows();
FileStatus WriteStartWithWindows(bool starts);

/// A number that tells this run of the program from others.
std::uint32_t InstanceNumber();

/// The user of this session and the machine, for people to read.
Text UserAndMachine();

}  // namespace jotlets
