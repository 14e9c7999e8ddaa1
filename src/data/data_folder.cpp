#include "data/data_folder.h"

namespace jotlets {
namespace {

constexpr TextView kProfileMark = u"%PROFILE%";

constexpr std::array kDataSetFiles = {
    kDataFileName,   kOptionsFileName, kFriendsFileName,        kStoreFileName, TextView(u"categories.png"),
    kDefaultRtfName, kDefaultPngName,  TextView(u"borders.png")};

bool HoldsData(const Files& files, const Text& folder) {
  return !folder.empty() &&
         (files.Exists(folder + Text(kDataFileName)) || files.Exists(folder + Text(kStoreFileName)));
}

Text ExpandProfile(Text path, TextView profileFolder) {
  const std::size_t mark = path.find(kProfileMark);
  if (mark != Text::npos) path.replace(mark, kProfileMark.size() + 1, WithSeparator(profileFolder));
  return path;
}

FileStatus CopyFolder(Files& files, const Text& from, const Text& to, TextView extension) {
  for (const Text& name : files.List(from, extension)) {
    if (FileStatus copied = files.Copy(from + name, to + name); !copied) return copied;
  }
  return {};
}

}  // namespace

Text WithSeparator(TextView path) {
  Text folder(path);
  if (!folder.empty() && folder.back() != u'\\' && folder.back() != u'/') folder.push_back(u'\\');
  return folder;
}

Text FindDataFolder(const DataFolderFacts& facts, const Files& files) {
  Text folder = WithSeparator(ExpandProfile(facts.registryPath, facts.profileFolder));
  if (HoldsData(files, folder)) return folder;
  folder = WithSeparator(facts.programFolder);
  if (HoldsData(files, folder)) return folder;
  return WithSeparator(facts.applicationDataFolder) + u"jotlets\\";
}

FileStatus MakeDataFolders(Files& files, TextView dataFolder) {
  FileStatus status = files.MakeFolder(dataFolder);
  for (const TextView folder : {kRtfFolder, kImagesFolder, kBackupsFolder}) {
    if (status) status = files.MakeFolder(Text(dataFolder).append(folder));
  }
  return status;
}

FileStatus CopyDataSet(Files& files, TextView fromFolder, TextView toFolder) {
  const Text from(fromFolder);
  const Text to(toFolder);
  if (FileStatus made = MakeDataFolders(files, to); !made) return made;
  for (const auto& [folder, extension] :
       {std::pair(kImagesFolder, TextView(u".png")), std::pair(kRtfFolder, TextView(u".rtf"))}) {
    if (FileStatus copied = CopyFolder(files, from + Text(folder), to + Text(folder), extension); !copied) {
      return copied;
    }
  }
  for (const TextView name : kDataSetFiles) {
    const Text source = from + Text(name);
    if (!files.Exists(source)) continue;
    if (FileStatus copied = files.Copy(source, to + Text(name)); !copied) return copied;
  }
  return {};
}

}  // namespace jotlets
