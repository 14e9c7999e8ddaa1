#include "data/data_folder.h"

namespace jotlets {
namespace {

constexpr TextView kProfileMark = u"%PROFILE%";

// In the order in which a restore puts them back.
constexpr std::array kDataSetFiles = {kDataFileName,    kStoreFileName,          TextView(u"categories.png"),
                                      kOptionsFileName, kFriendsFileName,        kDefaultRtfName,
                                      kDefaultPngName,  TextView(u"borders.png")};

// What a skin is made of: packages, and loose ones with their pictures.
constexpr std::array kSkinExtensions = {TextView(u".jsk"), TextView(u".ini"), TextView(u".png"),
                                        TextView(u".bmp")};

bool HoldsData(const Files& files, const Text& folder) {
  return !folder.empty() &&
         (files.Exists(folder + Text(kDataFileName)) || files.Exists(folder + Text(kStoreFileName)));
}

Text ExpandProfile(Text path, TextView profileFolder) {
  const std::size_t mark = path.find(kProfileMark);
  if (mark != Text::npos) path.replace(mark, kProfileMark.size() + 1, WithSeparator(profileFolder));
  return path;
}

}  // namespace

bool IsFullPath(TextView path) {
  const auto separates = [path](std::size_t at) {
    return path.size() > at && (path[at] == u'\\' || path[at] == u'/');
  };
  return (separates(0) && separates(1)) || (path.size() > 1 && path[1] == u':' && separates(2));
}

Text NamedDataFolder(const DataFolderFacts& facts) {
  return WithSeparator(ExpandProfile(facts.registryPath, facts.profileFolder));
}

Text FindDataFolder(const DataFolderFacts& facts, const Files& files) {
  Text folder = NamedDataFolder(facts);
  if (HoldsData(files, folder)) return folder;
  folder = WithSeparator(facts.programFolder);
  if (HoldsData(files, folder)) return folder;
  return WithSeparator(facts.applicationDataFolder) + u"jotlets\\";
}

std::vector<Text> DataSetFiles(const Files& files, TextView dataFolder) {
  std::vector<Text> paths;
  for (const auto& [folder, extension] : kContentFolders) {
    for (const Text& name : files.List(Text(dataFolder).append(folder), extension)) {
      paths.push_back(Text(folder) + name);
    }
  }
  for (const TextView extension : kSkinExtensions) {
    for (const Text& name : files.List(Text(dataFolder).append(kSkinsFolder), extension)) {
      paths.push_back(Text(kSkinsFolder) + name);
    }
  }
  for (const TextView name : kDataSetFiles) {
    if (files.Exists(Text(dataFolder).append(name))) paths.emplace_back(name);
  }
  return paths;
}

FileStatus MakeContentFolders(Files& files, TextView folder) {
  FileStatus status = files.MakeFolder(folder);
  for (const TextView inner : {kImagesFolder, kRtfFolder, kSkinsFolder}) {
    if (status) status = files.MakeFolder(Text(folder).append(inner));
  }
  return status;
}

FileStatus MakeDataFolders(Files& files, TextView dataFolder) {
  FileStatus status = MakeContentFolders(files, dataFolder);
  if (status) status = files.MakeFolder(Text(dataFolder).append(kBackupsFolder));
  return status;
}

std::vector<Text> LeftoversIn(const Files& files, TextView dataFolder) {
  constexpr std::size_t kDigits = 16;
  std::vector<Text> leftovers;
  for (const TextView inner : {TextView(), kRtfFolder, kImagesFolder}) {
    const Text folder = Text(dataFolder).append(inner);
    for (const Text& name : files.List(folder, kNeighbourExtension)) {
      const TextView stem = TextView(name).substr(0, name.size() - kNeighbourExtension.size());
      const std::size_t dot = stem.rfind(u'.');
      if (dot == TextView::npos || stem.size() - dot - 1 != kDigits) continue;
      if (stem.find_first_not_of(u"0123456789ABCDEF", dot + 1) != TextView::npos) continue;
      leftovers.push_back(folder + name);
    }
  }
  return leftovers;
}

FileStatus CopyDataSet(Files& files, TextView fromFolder, TextView toFolder) {
  if (FileStatus made = MakeDataFolders(files, toFolder); !made) return made;
  for (const Text& path : DataSetFiles(files, fromFolder)) {
    if (FileStatus copied = files.Copy(Text(fromFolder) + path, Text(toFolder) + path); !copied)
      return copied;
  }
  return {};
}

}  // namespace jotlets
