#include "app/win/main_frame.h"

#include <limits>

#include "app/note_message.h"
#include "app/win/data_location.h"
#include "app/win/hot_keys.h"
#include "app/win/main_menus.h"
#include "app/win/orphan_dialog.h"
#include "app/win/registry_policy.h"
#include "app/win/system_choosers.h"
#include "app/win/system_facts.h"
#include "app/win/user_messages.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "data/saving.h"
#include "note/shortcuts.h"
#include "res/resource.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

enum Timer : UINT_PTR {
  kSaveTimer = 1224,
  kFlashTimer = 1225,
  kMinuteTimer = 1226,
  kSecondTimer = 1227,
  kAnimationTimer = 1228,
  kOptionsTimer = 1229,
  kBackupTimer = 1230,  // only while a backup is under way
};

constexpr UINT kSaveDelay = 10000;
constexpr UINT kFlashPeriod = 500;
constexpr UINT kMinutePeriod = 60000;
constexpr UINT kSecondPeriod = 1000;
constexpr UINT kAnimationPeriod = 17;
constexpr int kSafetyCopyMinutes = 60;
constexpr UINT kBackupPeriod = 20;

enum PrivateMessage : UINT {
  kTrayMessage = WM_APP + 1,
  kPurgeMessage,
  kCheckContentMessage,
};

}  // namespace

CMainFrame::CMainFrame(const Resources& resources, ProgramInstance& instance, bool rescue)
    : resources_(resources),
      instance_(instance),
      rescue_(rescue),
      accelerators_(resources.Accelerators(IDA_MAIN)),
      log_(files_, clock_),
      skins_(resources, files_, ansi_, log_),
      desktop_(*this, files_, clock_, log_, options_, skins_),
      saver_(files_, clock_, log_, options_, lists_, desktop_),
      maker_(files_, clock_, log_, options_, lists_, desktop_),
      commands_(*this, ansi_, log_),
      tray_(resources, resources.String(IDS_TOOLTIP)),
      backups_(*this, resources, files_, ansi_, clock_, log_, options_, tray_),
      actions_(*this, resources) {}

CMainFrame::~CMainFrame() = default;

bool CMainFrame::Start() {
  taskbarCreated_ = RegisterWindowMessageW(L"TaskbarCreated");
  if (!RegisterWindowClass(kMainWindowClass) || !Create(kMainWindowClass, WideLiteral(kVersionText), {}, {}))
    return false;
  // The shell is less privileged than a program started as administrator; its broadcast must still come
  // through.
  ChangeWindowMessageFilterEx(Handle(), taskbarCreated_, MSGFLT_ALLOW, nullptr);
  if (OnCreate()) return true;
  exiting_ = true;
  Destroy();
  return false;
}

bool CMainFrame::OnCreate() {
  for (const wchar_t* name :
       {kJotletClass, L"BraskJotletStack", kNoteShadowClass, L"BraskJotletStackShadow"}) {
    if (!RegisterWindowClass(name, nullptr, CS_DBLCLKS))
      Log(kLogLifecycle, LastErrorText(u"RegisterClassEx"));
  }
  tray_.Add(Handle(), kTrayMessage);
  commands_.SetWindow(Handle());
  policy_ = ReadPolicy(RegistryPolicy(), log_);
  if (!FindDataFolder()) return false;
  skins_.Open(folder_);
  if (!RestoreUnderWay(files_, ansi_, folder_).empty()) {
    OpenBackups();
    backups_.FinishInterruptedRestore();
  }
  if (exiting_) return false;
  bool firstRun = !files_.Exists(folder_ + Text(kDataFileName));
  if (firstRun) {
    OpenBackups();
    firstRun = !backups_.OfferAtFirstRun();
  }
  if (exiting_) return false;
  LoadOptions();
  skins_.SetDefault(EffectiveOptions().skin);
  if (firstRun) ProvideFirstRun();
  log_.Open(folder_ + Text(kActivityLogName), options_.debug);
  backups_.Open(folder_);
  if (!firstRun && !LoadJotlets()) return false;
  SaveOptions();
  RegisterHotKeys(Handle(), options_, log_);
  CheckBackup();
  SetTimer(Handle(), kMinuteTimer, kMinutePeriod, nullptr);
  SetTimer(Handle(), kSecondTimer, kSecondPeriod, nullptr);
  SetTimer(Handle(), kAnimationTimer, kAnimationPeriod, nullptr);
  SetDirty();
  Log(kLogLifecycle, u"Started Jotlets: '", kVersionText, u"'");
  ready_ = true;
  // The check may ask the user; it waits until the program is up.
  PostMessageW(Handle(), kCheckContentMessage, 0, 0);
  return true;
}

bool CMainFrame::FindDataFolder() {
  folder_ = jotlets::FindDataFolder(GatherDataFolderFacts(), files_);
  const FileStatus made = MakeDataFolders(files_, folder_);
  if (!made) {
    Tell(Handle(), resources_, IDS_SAVE_FAILED, folder_);
    return false;
  }
  desktop_.SetFolder(folder_);
  maker_.SetFolder(folder_);
  return true;
}

// The templates of new notes and a note that says hello.
void CMainFrame::ProvideFirstRun() {
  maker_.ProvideTemplates(resources_.Bytes(IDR_DEFAULT_RTF));
  installId_ = NewJotletId();
  saver_.SetFolder(folder_, installId_);
  NewJotlet welcome;
  welcome.reason = u"welcome";
  welcome.title = resources_.String(IDS_WELCOME_TITLE);
  welcome.text = resources_.String(IDS_WELCOME_TEXT);
  CreateJotlet(welcome);
}

bool CMainFrame::LoadJotlets() {
  LoadedData loaded = jotlets::LoadJotlets(
      {files_, ansi_, options_, [this] { return NewJotletId(); }, clock_.Now(), log_}, folder_);
  if (loaded.file.version > kDataFileVersion) {
    Tell(Handle(), resources_, IDS_NEWER_VERSION, folder_ + Text(kDataFileName));
    instance_.Release();
    return false;
  }
  TakeLoaded(std::move(loaded));
  return true;
}

void CMainFrame::TakeLoaded(LoadedData loaded) {
  installId_ = loaded.file.installId.empty() ? NewJotletId() : loaded.file.installId;
  saver_.SetFolder(folder_, installId_);
  if (loaded.MustNotBeReplaced()) saver_.KeepUnreadFile();
  const FileStatus friends = MoveFriends(files_, folder_, loaded.file.friendLines);
  if (!friends) Log(kLogLifecycle, u"Unable to write the friends file: ", friends.reason);
  const bool damaged = loaded.damaged;
  if (damaged) {
    tray_.Balloon(kVersionText, DescribeDamage(resources_, loaded));
    SetTimer(Handle(), kFlashTimer, kFlashPeriod, nullptr);
  }
  for (JotletData& record : lists_.Take(std::move(loaded.file))) maker_.OpenLoaded(std::move(record));
  // At once: until then every start would find the same damage and keep one more copy of it.
  if (damaged) SaveJotlets();
  if (rescue_) desktop_.Rescue(VirtualScreen());
  tray_.ShowHidden(options_.hidden == 1);
  if (options_.hidden != 1) desktop_.ShowAll();
}

void CMainFrame::CheckContent() {
  std::vector<Orphan> orphans = CheckContentFiles(files_, folder_, lists_.ByKind(desktop_.Records()), log_);
  if (orphans.empty()) return;
  BOrphanDlg dialog(std::move(orphans));
  if (dialog.Show(resources_, IDD_ORPHANS, Handle()) != IDOK || exiting_) return;
  for (const Orphan& orphan : dialog.Chosen()) {
    NewJotlet adopted;
    adopted.reason = u"adopting";
    adopted.id = maker_.AdoptableId(orphan);
    adopted.isImage = orphan.isImage;
    // Meanwhile a command may have made a note of this name.
    if (!adopted.id.empty() && FindJotlet(adopted.id) == nullptr) CreateJotlet(adopted);
  }
}

LRESULT CMainFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COPYDATA:
      return OnCopyData(reinterpret_cast<HWND>(wParam), reinterpret_cast<const COPYDATASTRUCT*>(lParam));
    case WM_TIMER: OnTimer(wParam); return 0;
    case WM_HOTKEY: OnHotKey(static_cast<int>(wParam)); return 0;
    case WM_COMMAND: OnCommand(LOWORD(wParam)); return 0;
    case kTrayMessage: OnTray(lParam); return 0;
    case kPurgeMessage: desktop_.Purge(); return 0;
    case kCheckContentMessage: CheckContent(); return 0;
    case WM_DISPLAYCHANGE:
    case WM_SETTINGCHANGE:
      if (ready_) desktop_.FollowMonitors();
      break;
    case WM_CLOSE: ExitJotlets(u"close"); return 0;
    case WM_QUERYENDSESSION: return TRUE;
    case WM_ENDSESSION: OnEndSession(wParam != 0); return 0;
    default: break;
  }
  if (message == taskbarCreated_ && message != 0) tray_.AddAgain();
  return Default(message, wParam, lParam);
}

LRESULT CMainFrame::OnCopyData(HWND sender, const COPYDATASTRUCT* record) {
  if (!ready_ || exiting_ || record == nullptr) return FALSE;
  commands_.OnCopyData(sender, *record);
  return TRUE;
}

void CMainFrame::OnTimer(UINT_PTR id) {
  if (exiting_) return;
  switch (id) {
    case kSaveTimer:
      KillTimer(Handle(), kSaveTimer);
      SaveIfDirty();
      break;
    case kOptionsTimer:
      KillTimer(Handle(), kOptionsTimer);
      SaveOptions();
      break;
    case kMinuteTimer: OnMinute(); break;
    case kSecondTimer:
      ++secondsRun_;
      desktop_.Purge();
      // Not every change of the monitors is announced.
      desktop_.FollowMonitors();
      break;
    case kFlashTimer: tray_.Flash(); break;
    case kAnimationTimer: desktop_.Animate(); break;
    case kBackupTimer:
      if (!backups_.Step()) KillTimer(Handle(), kBackupTimer);
      break;
    default: break;
  }
}

void CMainFrame::OnMinute() {
  if (++minutes_ % kSafetyCopyMinutes == 0) SaveJotlets(folder_ + Text(kSafetyCopyName));
  CheckBackup();
}

void CMainFrame::SetDirty() {
  if (exiting_ || folder_.empty()) return;
  saver_.SetDirty();
  SetTimer(Handle(), kSaveTimer, kSaveDelay, nullptr);
}

void CMainFrame::SetOptionsDirty() {
  optionsDirty_ = true;
  SetTimer(Handle(), kOptionsTimer, kSaveDelay, nullptr);
}

bool CMainFrame::SaveJotlets() {
  // A command may still be under way when the session ends inside one of its events.
  if (notesGone_) return false;
  const bool saved = saver_.SaveJotlets(saver_.MainPath(), true);
  if (saved) KillTimer(Handle(), kSaveTimer);
  saveFailureTold_ = saveFailureTold_ && !saved;
  return saved;
}

void CMainFrame::SaveIfDirty() {
  if (saver_.SaveIfDirty()) {
    saveFailureTold_ = false;
    return;
  }
  // Told once, tried again until it works: a box every ten seconds would not let the user mend the cause. The
  // next try does not wait for the box to be answered.
  SetDirty();
  if (saveFailureTold_) return;
  saveFailureTold_ = true;
  Tell(Handle(), resources_, IDS_SAVE_FAILED, saver_.MainPath());
}

void CMainFrame::LoadOptions() {
  const Text path = folder_ + Text(kOptionsFileName);
  optionsUnread_ = !LoadOptionsToReplace(files_, ansi_, log_, clock_.Now().local, path, options_);
  // How many closed notes to keep is then not known: none is dropped.
  if (optionsUnread_) options_.keepDeleted = std::numeric_limits<std::int32_t>::max();
}

void CMainFrame::SaveOptions() {
  optionsDirty_ = false;
  if (optionsUnread_) return;
  const Text path = folder_ + Text(kOptionsFileName);
  Log(kLogDetail, u"SaveOptions started for '", path, u"'");
  const FileStatus saved = SaveOptionsFile(files_, path, options_);
  if (saved) {
    Log(kLogDetail, u"SaveOptions completed OK");
  } else {
    Log(kLogLifecycle, u"SaveOptions failed: ", saved.reason);
  }
}

Text CMainFrame::CreateJotlet(const NewJotlet& fresh) {
  BJotlet* jotlet = maker_.Make(fresh);
  if (jotlet == nullptr) return {};
  const Text id = jotlet->StoredRecord().id;
  SetDirty();
  NotifyListeners(u"500 created desktop jotlet " + fresh.reason, id);
  return id;
}

bool CMainFrame::CloseJotlet(TextView id, TextView reason) {
  const std::int32_t now = RecordTime(clock_.Now().utc);
  // A note whose text could not be written stays open: closed, the text would be gone.
  if (!desktop_.SaveContent(id, clock_.Now())) return false;
  std::optional<JotletData> record = desktop_.Remove(id);
  if (!record) return false;
  const Text closedId = record->id;
  const std::vector<JotletData> dropped = lists_.AddClosed(std::move(*record), now, options_.keepDeleted);
  for (const JotletData& gone : dropped) saver_.RemoveContentLater(gone);
  SetDirty();
  NotifyListeners(Text(u"501 closed desktop jotlet ").append(reason), closedId);
  for (const JotletData& gone : dropped) NotifyListenersText(u"508 deleted closed jotlet " + gone.id);
  return true;
}

bool CMainFrame::DeleteJotlet(TextView id, TextView reason) {
  BJotlet* jotlet = FindJotlet(id);
  if (jotlet == nullptr) return false;
  NotifyListeners(Text(u"502 deleted desktop jotlet ").append(reason), Text(jotlet->StoredRecord().id));
  // A listener may have deleted it from inside the event.
  const std::optional<JotletData> record = desktop_.Remove(id);
  if (!record) return false;
  saver_.RemoveContentLater(*record);
  SetDirty();
  return true;
}

void CMainFrame::ImportNoteMessage(TextView text) {
  const auto message = ParseNoteMessage(text);
  if (!message) {
    Log(kLogDetail, u"Ignored a message that is no note");
    return;
  }
  CreateJotlet(FromNoteMessage(*message));
}

bool CMainFrame::SetDefaultSkin(TextView path) {
  if (IsSkinFixedByPolicy()) return false;
  const std::optional<Text> name = skins_.Install(files_, path);
  if (name) UseDefaultSkin(*name);
  return name.has_value();
}

void CMainFrame::OpenSkinFile(TextView path) {
  if (SetDefaultSkin(path)) return;
  tray_.Balloon(kVersionText, ReplaceAll(resources_.String(IDS_SKIN_UNREADABLE), u"%s", path));
}

void CMainFrame::UseDefaultSkin(const Text& name) {
  Log(kLogDetail, u"Setting skin:", name);
  options_.skin = name;
  skins_.SetDefault(name);
  desktop_.RefreshSkins();
  SetOptionsDirty();
}

void CMainFrame::ImportFile(TextView path) {
  Text reason;
  const std::optional<NewJotlet> fresh = NoteFromFile(files_, ansi_, path, reason);
  if (fresh) {
    CreateJotlet(*fresh);
  } else {
    Tell(Handle(), resources_, IDS_NOT_IMPORTED, Text(path) + u"\n\n" + reason);
  }
}

void CMainFrame::OnAnimationClosed(const Text& id, bool deletes) {
  if (deletes) {
    DeleteJotlet(id, u"endOfTrans");
  } else {
    CloseJotlet(id, u"endOfTrans");
  }
}

void CMainFrame::ExitJotlets(TextView reason, bool silent) {
  if (exiting_) return;
  exiting_ = true;
  if (!ready_) {
    // Asked to end while a box of the start is open: nothing is loaded, and nothing may be saved.
    notesGone_ = true;
    PostQuitMessage(0);
    return;
  }
  ready_ = false;
  UnregisterHotKeys(Handle());
  backups_.Abandon();
  if (optionsDirty_) SaveOptions();
  if (!SaveJotlets() && !silent) Tell(Handle(), resources_, IDS_SAVE_FAILED_AT_EXIT, saver_.MainPath());
  SaveJotlets(folder_ + Text(kExitCopyName));
  notesGone_ = true;
  desktop_.CloseAll();
  NotifyListenersText(u"503 jotlets is exiting, so long");
  tray_.Remove();
  Log(kLogLifecycle, u"Jotlets closed. Ran for ", secondsRun_, u" seconds (", reason, u")");
  PostQuitMessage(0);
  Destroy();
}

void CMainFrame::OnEndSession(bool ending) {
  if (ending) ExitJotlets(u"end of session", true);
}

void CMainFrame::OnHotKey(int id) {
  // The first four and the last of the six; the fifth opens the manage window.
  constexpr UINT kCommands[] = {ID_NEW_JOTLET, ID_NEW_FROM_CLIPBOARD, ID_SHOW_OR_HIDE, 0, ID_MANAGE,
                                ID_RESCUE};
  const int index = id - kFirstHotKey;
  if (index < 0 || index >= static_cast<int>(std::size(kCommands))) return;
  if (kCommands[index] == 0) {
    desktop_.BringForward();
  } else {
    OnCommand(kCommands[index]);
  }
}

void CMainFrame::OnCommand(UINT command) {
  if (exiting_ || !ready_) return;
  switch (command) {
    case ID_NEW_JOTLET:
    case ID_NEW_FROM_CLIPBOARD: {
      NewJotlet fresh;
      fresh.reason = command == ID_NEW_JOTLET ? u"user" : u"clipboard";
      fresh.isImage = command == ID_NEW_JOTLET && options_.defaultImage;
      fresh.fromClipboard = command == ID_NEW_FROM_CLIPBOARD;
      BJotlet* jotlet = FindJotlet(CreateJotlet(fresh));
      if (jotlet != nullptr) jotlet->TakeFocus();
      break;
    }
    case ID_IMPORT:
      if (const Text path = ChooseFileToOpen(Handle(), resources_.String(IDS_FILTER_IMPORT)); !path.empty())
        ImportFile(path);
      break;
    case ID_RESCUE: RescueOffScreen(); break;
    case ID_MOVE_DATA: MoveDataLocation(); break;
    case ID_BACKUP: backups_.TakeManualBackup(); break;
    case ID_RESTORE: backups_.ChooseRestore(); break;
    case ID_SHOW_OR_HIDE: ShowOrHideAll(); break;
    case ID_EXIT_JOTLETS: ExitJotlets(u"user"); break;
    default: break;
  }
}

void CMainFrame::OnTray(LPARAM message) {
  if (message == WM_RBUTTONUP) return ShowTrayMenu();
  if (message != WM_LBUTTONUP && message != WM_LBUTTONDBLCLK) return;
  if (KillTimer(Handle(), kFlashTimer)) tray_.StopFlashing();
  const bool creates = options_.singleClickCreates ? message == WM_LBUTTONUP : message == WM_LBUTTONDBLCLK;
  if (creates) {
    OnCommand(ID_NEW_JOTLET);
  } else if (message == WM_LBUTTONUP) {
    desktop_.BringForward();
  }
}

void CMainFrame::OnCloseWanted(const Text& id) {
  const Text wanted = id;
  if (!CloseJotlet(wanted, u"user") && FindJotlet(wanted) != nullptr)
    Tell(Handle(), resources_, IDS_SAVE_FAILED, folder_);
}

Text CMainFrame::StackName(std::int32_t number) const {
  for (const StackRecord& stack : lists_.stacks) {
    if (stack.number == number) return stack.title;
  }
  return {};
}

Text CMainFrame::BeginningNotice() const { return resources_.String(IDS_BEGINNING); }

void CMainFrame::PurgeSoon() { PostMessageW(Handle(), kPurgeMessage, 0, 0); }

void CMainFrame::ShowTrayMenu() {
  ShowPopupMenu(Handle(), MakeTrayMenu(resources_, options_.hidden == 1).get());
}

bool CMainFrame::TranslateKey(const MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  const auto held = [](int key) { return GetKeyState(key) < 0; };
  const ActionCode action = ActionFromKey(
      {static_cast<std::uint16_t>(message.wParam), held(VK_CONTROL), held(VK_SHIFT), held(VK_MENU)});
  // A dialog of ours may be open over the notes; its keys are its own.
  BJotlet* jotlet = action == kActionNone || exiting_ ? nullptr : desktop_.FindWindowOwner(message.hwnd);
  if (jotlet == nullptr) return false;
  return jotlet->DoAction(action, {});
}

void CMainFrame::ShowOrHideAll() {
  options_.hidden = options_.hidden == 1 ? 0 : 1;
  if (options_.hidden == 1) {
    desktop_.HideAll();
  } else {
    desktop_.UnhideAll();
  }
  tray_.ShowHidden(options_.hidden == 1);
  SetOptionsDirty();
}

void CMainFrame::RescueOffScreen() {
  if (desktop_.Rescue(VirtualScreen())) SetDirty();
}

void CMainFrame::CheckBackup() {
  if (backups_.BeginIfDue()) SetTimer(Handle(), kBackupTimer, kBackupPeriod, nullptr);
}

bool CMainFrame::SaveForBackup() {
  if (optionsDirty_) SaveOptions();
  const bool saved = saver_.SaveIfDirty();
  if (!saved) SetDirty();
  return saved;
}

// While the files are being replaced, what is on the screen must neither change nor be written.
void CMainFrame::HoldStill(bool still) {
  if (still) NotifyListenersText(u"503 jotlets is exiting for a restore");
  exiting_ = still;
  desktop_.Enable(!still);
  // What was not saved before is tried again.
  if (!still) SetDirty();
}

// For a start that needs the backups before it may load: the options may name another place for them.
void CMainFrame::OpenBackups() {
  LoadOptionsFile(files_, ansi_, folder_ + Text(kOptionsFileName), options_);
  backups_.Open(folder_);
}

void CMainFrame::MoveDataLocation() {
  const Text folder = ChooseDataFolder(Handle(), resources_, IDS_MOVE_CHOOSE, folder_);
  if (folder.empty() || exiting_) return;
  // Everything that is in memory goes along.
  SaveOptions();
  const FileStatus moved =
      SaveJotlets() ? MoveData(files_, log_, folder_, folder) : FileStatus::Failed(saver_.MainPath());
  if (!moved) {
    Tell(Handle(), resources_, IDS_MOVE_FAILED, folder + u"\n\n" + moved.reason);
    return;
  }
  Restart();
}

// The data has been replaced or moved: a new start of the program loads it.
void CMainFrame::Restart() {
  exiting_ = true;
  tray_.Remove();
  instance_.Restart(log_);
}

}  // namespace jotlets
