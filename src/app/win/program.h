// The composition: every part of the program, in the order in which they depend on each other, and what
// connects them. How they come up is in program_start.cpp.
#pragma once

#include "app/activity_log.h"
#include "app/win/commands/command_endpoint.h"
#include "app/win/commands/found_notes.h"
#include "app/win/commands/managed_notes.h"
#include "app/win/commands/note_commands.h"
#include "app/win/commands/option_commands.h"
#include "app/win/commands/picture_commands.h"
#include "app/win/commands/previewed_notes.h"
#include "app/win/commands/skin_commands.h"
#include "app/win/commands/tray_commands.h"
#include "app/win/commands/undo_offers.h"
#include "app/win/data_folder_claim.h"
#include "app/win/hot_keys.h"
#include "app/win/keys_dialog.h"
#include "app/win/program_instance.h"
#include "app/win/program_saving.h"
#include "app/win/program_search.h"
#include "app/win/program_window.h"
#include "app/win/system_tray.h"
#include "backup/win/backup_commands.h"
#include "base/win/ansi_code_page.h"
#include "base/win/disk_files.h"
#include "base/win/system_clock.h"
#include "data/options_keeper.h"
#include "data/policy.h"
#include "desk/attached_notes.h"
#include "desk/sleeping_notes.h"
#include "desk/win/note_contents.h"
#include "desk/win/open_notes.h"
#include "desk/win/open_stacks.h"
#include "friends/friend_book.h"
#include "schedule/win/foreign_windows.h"
#include "schedule/win/schedule_signs.h"

namespace jotlets {

/// The system and the log, as all parts use them.
struct ProgramSystem {
  DiskFiles files;
  SystemClock clock;
  AnsiCodePage ansi;
  ActivityLog log{files, clock};
};

class Program final : private OpenNotesOwner,
                      private StacksOwner,
                      private BackupOwner,
                      private ProgramControl {
 public:
  Program(const Resources& resources, Theme& theme, ProgramInstance& instance, bool rescue);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  // Not inline: the linker stumbles over its thunks in several objects.
  ~Program() override;

  /// Brings the program up in its window; false: it must not run (and nothing has been written).
  bool Start(HWND window);
  /// The shutdown, once, whatever the path that leads here. The window is destroyed and the message loop
  /// ends.
  void ExitJotlets(TextView reason, bool silent);

  const ProgramState& State() const { return state_; }
  Taken OnCopyData(HWND sender, const COPYDATASTRUCT& record) { return commands_.OnCopyData(sender, record); }
  void OnTimer(ProgramTimer timer);
  void OnMessage(ProgramMessage message, LPARAM detail);
  void OnCommand(UINT command) { trayCommands_.Do(command); }
  /// Alt+F4, which in a note may be meant for that alone.
  void OnExitKey();
  void OnHotKey(int id) { trayCommands_.OnHotKey(id); }
  void OnTaskbarCreated() { tray_.AddAgain(); }
  void FollowMonitors();
  /// The system may look otherwise than before.
  void FollowLook();
  /// The session is about to end, and has ended, or will not after all.
  void OnSessionEnding();
  void OnSessionEnded(bool ended);
  /// Serves the keys of windows other than notes, before accelerators, those of notes, and what is left for
  /// the first, after accelerators; true when the message is done with.
  bool TranslateDialogKey(const MSG& message) {
    return managed_.Dialog().TranslateKey(message) || found_.Dialog().TranslateKey(message) ||
           optionCommands_.Dialog().TranslateKey(message) || keys_.TranslateKey(message);
  }
  bool TranslateNoteKey(const MSG& message);
  bool TranslateDialog(MSG& message) {
    return managed_.Dialog().TranslateRest(message) || found_.Dialog().TranslateRest(message) ||
           optionCommands_.Dialog().TranslateRest(message) || keys_.TranslateRest(message);
  }

 private:
  void RegisterClasses();
  bool FindDataFolder();
  bool WaitForNamedFolder(const Text& folder);
  bool MayExit(bool silent);
  bool LoadOptions();
  void ApplyOptions();
  void FollowOptions(const Options& before);
  void HoldHotKeys(bool held);
  void WriteBack();
  void ProvideFirstRun();
  void ChooseFirstLook();
  void OpenStore();
  /// Where the store is damaged or gone, makes it anew and opens it; the user waits for it.
  void RescueStore();
  void ServeManaging();
  /// Somebody has found that the store cannot be read.
  void OnStoreDamaged();
  bool LoadJotlets();
  void TellDamage(const LoadedData& loaded);
  void OnMinute();
  void OnSecond();
  void OnDeskChanged();
  void TellUnknownHeight();
  void Restart();

  void OnNoteChanged(const Text& id) override {
    if (!pictures_.MakeFiles(id)) desk_.Changed(id);
  }
  void OnNoteDragged(bool shift) override { stacks_.OnNoteDragged(shift); }
  void OnNoteDropped(BJotlet& jotlet, bool shift) override;
  void OnNoteMoved(const JotletData& record) override { attached_.OnMoved(record); }
  bool IsTargetBehind(const JotletData& record) override { return attached_.IsTargetBehind(record); }
  void OnAnimationClosed(const Text& id, bool deletes) override;
  void OnNoteHidden(const BJotlet& jotlet) override;
  bool DoNoteAction(const Text& id, ActionCode action) override {
    return pictures_.Do(id, action) || noteCommands_.Do(id, action);
  }
  void OnPictureAnswer(const Text& id, const PictureAnswer& answer) override {
    pictures_.OnAnswer(id, answer);
  }
  void SnoozeNote(const Text& id) override { noteCommands_.Snooze(id); }
  ActionFacts FactsOfNote(const BJotlet& jotlet) const override { return noteCommands_.FactsOf(jotlet); }
  std::vector<Rect> StackBounds() const override { return stacks_.Bounds(); }
  const StackRecord* FindStack(std::int32_t number) const override { return desk_.Lists().FindStack(number); }
  void PurgeSoon() override { window_.Post(kPurgeMessage); }
  void BeginAnimations() override { window_.Start(ProgramTimer::kAnimation); }
  void TellUnknownHeightSoon() override { window_.Post(kUnknownHeightMessage); }

  void DoProgramCommand(UINT command) override { trayCommands_.Do(command); }
  void RememberColour(Colour colour) override { noteCommands_.RememberColour(colour); }
  void CloseForUser(const Text& id) override { noteCommands_.CloseForUser(id); }
  void RefreshStacksSoon() override { window_.Post(kRefreshStacksMessage); }

  HWND BackupWindow() const override { return window_.Handle(); }
  bool SaveForBackup() override { return saving_.SaveForBackup(); }
  void HoldStill(bool still) override;
  void TellQuietly(const Text& words) override { tray_.Balloon(kVersionText, words); }
  void RestartAfterRestore() override { Restart(); }

  void ExitJotlets(TextView reason) override { ExitJotlets(reason, false); }
  FileStatus MoveDataTo(TextView folder) override;
  void CheckContent() override;
  void OnContentsChecked(ContentJob::Report report);

  const Resources& resources_;
  Theme& theme_;
  ProgramInstance& instance_;
  const bool rescue_;
  ProgramWindow window_;
  ProgramState state_;
  ProgramSystem system_;
  OptionsKeeper options_;
  Policy policy_;
  Text installId_;
  CopyDataTransport transport_;
  ClientLines clientLines_;
  Listeners listeners_;
  CustomMenus menus_;
  ProgramSkins skins_;
  DataFolderClaim claim_;
  OpenNotes notes_;
  NoteStore store_;
  StoreState storeState_ = StoreState::kNothingThere;
  NoteDesk desk_;
  OpenStacks stacks_;
  ForeignWindowWatcher foreign_;
  AttachedNotes attached_;
  ScheduleSigns signs_;
  SleepingNotes sleeping_;
  FriendBook friends_;
  NoteContents contents_;
  ProgramSaving saving_;
  ProgramSearch search_;
  CSystemTray tray_;
  HotKeys hotKeys_;
  BKeysDlg keys_;
  BackupCommands backups_;
  SkinCommands skinCommands_;
  PictureJobs pictureJobs_{[this] { window_.Post(kPictureMessage); }};
  PreviewedNotes previewed_{resources_, system_.log, desk_, notes_, contents_, system_.files, pictureJobs_};
  ManagedNotes managed_;
  FoundNotes found_;
  OptionCommands optionCommands_;
  UndoOffers undo_;
  StoreCommands storeCommands_{resources_, desk_, notes_, managed_, undo_};
  TrayCommands trayCommands_;
  PictureCommands pictures_;
  NoteCommands noteCommands_;
  CommandEndpoint commands_;
  std::uint32_t secondsRun_ = 0;
  int minutes_ = 0;
  bool tellingHeight_ = false;  // the box is open
};

}  // namespace jotlets
