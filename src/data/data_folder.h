// Where the data folder is, what lies in it, and copying it as a whole.
#pragma once

#include <array>

#include "base/files.h"
#include "base/text.h"

namespace jotlets {

inline constexpr TextView kDataFileName = u"jotlets.ini";
inline constexpr TextView kOptionsFileName = u"options.ini";
inline constexpr TextView kFriendsFileName = u"friends.ini";
inline constexpr TextView kExitCopyName = u"jotlets.bye";
inline constexpr TextView kSafetyCopyName = u"jotlets.bak";
inline constexpr TextView kJournalName = u"jotlets.jnl";
/// Who works with the folder, for whoever finds it in use.
inline constexpr TextView kUserFileName = u"jotlets.usr";
/// The contents whose loading has ended the program.
inline constexpr TextView kTrialsName = u"jotlets.try";
inline constexpr TextView kStoreFileName = u"store.mdb";
/// What undoes a change of the store that was cut off.
inline constexpr TextView kStoreJournalName = u"store.mdb-journal";
inline constexpr TextView kActivityLogName = u"activity.log";
inline constexpr TextView kRtfFolder = u"rtf\\";
inline constexpr TextView kImagesFolder = u"images\\";
inline constexpr TextView kBackupsFolder = u"backups\\";
inline constexpr TextView kSkinsFolder = u"skins\\";
inline constexpr TextView kDefaultRtfName = u"default.rtf";
inline constexpr TextView kDefaultPngName = u"default.png";

/// What is known about this machine and user when the data folder is looked for; folders with or without a
/// separator at the end.
struct DataFolderFacts {
  Text registryPath;  // the value "Path" of "Software\Brask\jotlets", empty when there is none
  Text profileFolder;
  Text programFolder;
  Text applicationDataFolder;
};

/// Whether a path names a folder whatever the current folder and drive are.
bool IsFullPath(TextView path);

/// The folder that the registry value names, ending in "\"; empty for none.
Text NamedDataFolder(const DataFolderFacts& facts);

/// The data folder, ending in "\": the folder of the registry value, else the program's own, whichever first
/// holds "jotlets.ini" or "store.mdb"; else "jotlets\" in the application-data folder. In the registry value
/// "%PROFILE%" and the one character after it stand for the profile folder.
Text FindDataFolder(const DataFolderFacts& facts, const Files& files);

/// Of the file beside a picture that has what was drawn on it and can still be changed.
inline constexpr TextView kObjectsExtension = u".jdr";

/// The folders of content files, and the extension of the files in each.
struct ContentFolder {
  TextView folder;
  TextView extension;
};
inline constexpr std::array<ContentFolder, 3> kContentFolders = {
    {{kImagesFolder, u".png"}, {kImagesFolder, kObjectsExtension}, {kRtfFolder, u".rtf"}}};

/// The files of the data set that are there, as paths inside the data folder: every picture, with what is
/// drawn on it, every rich text, the data, options and friends files, the store, and what travels with them,
/// skins among it.
std::vector<Text> DataSetFiles(const Files& files, TextView dataFolder);

/// Creates a folder with the folders that files of the data set are in.
FileStatus MakeContentFolders(Files& files, TextView folder);

/// Creates the data folder's sub-folders.
FileStatus MakeDataFolders(Files& files, TextView dataFolder);

/// The paths of what writes that were cut off have left, "<file>.<16 hexadecimal digits>.new", and of what is
/// being written right now.
std::vector<Text> LeftoversIn(const Files& files, TextView dataFolder);

/// Copies the data set from one data folder to another, creating it; the first file that cannot be copied
/// ends it.
FileStatus CopyDataSet(Files& files, TextView fromFolder, TextView toFolder);

}  // namespace jotlets
