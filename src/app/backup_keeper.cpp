#include "app/backup_keeper.h"

#include "data/data_folder.h"

namespace jotlets {
namespace {

constexpr std::int64_t kRetrySeconds = 3600;

}  // namespace

void BackupKeeper::Open(TextView dataFolder) {
  data_ = dataFolder;
  backups_ = options_.backupDir.empty() ? data_ + Text(kBackupsFolder) : WithSeparator(options_.backupDir);
  last_.reset();
  hasAny_ = false;
  // Names from before the clock was set back say nothing about when the last one was taken.
  const std::int64_t latest = clock_.Now().utc + kRetrySeconds;
  // The newest first, and no further than the first that serves: this stands between the start and the notes.
  const std::vector<Text> names = files_.ListFolders(backups_);
  for (auto name = names.rbegin(); name != names.rend() && !last_; ++name) {
    const std::optional<LocalTime> taken = BackupTime(*name);
    if (!taken || !HasReadableData(files_, ansi_, backups_ + *name + u"\\")) continue;
    hasAny_ = true;
    const std::int64_t utc = clock_.ToUtc(*taken);
    if (utc > latest) continue;
    log_.Write(kLogLifecycle, u"Most recent backup is: " + *name);
    last_ = utc;
  }
}

bool BackupKeeper::BeginIfDue(const std::function<void()>& save) {
  const std::int64_t now = clock_.Now().utc;
  // A clock that was set back must not keep a retry waiting for years.
  const bool waits = now < notBefore_ && notBefore_ - now <= kRetrySeconds;
  if (!options_.takeBackups || IsRunning() || waits || !IsBackupDue(now, last_, options_.backupPeriod))
    return false;
  log_.Write(kLogDetail, u"Taking an automated backup");
  save();
  files_.MakeFolder(backups_);
  job_.emplace(files_, ansi_, data_, backups_ + FreeBackupName(files_, backups_, clock_.Now().local));
  return true;
}

BackupJob::State BackupKeeper::Step(std::size_t mostFiles) {
  if (!job_) return BackupJob::State::kDone;
  const BackupJob::State state = job_->Step(mostFiles);
  if (state == BackupJob::State::kDone) {
    last_ = clock_.Now().utc;
    PruneBackups(files_, ansi_, log_, backups_, options_.keepBackups, job_->Folder().substr(backups_.size()));
  } else if (state == BackupJob::State::kFailed) {
    notBefore_ = clock_.Now().utc + kRetrySeconds;
    log_.Write(kLogLifecycle, u"The backup failed: " + job_->Reason());
  }
  if (state != BackupJob::State::kRunning) job_.reset();
  return state;
}

void BackupKeeper::Abandon() {
  if (job_) job_->Abandon();
  job_.reset();
}

FileStatus BackupKeeper::TakeBackupInto(TextView folder) {
  // Both would grow under the same name.
  Abandon();
  if (FileStatus made = files_.MakeFolder(folder); !made) return made;
  BackupJob job(files_, ansi_, data_, Text(folder) + FreeBackupName(files_, folder, clock_.Now().local));
  if (job.Finish() == BackupJob::State::kDone) return {};
  return FileStatus::Failed(job.Reason());
}

FileStatus BackupKeeper::PutBack(TextView name) {
  const FileStatus put = RestoreBackup(files_, ansi_, Text(backups_).append(name).append(u"\\"), data_);
  if (!put) log_.Write(kLogLifecycle, u"Not restored: " + put.reason);
  return put;
}

FileStatus BackupKeeper::Restore(TextView name) {
  Abandon();
  const Text present = FreeBackupName(files_, backups_, clock_.Now().local);
  const Text damaged = backups_ + present + u".damaged";
  const bool readable = HasReadableData(files_, ansi_, data_);
  FileStatus kept;
  if (readable) {
    BackupJob job(files_, ansi_, data_, backups_ + present);
    if (job.Finish() != BackupJob::State::kDone) kept = FileStatus::Failed(job.Reason());
  } else {
    // A damaged data file, the very reason to restore, makes no backup; what is left is kept as it is.
    kept = CopyDataSet(files_, data_, damaged + u"\\");
    if (!kept) files_.RemoveFolder(damaged);
  }
  if (!kept) {
    log_.Write(kLogLifecycle, u"Not restored, the present state could not be kept: " + kept.reason);
    return kept;
  }
  const FileStatus put = PutBack(name);
  // Half a restore would be neither the old state nor the new one.
  if (!put && readable) PutBack(present);
  if (!put && !readable) CopyDataSet(files_, damaged + u"\\", data_);
  return put;
}

std::vector<Backup> BackupKeeper::Describe() const {
  std::vector<Backup> backups;
  for (const Text& name : ListBackups(files_, ansi_, backups_)) {
    backups.insert(backups.begin(), DescribeBackup(files_, ansi_, backups_, name));
  }
  return backups;
}

}  // namespace jotlets
