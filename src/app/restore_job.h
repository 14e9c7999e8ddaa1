// Putting a backup in the place of the data folder's files, so that it can be undone.
#pragma once

#include <optional>
#include <vector>

#include "app/backup.h"

namespace jotlets {

/// Keeps the present state first, as a backup of its own (a damaged one, the very reason to restore, as
/// "<name>.damaged"); then removes every content file of the data folder and
/// copies the backup over it. A backup that cannot be read is refused before anything is touched. When it
/// fails half-way, the present state is put back: half a restore would be neither the old state nor the new.
class RestoreJob final : public Job {
 public:
  /// Folders end in "\\"; `name` is a backup's, `presentName` the one that the present state gets.
  RestoreJob(Files& files, const CodePage& ansi, TextView dataFolder, TextView backupsFolder, TextView name,
             TextView presentName);

  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override;

 private:
  bool StepKeeping(std::size_t mostFiles);
  FileStatus PutOne(const Text& path);
  void Begin(Text fromFolder);
  State Fail(Text reason);

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
