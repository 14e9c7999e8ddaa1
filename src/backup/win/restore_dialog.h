// Lists the backups that are there; the user chooses one to put back.
#pragma once

#include <vector>

#include "backup/backup_keeper.h"
#include "ui/dialog.h"

namespace jotlets {

/// A backup in words: when it was taken, its notes, its size.
Text BackupLine(const Resources& resources, const Backup& backup, TextView between);

/// Lets the user choose from all backups; the name, empty for none. `question` is the text above the list.
/// Says so when there are no backups.
Text ChooseBackup(HWND owner, const Resources& resources, UINT question, const BackupKeeper& backups);

class BRestoreDlg final : public Dialog {
 public:
  /// `backups` newest first; the text tells why they are offered.
  BRestoreDlg(const Resources& resources, UINT text, std::vector<Backup> backups)
      : resources_(resources), text_(text), backups_(std::move(backups)) {}

  /// The name of the chosen backup, empty when the user did not want one.
  Text Choose(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;

  const Resources& resources_;
  UINT text_;
  std::vector<Backup> backups_;
  Text chosen_;
};

}  // namespace jotlets
