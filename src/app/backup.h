// Backups of the data folder: their names, when one is due, taking one without holding anything up, which
// ones go, and putting one back.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/clock.h"
#include "base/code_page.h"
#include "base/files.h"
#include "base/log.h"

namespace jotlets {

/// The local time in a backup folder's name (year, month, day, hour and minute, twelve digits); nothing for
/// any other name.
std::optional<LocalTime> BackupTime(TextView name);

/// One backup that can be put back.
struct Backup {
  Text name;
  LocalTime taken;
  std::size_t notes = 0;    // open, sleeping and attached ones
  std::uint64_t bytes = 0;  // of all its files
};

/// Whether a folder (with its "\" at the end) has a data file that can be read whole.
bool HasReadableData(const Files& files, const CodePage& ansi, TextView folder);

/// The names of the backups in a folder (given with its "\" at the end), oldest first: folders with a
/// backup's name whose data file can be read whole.
std::vector<Text> ListBackups(const Files& files, const CodePage& ansi, TextView backupsFolder);

/// What a backup holds; it is one of `ListBackups`.
Backup DescribeBackup(const Files& files, const CodePage& ansi, TextView backupsFolder, TextView name);

/// Whether an automatic backup is due: strictly later than the last one plus the period. `last` and `now` are
/// seconds since 1970 UTC. A last backup more than an hour in the future (the clock was set back) does
/// not count.
bool IsBackupDue(std::int64_t now, std::optional<std::int64_t> last, std::int32_t periodHours);

/// A name for a backup taken now that no folder has yet: of two in one minute the second is named for the
/// next.
Text FreeBackupName(const Files& files, TextView backupsFolder, LocalTime now);

/// Copies the data set into a folder, some files at a time. The copy grows under another name
/// ("<folder>.partial") and gets its own when every file has been read back and found equal, so that a
/// half-copied folder never looks like a backup.
class BackupJob {
 public:
  enum class State { kRunning, kDone, kFailed };

  /// `fromFolder` ends in "\", `toFolder` does not.
  BackupJob(Files& files, const CodePage& ansi, TextView fromFolder, TextView toFolder);

  /// Goes on with at most `mostFiles` files.
  State Step(std::size_t mostFiles);
  /// Does all that is left.
  State Finish();
  /// Removes what has been copied.
  void Abandon() { Fail(u"given up"); }

  const Text& Folder() const { return to_; }
  /// Why it failed.
  const Text& Reason() const { return reason_; }

 private:
  State Fail(Text reason);
  bool CopyOne(const Text& name);
  State Complete();

  Files& files_;
  const CodePage& ansi_;
  Text from_;
  Text to_;
  Text partial_;
  std::vector<Text> names_;  // paths inside the data folder
  std::size_t next_ = 0;
  bool begun_ = false;
  State state_ = State::kRunning;
  Text reason_;
};

/// Removes the oldest backups until at most `keep` (at least 1) are left; each is logged. Backups that cannot
/// be read do not count and stay, and so does `justTaken`, whatever its name says. Half-copied folders go: no
/// job may be running.
void PruneBackups(Files& files, const CodePage& ansi, Log& log, TextView backupsFolder, std::int32_t keep,
                  TextView justTaken);

/// Puts a backup back: removes every content file of the data folder and copies the backup over it. A backup
/// that cannot be read is refused before anything is touched.
FileStatus RestoreBackup(Files& files, const CodePage& ansi, TextView backupFolder, TextView dataFolder);

}  // namespace jotlets
