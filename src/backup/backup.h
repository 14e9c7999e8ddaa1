// Backups of the data folder: their names, when one is due, taking one without holding anything up, which
// ones go, and putting one back.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/clock.h"
#include "base/code_page.h"
#include "base/files.h"
#include "base/job.h"
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

/// What is put behind a backup's name when the data file in it cannot be read: kept, but no backup.
inline constexpr TextView kDamagedBackup = u".damaged";

/// A name for a backup taken now that no folder has yet: of two in one minute the second is named for the
/// next.
Text FreeBackupName(const Files& files, TextView backupsFolder, LocalTime now);

/// Copies the data set into a folder, some files at a time. The copy grows under another name
/// ("<folder>.partial") and gets its own when every file has been read back and found equal, so that a
/// half-copied folder never looks like a backup.
class BackupJob final : public Job {
 public:
  /// Whether the data file in the copy must be one that can be read. A damaged one is still worth keeping.
  enum class Demand { kReadable, kAsItIs };

  /// `fromFolder` ends in "\\", `toFolder` does not.
  BackupJob(Files& files, const CodePage& ansi, TextView fromFolder, TextView toFolder,
            Demand demand = Demand::kReadable);

  State Step(std::size_t mostFiles) override;
  /// Removes what has been copied.
  void Abandon() { Fail(u"given up"); }

  const Text& Folder() const { return to_; }
  const Text& Reason() const override { return reason_; }
  int Percent() const override { return PercentOf(next_, names_.size()); }

 private:
  State Fail(Text reason);
  bool CopyOne(const Text& name);
  void AddNewFiles();
  State Complete();

  Files& files_;
  const CodePage& ansi_;
  Text from_;
  Text to_;
  Text partial_;
  Demand demand_;
  std::vector<Text> names_;  // paths inside the data folder
  std::size_t next_ = 0;
  bool begun_ = false;
  bool addedNew_ = false;
  State state_ = State::kRunning;
  Text reason_;
};

/// Copies the data set into exactly this folder, now and whole. One that is not there yet becomes
/// a verified backup; into any other, each file is put in one step in the place of an older one.
/// Refused for what is no full path, and for the data folder itself (`dataFolder`, with "\\" at its end),
/// however it is spelled.
FileStatus BackUpInto(Files& files, const CodePage& ansi, TextView dataFolder, TextView folder);

/// Removes the oldest backups until at most `keep` (at least 1) are left; each is logged. Backups that cannot
/// be read do not count and stay, and so does `justTaken`, whatever its name says. Half-copied folders go: no
/// `BackupJob` may be running. A backup loses its name before it loses its files: one that is half removed
/// when the program ends is never taken for a whole one.
class PruneJob final : public Job {
 public:
  PruneJob(Files& files, const CodePage& ansi, Log& log, TextView backupsFolder, std::int32_t keep,
           TextView justTaken);

  /// Also counts each backup that is looked at as a file.
  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override { return PercentOf(next_, names_.size()); }

 private:
  void LookAt(const Text& name);
  void BeginRemoval(const Text& name);
  void RemoveOne();

  Files& files_;
  const CodePage& ansi_;
  Log& log_;
  Text backups_;
  std::size_t keep_;
  Text justTaken_;
  std::vector<Text> names_;  // newest first
  std::size_t next_ = 0;
  std::size_t kept_ = 0;
  Text goes_;                     // the folder that is being removed, empty for none
  std::vector<Text> goingFiles_;  // what it still holds, as full paths
  Text reason_;
};

}  // namespace jotlets
