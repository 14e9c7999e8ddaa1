// The commands of the program as a whole: those of the tray icon, its menu and the hot keys.
#pragma once

#include <windows.h>

#include "app/win/commands/found_notes.h"
#include "app/win/commands/managed_notes.h"
#include "app/win/commands/option_commands.h"
#include "app/win/grab_window.h"
#include "app/win/hot_keys.h"
#include "app/win/keys_dialog.h"
#include "app/win/program_saving.h"
#include "app/win/system_tray.h"
#include "backup/win/backup_commands.h"
#include "command/custom_commands.h"
#include "desk/win/open_stacks.h"
#include "editor/text_style.h"
#include "friends/friend_book.h"

namespace jotlets {

/// What only the program as a whole can do.
class ProgramControl {
 public:
  virtual ~ProgramControl() = default;
  virtual void ExitJotlets(TextView reason) = 0;
  /// Saves everything, moves the data folder to another place and starts anew from there.
  virtual FileStatus MoveDataTo(TextView folder) = 0;
  /// Compares the content files with the notes; the user may adopt what belongs to none.
  virtual void CheckContent() = 0;
};

struct TrayCommandTools {
  const Resources& resources;
  const Files& files;
  const CodePage& ansi;
  Log& log;
  Options& options;
  NoteDesk& desk;
  OpenNotes& notes;
  OpenStacks& stacks;
  ManagedNotes& managed;
  FoundNotes& found;
  OptionCommands& optionDialog;
  FriendBook& friends;
  ProgramSaving& saving;
  CSystemTray& tray;
  const HotKeys& hotKeys;
  BKeysDlg& keys;
  BackupCommands& backups;
  EventSink& events;
  CustomMenus& menus;
  const ProgramWindow& window;
  const ProgramState& state;
  ProgramControl& control;
};

class TrayCommands {
 public:
  explicit TrayCommands(const TrayCommandTools& tools) : tools_(tools), grab_(tools.resources.Look()) {}

  /// Carries out a command of the tray menu, unless the program is coming up or going down.
  void Do(UINT command);
  /// Serves a hot key of the program (see `hot_keys.h`).
  void OnHotKey(int id);
  /// Serves a mouse message of the tray icon.
  void OnTray(UINT message);

  /// Takes all notes off the screen, or shows them all, the hidden ones too.
  void HideAll(bool hidden);

  /// Lets the user change the text styles. `selection` is the style of a text that is selected.
  void EditStyles(HWND owner, std::optional<TextStyle> selection);

  /// Makes a note of a file; the user is told when that fails.
  void ImportFile(TextView path);

  /// The same with a note message; whether it became a note.
  bool ImportNoteMessage(TextView text);
  void CheckContent() { tools_.control.CheckContent(); }
  void BringForward();
  /// Brings notes and stacks that lie off the screen back on to it.
  void RescueOffScreen();
  /// The user has seen why the tray icon flashes.
  void StopFlashing();

 private:
  void MakeNote(bool fromClipboard);
  void KeepGrab(const Picture& picture, bool toClipboard);
  void Grab(bool all);
  void OpenManageWindow();
  void ChooseImport();
  void MoveDataLocation();
  void ChooseCustom(UINT command);
  void EditFriends();
  void OpenHelp();

  TrayCommandTools tools_;
  std::vector<CustomCommand> shownCustom_;  // the entries of others in the menu that was shown last
  GrabWindow grab_;
  HWND editingFriends_ = nullptr;  // the dialog, while it is open
};

}  // namespace jotlets
