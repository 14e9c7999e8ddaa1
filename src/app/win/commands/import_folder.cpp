#include "app/win/commands/import_folder.h"

#include <algorithm>

#include "res/resource.h"
#include "ui/job_dialog.h"
#include "ui/system_choosers.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

constexpr std::size_t kTold = 10;

}  // namespace

void ImportFolder(HWND owner, const Resources& resources, const FolderImport::Context& context) {
  const Text folder = ChooseFolder(owner, resources, IDS_IMPORT_CHOOSE, {});
  if (folder.empty()) return;
  FolderImport job(context, folder);
  const Job::State state = RunJob(owner, resources, IDS_IMPORT_RUNS, job, true);
  const auto count = [&resources](UINT text, std::size_t number) {
    return ReplaceAll(resources.String(text), u"%n", IntText(static_cast<std::int64_t>(number)));
  };
  Text told = state == Job::State::kFailed ? job.Reason() : count(IDS_IMPORT_DONE, job.Imported());
  const auto& faults = job.Faults();
  if (!faults.empty()) told += u"\n\n" + count(IDS_IMPORT_LEFT, faults.size());
  for (std::size_t i = 0; i < std::min(faults.size(), kTold); ++i)
    told += u"\n" + faults[i].path + u": " + faults[i].reason;
  Tell(owner, resources, IDS_IMPORT_REPORT, told);
}

}  // namespace jotlets
