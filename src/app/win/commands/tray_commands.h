// The commands of the program as a whole: those of the tray icon, its menu and the hot keys.
#pragma once

#include <windows.h>

#include "app/win/system_tray.h"
#include "backup/win/backup_commands.h"
#include "data/options_keeper.h"

namespace jotlets {

class CMainFrame;

class TrayCommands {
 public:
  TrayCommands(CMainFrame& frame, const Resources& resources, Files& files, const CodePage& ansi,
               OptionsKeeper& options, CSystemTray& tray, BackupCommands& backups)
      : frame_(frame),
        resources_(resources),
        files_(files),
        ansi_(ansi),
        options_(options.Current()),
        tray_(tray),
        backups_(backups) {}

  /// Carries out a command of the tray menu.
  void Do(UINT command);
  /// Serves a hot key of the program (see `hot_keys.h`).
  void OnHotKey(int id);
  /// Serves a mouse message of the tray icon.
  void OnTray(UINT message);

  /// Takes all notes off the screen, or shows them all, the hidden ones too.
  void HideAll(bool hidden);

  /// Makes a note of a file; the user is told when that fails.
  void ImportFile(TextView path);

 private:
  void NewNote(bool fromClipboard);
  void OpenManageWindow();
  void ChooseImport();
  void MoveDataLocation();
  void ChooseCustom(UINT command);
  void EditFriends();

  CMainFrame& frame_;
  const Resources& resources_;
  Files& files_;
  const CodePage& ansi_;
  Options& options_;
  CSystemTray& tray_;
  BackupCommands& backups_;
  HWND editingFriends_ = nullptr;  // the dialog, while it is open
};

}  // namespace jotlets
