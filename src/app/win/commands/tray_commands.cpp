#include "app/win/commands/tray_commands.h"

#include "app/win/main_menus.h"
#include "desk/note_import.h"
#include "editor/win/styles_dialog.h"
#include "friends/win/friends_dialog.h"
#include "picture/picture.h"
#include "picture/win/picture_clipboard.h"
#include "res/find_numbers.h"
#include "res/picture_numbers.h"
#include "res/resource.h"
#include "ui/screen.h"
#include "ui/system_choosers.h"
#include "ui/system_programs.h"
#include "ui/user_messages.h"

namespace jotlets {

void TrayCommands::Do(UINT command) {
  if (!tools_.state.ready || tools_.state.exiting) return;
  switch (command) {
    case ID_NEW_JOTLET: MakeNote(false); break;
    case ID_NEW_FROM_CLIPBOARD: MakeNote(true); break;
    case ID_IMPORT: ChooseImport(); break;
    case ID_FRIENDS: EditFriends(); break;
    case ID_RESCUE:
      RescueOffScreen();
      // The mouse cannot reach a ghost: without a way back for it, it would be one for good.
      tools_.notes.EndGhosts();
      break;
    case ID_MANAGE: OpenManageWindow(); break;
    case ID_QUICK_FIND: tools_.found.Dialog().OpenWindow(); break;
    case ID_GRAB_AREA: Grab(false); break;
    case ID_GRAB_SCREEN: Grab(true); break;
    case ID_OPTIONS: tools_.optionDialog.Open(SettingsPage::kNotes); break;
    case ID_STYLES: EditStyles(GetActiveWindow(), {}); break;
    case ID_MOVE_DATA: MoveDataLocation(); break;
    case ID_BACKUP: tools_.backups.TakeManualBackup(); break;
    case ID_RESTORE: tools_.backups.ChooseRestore(); break;
    case ID_HELP_JOTLETS: OpenHelp(); break;
    case ID_KEYBOARD_SHORTCUTS: tools_.keys.OpenWindow(); break;
    case ID_SHOW_OR_HIDE: HideAll(tools_.options.hidden != 1); break;
    case ID_EXIT_JOTLETS: tools_.control.ExitJotlets(u"user"); break;
    default: ChooseCustom(command); break;
  }
}

void TrayCommands::EditFriends() {
  if (editingFriends_ != nullptr) {
    SetForegroundWindow(editingFriends_);
    return;
  }
  BFriendsDlg dialog(tools_.resources, tools_.friends, editingFriends_);
  dialog.Show(tools_.resources, IDD_FRIENDS, tools_.window.Handle());
  editingFriends_ = nullptr;
}

void TrayCommands::EditStyles(HWND owner, std::optional<TextStyle> selection) {
  BStylesDlg dialog(tools_.resources, tools_.options, tools_.notes.Highlights(), std::move(selection));
  if (!dialog.Edit(owner)) return;
  tools_.options.styles = dialog.Written();
  tools_.saving.SetOptionsDirty();
  tools_.log.Write(kLogLifecycle, u"Options changed");
}

void TrayCommands::OpenHelp() {
  const Text page = ProgramFolder() + u"help.html";
  const HWND owner = tools_.window.Handle();
  if (!tools_.files.Exists(page)) {
    tools_.log.Write(kLogLifecycle, u"There is no help page: ", page);
    Tell(owner, tools_.resources, IDS_HELP_MISSING, page);
  } else if (!OpenOwnPage(owner, page)) {
    tools_.log.Write(kLogLifecycle, u"Unable to open the help page: ", page);
    Tell(owner, tools_.resources, IDS_HELP_FAILED, page);
  }
}

// An entry that another program has added to the menu.
void TrayCommands::ChooseCustom(UINT command) {
  const Text word = WordOf(shownCustom_, static_cast<std::int32_t>(command));
  if (!word.empty()) tools_.events.Send({EventKind::kProgramCommand, Reason::kNotGiven, {}, word});
}

void TrayCommands::OnHotKey(int id) {
  // In the order of the options.
  constexpr UINT kCommands[] = {ID_NEW_JOTLET, ID_NEW_FROM_CLIPBOARD, ID_SHOW_OR_HIDE, 0, ID_MANAGE,
                                ID_RESCUE,     ID_QUICK_FIND,         ID_GRAB_AREA};
  const int index = id - kFirstHotKey;
  if (index < 0 || index >= static_cast<int>(std::size(kCommands))) return;
  if (kCommands[index] == 0) {
    BringForward();
  } else {
    Do(kCommands[index]);
  }
}

void TrayCommands::OnTray(UINT message) {
  if (message == WM_RBUTTONUP) {
    shownCustom_ = tools_.menus.ofProgram.Number(kFirstCustomId);
    const UniqueMenu menu = MakeTrayMenu(tools_.resources, tools_.options.hidden == 1, shownCustom_);
    ShowHotKeys(menu.get(), tools_.hotKeys);
    return ShowPopupMenu(tools_.resources.Look(), tools_.window.Handle(), menu.get());
  }
  if (message != WM_LBUTTONUP && message != WM_LBUTTONDBLCLK) return;
  StopFlashing();
  const bool creates =
      tools_.options.singleClickCreates ? message == WM_LBUTTONUP : message == WM_LBUTTONDBLCLK;
  if (creates) {
    Do(ID_NEW_JOTLET);
  } else if (message == WM_LBUTTONUP) {
    BringForward();
  }
}

void TrayCommands::MakeNote(bool fromClipboard) {
  NewNote fresh;
  fresh.reason = fromClipboard ? Reason::kClipboard : Reason::kUser;
  fresh.isImage = !fromClipboard && tools_.options.defaultImage;
  fresh.fromClipboard = fromClipboard;
  // Words go before their picture, which spreadsheets and the like give along.
  if (fromClipboard && IsClipboardFormatAvailable(CF_UNICODETEXT) == 0)
    fresh.content = ClipboardPicture(tools_.window.Handle());
  if (!fresh.content.empty()) {
    fresh.isImage = true;
    fresh.fromClipboard = false;
  }
  enum : std::int32_t { kTitleFirst = 1, kNothingFirst = 2 };
  const std::int32_t first = tools_.options.newJotletAction;
  const Text id = tools_.desk.Create(fresh);
  tools_.desk.Show(id, first == kNothingFirst ? Showing::kQuietly : Showing::kWithFocus);
  BJotlet* note = first == kTitleFirst ? tools_.notes.Find(id) : nullptr;
  if (note != nullptr) note->EditTitle();
}

// While the screen was chosen from, the program may have come to its end.
void TrayCommands::KeepGrab(const Picture& picture, bool toClipboard) {
  if (!tools_.state.ready || tools_.state.exiting) return;
  const std::string png = EncodePng(picture);
  if (png.empty()) {
    tools_.log.Write(kLogLifecycle, u"No picture of the screen could be taken");
    return Tell(tools_.window.Handle(), tools_.resources, IDS_GRAB_FAILED, {});
  }
  if (toClipboard) {
    PutPictureOnClipboard(tools_.window.Handle(), png);
    return;
  }
  NewNote fresh;
  fresh.isImage = true;
  fresh.content = png;
  tools_.desk.Show(tools_.desk.Create(fresh), Showing::kWithFocus);
}

void TrayCommands::Grab(bool all) {
  const auto keep = [this](const Picture& picture, bool toClipboard) { KeepGrab(picture, toClipboard); };
  all ? grab_.GrabAll(keep)
      : grab_.Choose(tools_.resources.String(IDS_GRAB_TITLE), tools_.options.greenRectSs, keep);
}

void TrayCommands::OpenManageWindow() {
  BManageDlg& dialog = tools_.managed.Dialog();
  if (!dialog.OpenWindow(true)) dialog.Activate();
}

void TrayCommands::ChooseImport() {
  const Text path = ChooseFileToOpen(tools_.window.Handle(), tools_.resources.String(IDS_FILTER_IMPORT));
  if (path.empty()) return;
  // What holds many notes fills no desktop: they are stored, as from the manage window.
  IsCollection(path) ? tools_.managed.Import(tools_.window.Handle(), path) : ImportFile(path);
}

void TrayCommands::ImportFile(TextView path) {
  Text reason;
  const std::optional<NewNote> fresh =
      NoteFromFile(tools_.files, tools_.ansi, path, VirtualScreen().Width(), reason);
  if (fresh) {
    tools_.desk.Show(tools_.desk.Create(*fresh), Showing::kWithFocus);
  } else {
    Tell(tools_.window.Handle(), tools_.resources, IDS_NOT_IMPORTED, Text(path) + u"\n\n" + reason);
  }
}

bool TrayCommands::ImportNoteMessage(TextView text) {
  const auto message = ParseNoteMessage(text);
  if (!message) {
    tools_.log.Write(kLogDetail, u"Ignored a message that is no note");
    return false;
  }
  if (tools_.desk.Create(FromNoteMessage(*message, VirtualScreen().Width())).empty()) return false;
  // Something has come for the user, who may look elsewhere.
  tools_.window.Start(ProgramTimer::kFlash);
  return true;
}

// The stacks first: notes lie over them.
void TrayCommands::BringForward() {
  tools_.stacks.BringForward();
  tools_.notes.BringForward();
}

void TrayCommands::RescueOffScreen() {
  tools_.notes.Rescue();
  tools_.stacks.Rescue();
}

void TrayCommands::StopFlashing() {
  if (tools_.window.Stop(ProgramTimer::kFlash)) tools_.tray.StopFlashing();
}

void TrayCommands::HideAll(bool hidden) {
  tools_.options.hidden = hidden ? 1 : 0;
  if (hidden) {
    tools_.notes.HideAll();
    tools_.stacks.HideAll();
  } else {
    tools_.notes.UnhideAll();
    tools_.stacks.ShowAll();
  }
  tools_.tray.ShowHidden(hidden);
  tools_.saving.SetOptionsDirty();
}

void TrayCommands::MoveDataLocation() {
  const Text folder =
      ChooseFolder(tools_.window.Handle(), tools_.resources, IDS_MOVE_CHOOSE, tools_.desk.Folder());
  if (folder.empty() || tools_.state.exiting) return;
  const FileStatus moved = tools_.control.MoveDataTo(folder);
  if (!moved)
    Tell(tools_.window.Handle(), tools_.resources, IDS_MOVE_FAILED, folder + u"\n\n" + moved.reason);
}

}  // namespace jotlets
