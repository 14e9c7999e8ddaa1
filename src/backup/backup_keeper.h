// Automatic backups: remembers the last one, takes the next when it is due, a little at a time, and prunes.
#pragma once

#include <functional>
#include <optional>

#include "backup/backup.h"
#include "backup/restore_job.h"
#include "data/options.h"

namespace jotlets {

class BackupKeeper {
 public:
  BackupKeeper(Files& files, const CodePage& ansi, const Clock& clock, Log& log, const Options& options)
      : files_(files), ansi_(ansi), clock_(clock), log_(log), options_(options) {}

  /// Looks for the backups of a data folder, at the place that the options name.
  void Open(TextView dataFolder);
  /// Looks again when the options name another place by now.
  void FollowOptions();
  /// Logs the newest backup there, by its name.
  void LogNewest() const;

  /// Where the backups are, with "\" at the end.
  const Text& BackupsFolder() const { return backups_; }

  /// Begins an automatic backup when they are on, one is due and none is under way; `save` is called first,
  /// to write what has changed. Whether one has begun.
  bool BeginIfDue(const std::function<void()>& save);

  bool IsRunning() const { return job_ || pruning_; }
  /// Goes on with the backup under way. When it is done, old ones are pruned; when it fails, the next try is
  /// an hour later.
  Job::State Step(std::size_t mostFiles);

  /// Gives the backup under way up; what it has copied is removed.
  void Abandon();

  /// A backup of the present state, already saved, into a folder of its own in `folder` (with its "\\" at the
  /// end). The one under way is given up: both would grow under the same name.
  BackupJob ManualBackup(TextView folder);

  /// All backups, newest first.
  std::vector<Backup> Describe() const;
  /// The newest of them.
  std::optional<Backup> Newest() const;
  bool HasAny() const { return hasAny_; }

  /// What is left of a restore that the end of the program cut short; to be done before anything is loaded.
  std::optional<RestoreJob> InterruptedRestore();

  /// Puts a backup in the place of the data folder's files; the present state has been saved.
  RestoreJob Restore(TextView name);

 private:
  Text FolderByOptions() const;

  Files& files_;
  const CodePage& ansi_;
  const Clock& clock_;
  Log& log_;
  const Options& options_;
  Text data_;
  Text backups_;
  std::optional<std::int64_t> last_;  // seconds since 1970 UTC
  bool hasAny_ = false;
  std::int64_t notBefore_ = 0;  // after a failure
  std::optional<BackupJob> job_;
  std::optional<PruneJob> pruning_;
};

}  // namespace jotlets
