#include "app/win/data_location.h"

#include "app/win/system_facts.h"
#include "data/data_folder.h"

namespace jotlets {
FileStatus MoveData(Files& files, Log& log, TextView fromFolder, TextView toFolder) {
  const Text to(toFolder);
  if (files.Exists(to + Text(kDataFileName))) return FileStatus::Failed(to + Text(kDataFileName));
  const Text before = GatherDataFolderFacts().registryPath;
  if (FileStatus set = WriteRegistryPath(to); !set) return set;
  log.Write(kLogLifecycle, u"Registry value set to: ", to);
  if (FileStatus copied = CopyDataSet(files, fromFolder, to); !copied) {
    WriteRegistryPath(before);
    log.Write(kLogLifecycle, u"Data not copied, registry value set back: ", copied.reason);
    return copied;
  }
  log.Write(kLogLifecycle, u"Data copied to: ", to);
  return {};
}

}  // namespace jotlets
