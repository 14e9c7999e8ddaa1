#include "app/win/commands/tray_commands.h"

#include "app/win/hot_keys.h"
#include "app/win/main_frame.h"
#include "app/win/main_menus.h"
#include "desk/win/file_exchange.h"
#include "friends/win/friends_dialog.h"
#include "res/resource.h"
#include "ui/system_choosers.h"
#include "ui/user_messages.h"

namespace jotlets {

void TrayCommands::Do(UINT command) {
  switch (command) {
    case ID_NEW_JOTLET: NewNote(false); break;
    case ID_NEW_FROM_CLIPBOARD: NewNote(true); break;
    case ID_IMPORT: ChooseImport(); break;
    case ID_FRIENDS: EditFriends(); break;
    case ID_RESCUE: frame_.RescueOffScreen(); break;
    case ID_MANAGE: OpenManageWindow(); break;
    case ID_MOVE_DATA: MoveDataLocation(); break;
    case ID_BACKUP: backups_.TakeManualBackup(); break;
    case ID_RESTORE: backups_.ChooseRestore(); break;
    case ID_SHOW_OR_HIDE: HideAll(options_.hidden != 1); break;
    case ID_EXIT_JOTLETS: frame_.ExitJotlets(u"user"); break;
    default: ChooseCustom(command); break;
  }
}

void TrayCommands::EditFriends() {
  if (editingFriends_ != nullptr) {
    SetForegroundWindow(editingFriends_);
    return;
  }
  BFriendsDlg dialog(resources_, frame_.Friends(), editingFriends_);
  dialog.Show(resources_, IDD_FRIENDS, frame_.Handle());
  editingFriends_ = nullptr;
}

// An entry that another program has added to the menu.
void TrayCommands::ChooseCustom(UINT command) {
  const Text word = frame_.Commands().CustomMenu(MenuKind::kOfProgram).WordOf(static_cast<int>(command));
  if (!word.empty()) frame_.NotifyListenersText(u"504 custom Jotlets command: " + word);
}

void TrayCommands::OnHotKey(int id) {
  // The first four and the last of the six; the fifth opens the manage window.
  constexpr UINT kCommands[] = {ID_NEW_JOTLET, ID_NEW_FROM_CLIPBOARD, ID_SHOW_OR_HIDE, 0, ID_MANAGE,
                                ID_RESCUE};
  const int index = id - kFirstHotKey;
  if (index < 0 || index >= static_cast<int>(std::size(kCommands))) return;
  if (kCommands[index] == 0) {
    frame_.BringForward();
  } else {
    frame_.OnCommand(kCommands[index]);
  }
}

void TrayCommands::OnTray(UINT message) {
  if (message == WM_RBUTTONUP)
    return ShowPopupMenu(frame_.Handle(), MakeTrayMenu(resources_, options_.hidden == 1,
                                                       frame_.Commands().CustomMenu(MenuKind::kOfProgram))
                                              .get());
  if (message != WM_LBUTTONUP && message != WM_LBUTTONDBLCLK) return;
  frame_.StopFlashing();
  const bool creates = options_.singleClickCreates ? message == WM_LBUTTONUP : message == WM_LBUTTONDBLCLK;
  if (creates) {
    frame_.OnCommand(ID_NEW_JOTLET);
  } else if (message == WM_LBUTTONUP) {
    frame_.BringForward();
  }
}

void TrayCommands::NewNote(bool fromClipboard) {
  NewJotlet fresh;
  fresh.reason = fromClipboard ? u"clipboard" : u"user";
  fresh.isImage = !fromClipboard && options_.defaultImage;
  fresh.fromClipboard = fromClipboard;
  BJotlet* jotlet = frame_.FindJotlet(frame_.CreateJotlet(fresh));
  if (jotlet != nullptr) jotlet->TakeFocus();
}

void TrayCommands::OpenManageWindow() {
  BManageDlg& dialog = frame_.Managed().Dialog();
  if (!dialog.OpenWindow(true)) dialog.Activate();
}

void TrayCommands::ChooseImport() {
  const Text path = ChooseFileToOpen(frame_.Handle(), resources_.String(IDS_FILTER_IMPORT));
  if (!path.empty()) ImportFile(path);
}

void TrayCommands::ImportFile(TextView path) {
  Text reason;
  const std::optional<NewJotlet> fresh = NoteFromFile(files_, ansi_, path, reason);
  if (fresh) {
    frame_.CreateJotlet(*fresh);
  } else {
    Tell(frame_.Handle(), resources_, IDS_NOT_IMPORTED, Text(path) + u"\n\n" + reason);
  }
}

void TrayCommands::HideAll(bool hidden) {
  options_.hidden = hidden ? 1 : 0;
  if (hidden) {
    frame_.Desktop().HideAll();
    frame_.Stacks().HideAll();
  } else {
    frame_.Desktop().UnhideAll();
    frame_.Stacks().ShowAll();
  }
  tray_.ShowHidden(hidden);
  frame_.SetOptionsDirty();
}

void TrayCommands::MoveDataLocation() {
  const Text folder = ChooseFolder(frame_.Handle(), resources_, IDS_MOVE_CHOOSE, frame_.DataFolder());
  if (folder.empty() || frame_.IsExiting()) return;
  const FileStatus moved = frame_.MoveDataTo(folder);
  if (!moved) Tell(frame_.Handle(), resources_, IDS_MOVE_FAILED, folder + u"\n\n" + moved.reason);
}

}  // namespace jotlets
