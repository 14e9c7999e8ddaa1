#include "app/win/main_frame.h"

#include "app/win/data_location.h"
#include "app/win/hot_keys.h"
#include "data/data_folder.h"
#include "desk/note_message.h"
#include "res/resource.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

constexpr UINT kSaveDelay = 10000;
constexpr UINT kBackupPeriod = 20;
constexpr int kSafetyCopyMinutes = 60;

}  // namespace

CMainFrame::CMainFrame(const Resources& resources, ProgramInstance& instance, bool rescue)
    : resources_(resources),
      instance_(instance),
      rescue_(rescue),
      accelerators_(resources.Accelerators(IDA_MAIN)),
      log_(files_, clock_),
      options_(files_, ansi_, clock_, log_),
      skins_(resources, files_, ansi_, log_),
      desktop_(*this, files_, clock_, log_, options_.Current(), skins_),
      stacks_(*this, resources, lists_, desktop_),
      attachments_(*this, lists_),
      saver_(files_, clock_, log_, options_.Current(), lists_, desktop_),
      friends_(files_, ansi_, clock_, log_),
      maker_(files_, clock_, log_, options_.Current(), lists_, desktop_),
      sleeping_(*this, files_, clock_, log_, options_.Current(), lists_, desktop_, maker_, saver_),
      managed_(*this, resources, files_, lists_, desktop_, maker_, saver_, options_.Current()),
      commands_(*this, ansi_, log_),
      tray_(resources, resources.String(IDS_TOOLTIP)),
      backups_(*this, resources, files_, ansi_, clock_, log_, options_.Current()),
      trayCommands_(*this, resources, files_, ansi_, options_, tray_, backups_),
      noteCommands_(*this, resources) {}

CMainFrame::~CMainFrame() = default;

LRESULT CMainFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COPYDATA:
      return OnCopyData(reinterpret_cast<HWND>(wParam), reinterpret_cast<const COPYDATASTRUCT*>(lParam));
    case WM_TIMER: OnTimer(wParam); return 0;
    case WM_HOTKEY: trayCommands_.OnHotKey(static_cast<int>(wParam)); return 0;
    case WM_COMMAND: OnCommand(LOWORD(wParam)); return 0;
    case kTrayMessage: trayCommands_.OnTray(static_cast<UINT>(lParam)); return 0;
    case kPurgeMessage:
      desktop_.Purge();
      stacks_.Purge();
      return 0;
    case kRefreshStacksMessage: stacks_.Refresh(); return 0;
    case kCheckContentMessage: CheckContent(); return 0;
    case WM_DISPLAYCHANGE:
    case WM_SETTINGCHANGE:
      if (ready_) FollowMonitors();
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
      options_.Save();
      break;
    case kMinuteTimer: OnMinute(); break;
    case kSecondTimer: OnSecond(); break;
    case kFlashTimer: tray_.Flash(); break;
    case kAnimationTimer: desktop_.Animate(); break;
    case kBackupTimer:
      if (!backups_.Step()) KillTimer(Handle(), kBackupTimer);
      break;
    default: break;
  }
}

void CMainFrame::FollowMonitors() {
  desktop_.FollowMonitors();
  stacks_.FollowMonitors();
}

// The stacks first: notes lie over them.
void CMainFrame::BringForward() {
  stacks_.BringForward();
  desktop_.BringForward();
}

void CMainFrame::RescueOffScreen() {
  desktop_.Rescue(VirtualScreen());
  stacks_.Rescue(VirtualScreen());
}

void CMainFrame::OnMinute() {
  if (++minutes_ % kSafetyCopyMinutes == 0) SaveJotlets(folder_ + Text(kSafetyCopyName));
  CheckBackup();
}

void CMainFrame::OnSecond() {
  desktop_.Purge();
  stacks_.Purge();
  // Not every change of the monitors is announced.
  FollowMonitors();
  WakeSleeping();
  CheckAlarms();
  AttachPass();
  ++secondsRun_;
}

void CMainFrame::OnAlarm(bool sounding) {
  if (!sounding) {
    StopSounds();
  } else if (CurrentOptions().soundAlarm == 1) {
    PlayAlarmSound(kAlarmSound);
  }
}

void CMainFrame::SetDirty() {
  if (exiting_ || folder_.empty()) return;
  saver_.SetDirty();
  SetTimer(Handle(), kSaveTimer, kSaveDelay, nullptr);
  // Whatever changed may show in the list of a stack.
  stacks_.RefreshSoon();
  managed_.Dialog().RefreshSoon();
}

void CMainFrame::SetOptionsDirty() {
  options_.SetDirty();
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

Text CMainFrame::CreateJotlet(const NewJotlet& fresh) {
  BJotlet* jotlet = maker_.Make(fresh);
  if (jotlet == nullptr) return {};
  const Text id = jotlet->StoredRecord().id;
  SetDirty();
  NotifyListeners(u"500 created desktop jotlet " + fresh.reason, id);
  return id;
}

bool CMainFrame::OpenAttached(JotletData record, bool shown) {
  const BJotlet* jotlet = maker_.OpenLoaded(std::move(record));
  if (jotlet == nullptr) return false;
  const Text id = jotlet->StoredRecord().id;
  if (shown && !jotlet->StoredRecord().hidden && CurrentOptions().hidden != 1) FindJotlet(id)->Show();
  Log(kLogDetail, u"Created (attached) ", id);
  SetDirty();
  NotifyListeners(u"500 created desktop jotlet attached", id);
  return true;
}

std::optional<JotletData> CMainFrame::TakeOffDesktop(TextView id) {
  // What could not be written would be gone.
  if (!desktop_.SaveContent(id, clock_.Now())) return std::nullopt;
  return desktop_.Remove(id);
}

bool CMainFrame::CloseJotlet(TextView id, TextView reason) {
  const std::int32_t now = RecordTime(clock_.Now().utc);
  std::optional<JotletData> record = TakeOffDesktop(id);
  if (!record) return false;
  const Text closedId = record->id;
  const std::vector<JotletData> dropped = AddClosed(std::move(*record), now);
  NotifyListeners(Text(u"501 closed desktop jotlet ").append(reason), closedId);
  TellDropped(dropped);
  return true;
}

// What falls off the end of the closed notes is deleted with the next save, and to be told of.
std::vector<JotletData> CMainFrame::AddClosed(JotletData record, std::int32_t closedAt) {
  std::vector<JotletData> dropped =
      lists_.AddClosed(std::move(record), closedAt, CurrentOptions().keepDeleted);
  for (const JotletData& gone : dropped) saver_.RemoveContentLater(gone);
  SetDirty();
  return dropped;
}

void CMainFrame::TellDropped(const std::vector<JotletData>& dropped) {
  for (const JotletData& gone : dropped) NotifyListenersText(u"508 deleted closed jotlet " + gone.id);
}

void CMainFrame::CloseRecords(std::vector<JotletData> records) {
  std::vector<JotletData> dropped;
  for (JotletData& record : records) {
    for (JotletData& gone : AddClosed(std::move(record), RecordTime(clock_.Now().utc)))
      dropped.push_back(std::move(gone));
  }
  TellDropped(dropped);
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
  options_.Current().skin = name;
  skins_.SetDefault(name);
  desktop_.RefreshSkins();
  stacks_.RefreshSkins();
  SetOptionsDirty();
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
  sleeping_.Enable(false);
  desktop_.StopAlarms();
  UnregisterHotKeys(Handle());
  backups_.Abandon();
  managed_.Dialog().CloseForExit();
  options_.SaveIfDirty();
  if (!SaveJotlets() && !silent) Tell(Handle(), resources_, IDS_SAVE_FAILED_AT_EXIT, saver_.MainPath());
  SaveJotlets(folder_ + Text(kExitCopyName));
  notesGone_ = true;
  desktop_.CloseAll();
  stacks_.CloseAll();
  NotifyListenersText(u"503 jotlets is exiting, so long");
  tray_.Remove();
  Log(kLogLifecycle, u"Jotlets closed. Ran for ", secondsRun_, u" seconds (", reason, u")");
  PostQuitMessage(0);
  Destroy();
}

void CMainFrame::OnEndSession(bool ending) {
  if (ending) ExitJotlets(u"end of session", true);
}

void CMainFrame::CloseForUser(const Text& id) {
  const Text wanted = id;
  if (!CloseJotlet(wanted, u"user") && FindJotlet(wanted) != nullptr)
    Tell(Handle(), resources_, IDS_SAVE_FAILED, folder_);
}

Text CMainFrame::StackName(std::int32_t number) const {
  const StackRecord* stack = lists_.FindStack(number);
  return stack == nullptr ? Text() : stack->title;
}

Text CMainFrame::BeginningNotice() const { return resources_.String(IDS_BEGINNING); }

void CMainFrame::PurgeSoon() { PostMessageW(Handle(), kPurgeMessage, 0, 0); }

void CMainFrame::OnCommand(UINT command) {
  if (ready_ && !exiting_) trayCommands_.Do(command);
}

void CMainFrame::StopFlashing() {
  if (KillTimer(Handle(), kFlashTimer)) tray_.StopFlashing();
}

FileStatus CMainFrame::MoveDataTo(TextView folder) {
  // Everything that is in memory goes along.
  options_.Save();
  FileStatus moved =
      SaveJotlets() ? MoveData(files_, log_, folder_, folder) : FileStatus::Failed(saver_.MainPath());
  if (moved) Restart();
  return moved;
}

void CMainFrame::CheckBackup() {
  if (backups_.BeginIfDue()) SetTimer(Handle(), kBackupTimer, kBackupPeriod, nullptr);
}

bool CMainFrame::SaveForBackup() {
  options_.SaveIfDirty();
  const bool saved = saver_.SaveIfDirty();
  if (!saved) SetDirty();
  return saved;
}

// While the files are being replaced, what is on the screen must neither change nor be written.
void CMainFrame::HoldStill(bool still) {
  if (still) NotifyListenersText(u"503 jotlets is exiting for a restore");
  exiting_ = still;
  desktop_.Enable(!still);
  sleeping_.Enable(!still);
  stacks_.Enable(!still);
  managed_.Dialog().Enable(!still);
  // What was not saved before is tried again.
  if (!still) SetDirty();
}

// The data has been replaced or moved: a new start of the program loads it.
void CMainFrame::Restart() {
  exiting_ = true;
  tray_.Remove();
  instance_.Restart(log_);
}

}  // namespace jotlets
