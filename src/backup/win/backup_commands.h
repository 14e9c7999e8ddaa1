// Backups as the user meets them: the automatic one in the background, "Backup...", "Restore...".
#pragma once

#include <windows.h>

#include "backup/backup_keeper.h"
#include "ui/resources.h"

namespace jotlets {

/// What the backup commands need from the program.
class BackupOwner {
 public:
  virtual ~BackupOwner() = default;
  virtual HWND BackupWindow() const = 0;
  /// Writes what has changed; false when that failed.
  virtual bool SaveForBackup() = 0;
  /// A restore begins, or has failed: nothing may be changed or written between the two.
  virtual void HoldStill(bool still) = 0;
  /// Tells the user something that no box is worth.
  virtual void TellQuietly(const Text& words) = 0;
  /// The restored data is to be loaded by a new start of the program.
  virtual void RestartAfterRestore() = 0;
};

class BackupCommands {
 public:
  BackupCommands(BackupOwner& owner, const Resources& resources, Files& files, const CodePage& ansi,
                 const Clock& clock, Log& log, const Options& options)
      : owner_(owner), resources_(resources), log_(log), keeper_(files, ansi, clock, log, options) {}

  /// The data folder is known now, and what its options file says; logs the newest backup.
  void Open(TextView dataFolder);
  /// The options have been loaded, and may name another place for the backups.
  void FollowOptions() { keeper_.FollowOptions(); }

  /// When the newest backup was taken, and how large it is; a text for none.
  Text TellNewest() const;

  /// Begins the automatic backup when it is due; whether `Step` is to be called until it says no more.
  bool BeginIfDue();
  /// Whether the backup under way goes on.
  bool Step();
  void Abandon() { keeper_.Abandon(); }

  /// Lets the user choose a folder, and copies the present state into a new one inside it.
  void TakeManualBackup();
  /// Lets the user choose a backup, and restores it.
  void ChooseRestore();
  /// Offers the backups, when there are any, to a start that found no data file. Whether one was put back.
  bool OfferAtFirstRun();
  /// Finishes a restore that the end of the program has cut short.
  bool FinishInterruptedRestore();

 private:
  bool PutBackAtStart(RestoreJob job);
  void RestoreFrom(const Text& name);

  BackupOwner& owner_;
  const Resources& resources_;
  Log& log_;
  BackupKeeper keeper_;
  Text folder_;
  bool asking_ = false;  // a dialog of ours is open, from which messages come in
};

}  // namespace jotlets
