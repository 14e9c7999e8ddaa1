#include "backup/win/backup_commands.h"

#include "backup/win/restore_dialog.h"
#include "res/resource.h"
#include "ui/job_dialog.h"
#include "ui/system_choosers.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

// A backup goes on in slices that nobody notices.
constexpr ULONGLONG kSliceMilliseconds = 10;

// Only one box or job of ours at a time.
class Asking {
 public:
  explicit Asking(bool& flag) : flag_(flag), begun_(!flag) { flag_ = true; }
  ~Asking() {
    if (begun_) flag_ = false;
  }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;
  explicit operator bool() const { return begun_; }

 private:
  bool& flag_;
  bool begun_;
};

}  // namespace

void BackupCommands::Open(TextView dataFolder) {
  folder_ = dataFolder;
  keeper_.Open(dataFolder);
  keeper_.LogNewest();
}

Text BackupCommands::TellNewest() const {
  const std::optional<Backup> newest = keeper_.Newest();
  return newest ? BackupLine(resources_, *newest, u", ") : resources_.String(IDS_SETTING_NO_BACKUP);
}

bool BackupCommands::BeginIfDue() {
  // The user is taking or putting back one by hand.
  if (asking_) return false;
  return keeper_.BeginIfDue([this] { owner_.SaveForBackup(); });
}

bool BackupCommands::Step() {
  const Job::State state = StepFor(keeper_, kSliceMilliseconds);
  if (state == Job::State::kFailed) owner_.TellQuietly(resources_.String(IDS_BACKUP_FAILED));
  return state == Job::State::kRunning;
}

void BackupCommands::TakeManualBackup() {
  const Asking asking(asking_);
  if (!asking) return;
  const HWND window = owner_.BackupWindow();
  const Text folder = ChooseFolder(window, resources_, IDS_BACKUP_CHOOSE, folder_);
  if (folder.empty()) return;
  owner_.SaveForBackup();
  BackupJob job = keeper_.ManualBackup(folder);
  const Job::State state = RunJob(window, resources_, IDS_BACKUP_RUNS, job, true);
  if (state == Job::State::kRunning) return job.Abandon();
  const bool taken = state == Job::State::kDone;
  Tell(window, resources_, taken ? IDS_BACKUP_TAKEN : IDS_BACKUP_NOT_TAKEN,
       taken ? job.Folder() : job.Reason());
}

void BackupCommands::ChooseRestore() {
  const Asking asking(asking_);
  if (!asking) return;
  const Text name = ChooseBackup(owner_.BackupWindow(), resources_, IDS_RESTORE_ANY, keeper_);
  if (!name.empty()) RestoreFrom(name);
}

void BackupCommands::RestoreFrom(const Text& name) {
  const HWND window = owner_.BackupWindow();
  log_.Write(kLogLifecycle, u"Restoring from: \"", keeper_.BackupsFolder(), name, u"\"");
  owner_.HoldStill(true);
  if (!owner_.SaveForBackup()) {
    owner_.HoldStill(false);
    return Tell(window, resources_, IDS_RESTORE_FAILED, folder_);
  }
  RestoreJob job = keeper_.Restore(name);
  if (RunJob(window, resources_, IDS_RESTORE_RUNS, job, false) == Job::State::kDone)
    return owner_.RestartAfterRestore();
  log_.Write(kLogLifecycle, u"Not restored: ", job.Reason());
  owner_.HoldStill(false);
  Tell(window, resources_, IDS_RESTORE_FAILED, job.Reason());
}

bool BackupCommands::OfferAtFirstRun() {
  if (!keeper_.HasAny()) return false;
  const Text name = ChooseBackup(owner_.BackupWindow(), resources_, IDS_RESTORE_FIRST_RUN, keeper_);
  if (name.empty()) return false;
  return PutBackAtStart(keeper_.Restore(name));
}

bool BackupCommands::FinishInterruptedRestore() {
  std::optional<RestoreJob> job = keeper_.InterruptedRestore();
  if (!job) return false;
  log_.Write(kLogLifecycle, u"Finishing a restore that was interrupted");
  return PutBackAtStart(std::move(*job));
}

bool BackupCommands::PutBackAtStart(RestoreJob job) {
  const HWND window = owner_.BackupWindow();
  if (RunJob(window, resources_, IDS_RESTORE_RUNS, job, false) == Job::State::kDone) {
    // What was there before is a backup now.
    keeper_.Open(folder_);
    return true;
  }
  log_.Write(kLogLifecycle, u"Not restored: ", job.Reason());
  Tell(window, resources_, IDS_RESTORE_FAILED, job.Reason());
  return false;
}

}  // namespace jotlets
