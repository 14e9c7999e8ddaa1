// Putting a backup in the place of the data folder's files, so that it can be undone.
#pragma once

#include <optional>
#include <vector>

#include "backup/backup.h"

namespace jotlets {

/// The folder that a restore of this data folder was copying from when the program was killed, empty for
/// none.
Text RestoreUnderWay(const Files& files, const CodePage& ansi, TextView dataFolder);

/// Keeps the present state first, as a backup of its own (a damaged one, the very reason to restore, as
/// "<name>.damaged"); then removes every content file of the data folder and
/// copies the backup over it. A backup that cannot be read is refused before anything is touched. When it
/// fails half-way, the present state is put back: half a restore would be neither the old state nor the new.
/// For the same reason "restore.ini" in the data folder names the folder that is copied from as long as files
/// are replaced, so that the next start can finish what a kill has cut short.
class RestoreJob final : public Job {
 public:
  /// Folders end in "\\"; `name` is a backup's, `presentName` the one that the present state gets.
  RestoreJob(Files& files, const CodePage& ansi, TextView dataFolder, TextView backupsFolder, TextView name,
             TextView presentName);

  /// Goes on where a killed program left off: `fromFolder` as `RestoreUnderWay` gave it. What is there, parts
  /// of two states, is kept as damaged in "<keptFolder>.damaged".
  static RestoreJob Finishing(Files& files, const CodePage& ansi, TextView dataFolder, TextView fromFolder,
                              TextView keptFolder);

  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override;

 private:
  RestoreJob(Files& files, TextView dataFolder, TextView fromFolder)
      : files_(files), data_(dataFolder), from_(fromFolder) {}
  bool StepKeeping(std::size_t mostFiles);
  FileStatus PutOne(const Text& path);
  FileStatus Begin(Text fromFolder);
  State Fail(Text reason);
  State End(State state);

  Files& files_;
  Text data_;
  Text from_;
  std::optional<BackupJob> keeping_;
  Text keptFolder_;             // with "\\" at its end; empty: nothing was kept
  std::vector<Text> removals_;  // content files of the data folder, as full paths
  std::vector<Text> names_;     // what is copied, in its order
  std::size_t removed_ = 0;
  std::size_t copied_ = 0;
  bool begun_ = false;
  bool goingBack_ = false;
  State state_ = State::kRunning;
  Text reason_;
};

}  // namespace jotlets
