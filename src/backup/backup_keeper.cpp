#include "backup/backup_keeper.h"

#include <algorithm>

#include "data/data_folder.h"

namespace jotlets {
namespace {

constexpr std::int64_t kRetrySeconds = 3600;

}  // namespace

Text BackupKeeper::FolderByOptions() const {
  const Text folder = options_.backupDir.empty() ? Text(kBackupsFolder) : WithSeparator(options_.backupDir);
  // The current folder is whatever the program happened to be started from.
  return IsFullPath(folder) ? folder : data_ + folder;
}

void BackupKeeper::FollowOptions() {
  if (FolderByOptions() != backups_) Open(Text(data_));
}

void BackupKeeper::LogNewest() const {
  const std::vector<Text> names = files_.ListFolders(backups_);
  const auto newest = std::find_if(names.rbegin(), names.rend(),
                                   [](const Text& name) { return BackupTime(name).has_value(); });
  if (newest != names.rend()) log_.Write(kLogLifecycle, u"Most recent backup is: ", *newest);
}

void BackupKeeper::Open(TextView dataFolder) {
  data_ = dataFolder;
  backups_ = FolderByOptions();
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

Job::State BackupKeeper::Step(std::size_t mostFiles) {
  if (pruning_) {
    const Job::State state = pruning_->Step(mostFiles);
    if (state != Job::State::kRunning) pruning_.reset();
    return state;
  }
  if (!job_) return Job::State::kDone;
  Job::State state = job_->Step(mostFiles);
  if (state == Job::State::kDone) {
    last_ = clock_.Now().utc;
    const Text name = job_->Folder().substr(backups_.size());
    pruning_.emplace(files_, ansi_, log_, backups_, options_.keepBackups, name);
    job_.reset();
    state = Job::State::kRunning;
  } else if (state == Job::State::kFailed) {
    notBefore_ = clock_.Now().utc + kRetrySeconds;
    log_.Write(kLogLifecycle, u"The backup failed: ", job_->Reason());
    job_.reset();
  }
  return state;
}

void BackupKeeper::Abandon() {
  if (job_) job_->Abandon();
  job_.reset();
  pruning_.reset();
}

BackupJob BackupKeeper::ManualBackup(TextView folder) {
  Abandon();
  return {files_, ansi_, data_, Text(folder) + FreeBackupName(files_, folder, clock_.Now().local)};
}

std::optional<RestoreJob> BackupKeeper::InterruptedRestore() {
  const Text from = RestoreUnderWay(files_, ansi_, data_);
  if (from.empty()) return std::nullopt;
  const Text kept = backups_ + FreeBackupName(files_, backups_, clock_.Now().local);
  return RestoreJob::Finishing(files_, ansi_, data_, from, kept);
}

RestoreJob BackupKeeper::Restore(TextView name) {
  Abandon();
  return {files_, ansi_, data_, backups_, name, FreeBackupName(files_, backups_, clock_.Now().local)};
}

std::vector<Backup> BackupKeeper::Describe() const {
  std::vector<Backup> backups;
  for (const Text& name : ListBackups(files_, ansi_, backups_)) {
    backups.insert(backups.begin(), DescribeBackup(files_, ansi_, backups_, name));
  }
  return backups;
}

std::optional<Backup> BackupKeeper::Newest() const {
  std::vector<Text> names = files_.ListFolders(backups_);
  std::ranges::sort(names, std::greater());
  // Looking into all of them would take long.
  for (const Text& name : names)
    if (BackupTime(name) && HasReadableData(files_, ansi_, backups_ + name + u"\\"))
      return DescribeBackup(files_, ansi_, backups_, name);
  return std::nullopt;
}

}  // namespace jotlets
