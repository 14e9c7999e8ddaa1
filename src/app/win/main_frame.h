// The hidden main window: it owns everything that lives longer than a note window, and forwards.
#pragma once

#include <windows.h>

#include "app/activity_log.h"
#include "app/win/commands/command_endpoint.h"
#include "app/win/commands/managed_notes.h"
#include "app/win/commands/note_commands.h"
#include "app/win/commands/tray_commands.h"
#include "app/win/program_instance.h"
#include "app/win/system_tray.h"
#include "backup/win/backup_commands.h"
#include "base/win/ansi_code_page.h"
#include "base/win/disk_files.h"
#include "base/win/system_clock.h"
#include "data/loading.h"
#include "data/options.h"
#include "data/options_keeper.h"
#include "data/policy.h"
#include "desk/jotlet_lists.h"
#include "desk/note_saver.h"
#include "desk/win/attachments.h"
#include "desk/win/desktop_jotlets.h"
#include "desk/win/desktop_stacks.h"
#include "desk/win/file_exchange.h"
#include "desk/win/jotlet_maker.h"
#include "desk/win/note_keys.h"
#include "desk/win/sleeping_jotlets.h"
#include "friends/friend_book.h"
#include "schedule/win/alarm_sound.h"
#include "ui/screen.h"
#include "ui/window.h"

namespace jotlets {

class CMainFrame final : public Window, public DesktopOwner, public BackupOwner {
 public:
  CMainFrame(const Resources& resources, ProgramInstance& instance, bool rescue);
  ~CMainFrame() override;

  /// Creates the window and brings the program up; false: it must not run (and nothing has been written).
  bool Start();

  template <typename... Parts>
  void Log(int level, const Parts&... parts) {
    log_.Write(level, parts...);
  }

  void SetDirty() override;
  void SetOptionsDirty();
  void SaveOptionsIfDirty() { options_.SaveIfDirty(); }
  /// The main save, now.
  bool SaveJotlets();
  /// A copy of the data file to another path.
  bool SaveJotlets(TextView path) { return !notesGone_ && saver_.SaveJotlets(path, false); }
  /// The main save, when anything is dirty; the user is told when it fails.
  void SaveIfDirty();

  void NotifyListeners(TextView eventText, TextView id) override {
    commands_.Listeners().Notify(eventText, id);
  }
  void NotifyListenersMany(TextView eventText, std::span<const Text> ids) override {
    commands_.Listeners().NotifyMany(eventText, ids);
  }
  void NotifyListenersText(TextView text) { commands_.Listeners().NotifyText(text); }

  Text NewJotletId() { return maker_.NewJotletId(); }
  BJotlet* FindJotlet(TextView id) { return desktop_.Find(id); }
  /// Makes a new note and tells the listeners; its id, empty when that failed.
  Text CreateJotlet(const NewJotlet& fresh);
  /// Moves an open note to the closed ones.
  bool CloseJotlet(TextView id, TextView reason);
  /// Moves notes without a window, which are in no list any more, to the closed ones.
  void CloseRecords(std::vector<JotletData> records);
  /// Deletes an open note for good.
  bool DeleteJotlet(TextView id, TextView reason);
  // Whatever shows lists of notes is to hear of it here.
  void OnListsChanged() override { SetDirty(); }
  /// The notes that sleep, and how they wake.
  SleepingJotlets& Sleeping() { return sleeping_; }
  /// Runs the wake pass, or wakes one note at once; whether that one woke.
  void WakeSleeping() { sleeping_.WakeSleeping(); }
  bool WakeSleeping(TextView id) { return sleeping_.WakeSleeping(id); }
  void CheckAlarms() { sleeping_.CheckAlarms(); }
  void PlayAlarmSound(int kind) { jotlets::PlayAlarmSound(CurrentOptions(), log_, kind); }
  /// Opens the window of an attached note, shown unless it is a hidden one, and tells the listeners; false
  /// when there is no window to be had.
  bool OpenAttached(JotletData record, bool shown);
  /// Takes a note off the desktop without closing it; nothing when it is not there, or its content could not
  /// be saved.
  std::optional<JotletData> TakeOffDesktop(TextView id);
  /// Attached notes come to the windows of other programs, follow them and go.
  void AttachPass() { attachments_.Pass(); }
  /// The stack of a number; nullptr when there is none.
  const StackRecord* FindStack(std::int32_t number) const { return lists_.FindStack(number); }
  std::int32_t NewStackNumber() const { return jotlets::NewStackNumber(lists_.stacks); }
  void ImportNoteMessage(TextView message);
  /// Makes a note of its encoded form, see `AdmitEncodedNote`; its id, empty when that failed.
  Text AdmitJotlet(TextView encoded, bool asleep, TextView reason);
  /// Gives an open note another id and its content another file; the old one goes with the next save.
  CommandHost::Renamed SetJotletId(TextView id, TextView newId);
  /// Shows a note in the skin of a file, of a name, or for no text in the default one; false when there is no
  /// such skin, or policy fixes it.
  bool SetJotletSkin(BJotlet& jotlet, TextView nameOrPath);
  /// Puts a picture file in the place of a picture note's content.
  bool SetJotletPicture(BJotlet& jotlet, TextView path);
  /// A picture file as PNG bytes; empty when it is none.
  std::string ReadPicture(TextView path) const;
  /// The bytes of a note's content file.
  std::string ContentOf(const JotletData& record) const;
  /// The rich text of a note as it is now, open or not; empty when it has none.
  Text RichTextOf(const JotletData& record);
  /// Writes the unsaved content of an open note.
  bool SaveContent(TextView id);
  /// Copies the saved data folder into a folder.
  bool BackUpInto(TextView folder);
  void HideAll(bool hidden) { trayCommands_.HideAll(hidden); }
  void RecreateIcon() { tray_.AddAgain(); }
  /// Makes the skin in a file the default one; false when it is none, or policy fixes the skin.
  bool SetDefaultSkin(TextView path);
  /// The same for a file that the user has opened, who is told when it is no skin.
  void OpenSkinFile(TextView path);
  void UseDefaultSkin(const Text& name);

  /// Closes a note for the user, who is told when that is not possible.
  void CloseForUser(const Text& id);
  /// Carries out a command of the tray menu, unless the program is coming up or going down.
  void OnCommand(UINT command);
  /// The user has seen why the tray icon flashes.
  void StopFlashing();
  void BringForward();
  /// Brings all notes and stacks back on to the screen.
  void RescueOffScreen();
  /// Saves everything, moves the data folder to another place and starts anew from there.
  FileStatus MoveDataTo(TextView folder);
  /// Compares the content files with the notes; the user may adopt what belongs to none.
  void CheckContent();
  /// Makes a note of a file; the user is told when that fails.
  void ImportFile(TextView path) { trayCommands_.ImportFile(path); }
  FileStatus WriteCopy(BJotlet& jotlet, TextView path) {
    return WriteNoteCopy(files_, jotlet, folder_, path);
  }
  /// The notes as the manage window has them, and the window itself.
  ManagedNotes& Managed() { return managed_; }
  /// Serves what windows other than notes do with a message, before and after accelerators; true when it is
  /// done with.
  bool TranslateDialogKey(const MSG& message) { return managed_.Dialog().TranslateKey(message); }
  bool TranslateDialog(MSG& message) { return managed_.Dialog().TranslateRest(message); }
  /// Serves a key pressed in a note; false when it belongs to the text.
  bool TranslateKey(const MSG& message) { return !exiting_ && ServeNoteKey(desktop_, message); }

  /// A note or a stack waits to be thrown away.
  void PurgeSoon() override;
  void RefreshStacksSoon() { PostMessageW(Handle(), kRefreshStacksMessage, 0, 0); }

  /// The shutdown, once, whatever the path that leads here.
  void ExitJotlets(TextView reason, bool silent = false);

  DesktopJotlets& Desktop() { return desktop_; }
  const DesktopJotlets& Desktop() const { return desktop_; }
  DesktopStacks& Stacks() { return stacks_; }
  Attachments& AttachedNotes() { return attachments_; }
  ProgramSkins& Skins() { return skins_; }
  Moment Now() const { return clock_.Now(); }
  const JotletLists& Lists() const { return lists_; }
  FriendBook& Friends() { return friends_; }
  CommandEndpoint& Commands() { return commands_; }
  LocalTime ToLocal(std::int64_t utc) const { return clock_.ToLocal(utc); }
  JotletLists& Lists() { return lists_; }
  /// The user's options; whoever changes them calls `SetOptionsDirty`.
  Options& CurrentOptions() { return options_.Current(); }
  const Options& CurrentOptions() const { return options_.Current(); }
  /// The options that hold, the administrator's policy counted in.
  Options EffectiveOptions() const { return WithPolicy(CurrentOptions(), policy_); }
  bool IsSkinFixedByPolicy() const { return policy_.skinFile.has_value(); }
  const Text& DataFolder() const { return folder_; }
  const Text& InstallId() const { return installId_; }
  /// The shutdown has begun, or the data is being replaced.
  bool IsExiting() const { return exiting_; }
  HACCEL Accelerators() const { return accelerators_.get(); }

 private:
  enum Timer : UINT_PTR {
    kSaveTimer = 1224,
    kFlashTimer = 1225,
    kMinuteTimer = 1226,
    kSecondTimer = 1227,
    kAnimationTimer = 1228,
    kOptionsTimer = 1229,
    kBackupTimer = 1230,  // only while a backup is under way
  };
  enum PrivateMessage : UINT {
    kTrayMessage = WM_APP + 1,
    kPurgeMessage,
    kCheckContentMessage,
    kRefreshStacksMessage,
  };

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnCreate();
  bool FindDataFolder();
  void ProvideFirstRun();
  bool LoadJotlets();
  void TakeLoaded(LoadedData loaded);

  LRESULT OnCopyData(HWND sender, const COPYDATASTRUCT* record);
  void OnTimer(UINT_PTR id);
  void FollowMonitors();
  void OnMinute();
  void OnSecond();
  void OnEndSession(bool ending);

  bool HasStack(std::int32_t number) const override { return lists_.FindStack(number) != nullptr; }
  Text StackName(std::int32_t number) const override;
  std::vector<Rect> StackBounds() const override { return stacks_.Bounds(); }
  void OnNoteDragged(bool shift) override { stacks_.OnNoteDragged(shift); }
  void OnNoteDropped(BJotlet& jotlet, bool shift) override { stacks_.OnNoteDropped(jotlet, shift); }
  bool IsTargetBehind(BJotlet& jotlet) override { return attachments_.IsTargetBehind(jotlet.StoredRecord()); }
  void OnNoteMoved(BJotlet& jotlet) override { attachments_.OnMoved(jotlet); }
  Text BeginningNotice() const override;
  void OnAnimationClosed(const Text& id, bool deletes) override;
  bool DoJotletAction(const Text& id, ActionCode action) override { return noteCommands_.Do(id, action); }
  bool IsActionEnabled(const BJotlet& jotlet, ActionCode action) const override {
    return StateOf(action, noteCommands_.FactsOf(jotlet)).enabled;
  }
  void OnAlarm(bool sounding) override;

  HWND BackupWindow() const override { return Handle(); }
  bool SaveForBackup() override;
  void HoldStill(bool still) override;
  void TellQuietly(const Text& words) override { tray_.Balloon(kVersionText, words); }
  void RestartAfterRestore() override { Restart(); }

  std::vector<JotletData> AddClosed(JotletData record, std::int32_t closedAt);
  void TellDropped(const std::vector<JotletData>& dropped);
  void CheckBackup();
  void OpenBackups();
  void Restart();

  const Resources& resources_;
  ProgramInstance& instance_;
  const bool rescue_;
  UniqueAccelerators accelerators_;
  DiskFiles files_;
  SystemClock clock_;
  AnsiCodePage ansi_;
  ActivityLog log_;
  OptionsKeeper options_;
  Policy policy_;
  JotletLists lists_;
  ProgramSkins skins_;
  DesktopJotlets desktop_;
  DesktopStacks stacks_;
  Attachments attachments_;
  NoteSaver saver_;
  FriendBook friends_;
  JotletMaker maker_;
  SleepingJotlets sleeping_;
  ManagedNotes managed_;
  CommandEndpoint commands_;
  CSystemTray tray_;
  BackupCommands backups_;
  TrayCommands trayCommands_;
  NoteCommands noteCommands_;
  Text folder_;
  Text installId_;
  UINT taskbarCreated_ = 0;
  std::uint32_t secondsRun_ = 0;
  int minutes_ = 0;
  bool ready_ = false;      // the notes are loaded
  bool exiting_ = false;    // the shutdown has begun
  bool notesGone_ = false;  // the notes have been saved for the last time and closed
  bool saveFailureTold_ = false;
};

}  // namespace jotlets
