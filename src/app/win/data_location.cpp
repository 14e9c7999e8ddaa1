#include "app/win/data_location.h"

#include <shlobj.h>

#include "app/win/system_facts.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "res/resource.h"

namespace jotlets {
namespace {

struct FreeTaskMemory {
  void operator()(void* memory) const { CoTaskMemFree(memory); }
};

}  // namespace

Text ChooseDataFolder(HWND owner, const Resources& resources, UINT question, TextView present) {
  const Text title = resources.String(question);
  BROWSEINFOW how{};
  how.hwndOwner = owner;
  how.lpszTitle = Wide(title);
  how.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_EDITBOX;
  const std::unique_ptr<ITEMIDLIST, FreeTaskMemory> chosen(SHBrowseForFolderW(&how));
  Text path(MAX_PATH, u'\0');
  if (!chosen || !SHGetPathFromIDListW(chosen.get(), WideBuffer(path))) return {};
  path = WithSeparator(path.substr(0, path.find(u'\0')));
  return EqualIgnoreCase(path, present) ? Text() : path;
}

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
