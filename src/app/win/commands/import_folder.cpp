#include "app/win/commands/import_folder.h"

#include <algorithm>
#include <optional>

#include "base/win/wide.h"
#include "desk/note_import.h"
#include "manage/win/columns_dialog.h"
#include "res/resource.h"
#include "ui/drawn_menu.h"
#include "ui/job_dialog.h"
#include "ui/popup_menu.h"
#include "ui/system_choosers.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

constexpr std::size_t kTold = 10;

// A folder with its separator, or a file; empty for neither.
Text ChooseSource(HWND owner, const Resources& resources) {
  enum : UINT { kFolder = 1, kFile };
  const UniqueMenu menu(CreatePopupMenu());
  AppendMenuW(menu.get(), MF_STRING, kFolder, Wide(resources.String(IDS_IMPORT_FOLDER)));
  SetLastMenuIcon(menu.get(), Icon::kFolder);
  AppendMenuW(menu.get(), MF_STRING, kFile, Wide(resources.String(IDS_IMPORT_FILE)));
  SetLastMenuIcon(menu.get(), Icon::kFile);
  RECT at{};
  GetWindowRect(GetFocus() == nullptr ? owner : GetFocus(), &at);
  switch (ChooseFromMenu(resources.Look(), menu.get(), {at.left, at.bottom}, owner)) {
    case kFolder: return ChooseFolder(owner, resources, IDS_IMPORT_CHOOSE, {});
    case kFile: return ChooseFileToOpen(owner, resources.String(IDS_FILTER_COLLECTION));
    default: return {};
  }
}

std::optional<CsvColumns> ChooseColumns(HWND owner, const Resources& resources,
                                        const FolderImport::Context& context, const Text& path) {
  Text reason;
  const std::optional<CsvPreview> preview = PreviewOfTable(context.files, context.ansi, path, reason);
  if (preview && !preview->fault.empty()) reason = preview->fault;
  if (preview && reason.empty()) return BColumnsDlg(resources, *preview, NameOfFile(path)).Ask(owner);
  Report(owner, resources, path + u"\n" + reason, true);
  return std::nullopt;
}

}  // namespace

std::vector<std::int64_t> ImportNotes(HWND owner, const Resources& resources, const Text& path,
                                      const FolderImport::Context& context) {
  const Text folder = path.empty() ? ChooseSource(owner, resources) : path;
  if (folder.empty()) return {};
  std::optional<CsvColumns> columns;
  if (HasExtension(folder, u".csv")) {
    columns = ChooseColumns(owner, resources, context, folder);
    if (!columns) return {};
  }
  FolderImport job(context, folder, columns);
  const Job::State state = RunJob(owner, resources, IDS_IMPORT_RUNS, job, true);
  const auto count = [&resources](UINT text, std::size_t number) {
    return ReplaceAll(resources.String(text), u"%n", IntText(static_cast<std::int64_t>(number)));
  };
  const auto& faults = job.Faults();
  const bool none = job.Imported() == 0 && faults.empty();
  Text told = state == Job::State::kFailed ? job.Reason()
              : none                       ? ReplaceAll(resources.String(IDS_IMPORT_NOTHING), u"%s", folder)
                                           : count(IDS_IMPORT_DONE, job.Imported());
  if (!faults.empty()) told += u"\n\n" + count(IDS_IMPORT_LEFT, faults.size());
  for (std::size_t i = 0; i < std::min(faults.size(), kTold); ++i)
    told += u"\n" + faults[i].path + u": " + faults[i].reason;
  Report(owner, resources, told, state == Job::State::kFailed || !faults.empty());
  return job.Keys();
}

}  // namespace jotlets
