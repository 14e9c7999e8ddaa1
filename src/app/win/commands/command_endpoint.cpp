#include "app/win/commands/command_endpoint.h"

#include <algorithm>
#include <utility>

#include "app/win/main_frame.h"
#include "skin/picture_file.h"
#include "skin/win/clipboard.h"
#include "ui/foreground_keeper.h"

namespace jotlets {
namespace {

NewJotlet ByCommand() {
  NewJotlet fresh;
  fresh.reason = u"api";
  return fresh;
}

NewJotlet PictureNote(std::string png) {
  NewJotlet fresh = ByCommand();
  fresh.isImage = true;
  fresh.picture = std::move(png);
  return fresh;
}

}  // namespace

CommandEndpoint::CommandEndpoint(CMainFrame& frame, const CodePage& ansi, Log& log)
    : frame_(frame), ansi_(ansi), log_(log), transport_(ansi), listeners_(transport_, log) {}

void CommandEndpoint::OnCopyData(HWND sender, const COPYDATASTRUCT& record) {
  // The payload is the sender's memory; all that follows works on a copy.
  const Text text = TextOfCopyData(record, ansi_);
  const Inbound inbound = RouteInbound(text, frame_.IsSkinFixedByPolicy());
  switch (inbound.kind) {
    case InboundKind::kCommand: {
      const ApiReplyChannel reply(transport_, listeners_, log_, record.dwData,
                                  reinterpret_cast<ClientWindow>(sender));
      ExecuteApiCommand(*this, reply, log_, inbound.text);
      break;
    }
    case InboundKind::kSkinFile: frame_.OpenSkinFile(inbound.text); break;
    case InboundKind::kNoteMessage: frame_.ImportNoteMessage(inbound.text); break;
  }
}

DesktopJotlet* CommandEndpoint::FindDesktop(TextView id) {
  BJotlet* jotlet = frame_.FindJotlet(id);
  if (jotlet == nullptr) return nullptr;
  return &addressed_.emplace(frame_, *jotlet);
}

const JotletData* CommandEndpoint::FindAttached(TextView id) {
  return attached_.Find(frame_.Lists().attached, id);
}

const JotletData* CommandEndpoint::FindClosed(TextView id) {
  return closed_.Find(frame_.Lists().deleted, id);
}

Text CommandEndpoint::DesktopOfWindow(std::int64_t handle) {
  for (const auto& jotlet : frame_.Desktop().All()) {
    if (reinterpret_cast<std::intptr_t>(jotlet->Handle()) == handle) return jotlet->StoredRecord().id;
  }
  return {};
}

std::vector<Text> CommandEndpoint::DesktopIds() const { return frame_.Desktop().Ids(); }
std::vector<Text> CommandEndpoint::AttachedIds() const { return IdsOf(frame_.Lists().attached); }
std::vector<Text> CommandEndpoint::SleepingIds() const { return IdsOf(frame_.Lists().sleeping); }
std::vector<Text> CommandEndpoint::ClosedIds() const { return IdsOf(frame_.Lists().deleted); }

const StackRecord* CommandEndpoint::FindStack(std::int32_t number) const { return frame_.FindStack(number); }

std::vector<std::int32_t> CommandEndpoint::StackNumbers() const {
  std::vector<std::int32_t> numbers;
  for (const StackRecord& stack : frame_.Lists().stacks) numbers.push_back(stack.number);
  return numbers;
}

Text CommandEndpoint::ContentForTransfer(const JotletData& record) { return frame_.RichTextOf(record); }

Text CommandEndpoint::CreateDesktop(TextView text) {
  NewJotlet fresh = ByCommand();
  fresh.text = text;
  return frame_.CreateJotlet(fresh);
}

CommandHost::Pasted CommandEndpoint::CreateFromClipboard(Paste what) {
  if (what == Paste::kPicture) {
    std::string png = ClipboardPicture(frame_.Handle());
    if (png.empty()) return {frame_.CreateJotlet(ByCommand()), false};
    return {frame_.CreateJotlet(PictureNote(std::move(png))), true};
  }
  NewJotlet fresh = ByCommand();
  fresh.fromClipboard = true;
  fresh.plainClipboard = what == Paste::kPlain;
  return {frame_.CreateJotlet(fresh), true};
}

Text CommandEndpoint::CreateFromPicture(TextView path) {
  std::string png = frame_.ReadPicture(path);
  return png.empty() ? Text() : frame_.CreateJotlet(PictureNote(std::move(png)));
}

Text CommandEndpoint::CreateEncoded(TextView encoded, bool asleep) {
  return frame_.AdmitJotlet(encoded, asleep, u"api");
}

bool CommandEndpoint::CloseDesktop(TextView id) { return frame_.CloseJotlet(id, u"api"); }
bool CommandEndpoint::DeleteDesktop(TextView id) { return frame_.DeleteJotlet(id, u"api"); }
CommandHost::Renamed CommandEndpoint::SetDesktopId(TextView id, TextView newId) {
  return frame_.SetJotletId(id, newId);
}

const JotletData* CommandEndpoint::FindSleeping(TextView id) {
  return std::as_const(frame_).Lists().sleeping.Find(id);
}

bool CommandEndpoint::WakeSleeping(TextView id) { return frame_.WakeSleeping(id); }

bool CommandEndpoint::Sleep(TextView id, const WakeFlags& flags, std::int64_t seconds) {
  return frame_.Sleeping().Sleep(id, frame_.Sleeping().Now() + seconds, flags);
}

bool CommandEndpoint::Recur(TextView id, const WakeFlags& flags, const WakeRule& rule, std::int32_t start,
                            std::int32_t end) {
  return frame_.Sleeping().Recur(id, rule, start == kNone ? frame_.Sleeping().Now() : start, end, flags);
}

void CommandEndpoint::SoundAlarm(TextView id, bool on) {
  BJotlet* jotlet = frame_.FindJotlet(id);
  if (jotlet == nullptr) return;
  if (!on) return jotlet->StopAlarm();
  const ForegroundKeeper keeper;
  jotlet->StartAlarm();
}

void CommandEndpoint::MoveSleeping(TextView id, Point position) {
  JotletData* record = frame_.Lists().sleeping.FindToChange(id);
  if (record == nullptr) return;
  record->x = position.x;
  record->y = position.y;
  frame_.OnListsChanged();
}

void CommandEndpoint::SetWakeTime(TextView id, std::int32_t time) {
  JotletData* record = frame_.Lists().sleeping.FindToChange(id);
  if (record == nullptr) return;
  record->sleep.nextWake = time;
  frame_.OnListsChanged();
}

bool CommandEndpoint::SaveNow() {
  frame_.SaveOptionsIfDirty();
  return frame_.SaveJotlets();
}

bool CommandEndpoint::Backup(TextView folder) { return frame_.BackUpInto(folder); }
void CommandEndpoint::BringForward() { frame_.BringForward(); }
void CommandEndpoint::HideAll(bool hidden) { frame_.HideAll(hidden); }
void CommandEndpoint::RecreateIcon() { frame_.RecreateIcon(); }
// This version has none.
std::optional<bool> CommandEndpoint::OpenManageWindow(bool open) {
  BManageDlg& dialog = frame_.Managed().Dialog();
  // As other windows that commands bring up, it leaves the keyboard where it is.
  return open ? dialog.OpenWindow(false) : dialog.CloseWindow();
}
bool CommandEndpoint::IsSkinFixed() { return frame_.IsSkinFixedByPolicy(); }
bool CommandEndpoint::SetDefaultSkin(TextView path) { return frame_.SetDefaultSkin(path); }
Text CommandEndpoint::DefaultSkinPath() { return frame_.Skins().DefaultPath(); }
std::array<std::int32_t, 3> CommandEndpoint::Snapping() const { return frame_.CurrentOptions().snap; }
bool CommandEndpoint::RolledHasAltPosition() const { return frame_.CurrentOptions().rolledHasAltPosition; }
Text CommandEndpoint::DataPath() const { return frame_.DataFolder(); }
Text CommandEndpoint::UniqueId() const { return frame_.InstallId(); }
LocalTime CommandEndpoint::ToLocal(std::int32_t utc) { return frame_.ToLocal(utc); }
const FriendList& CommandEndpoint::Friends() { return frame_.Friends().List(); }

CustomCommands& CommandEndpoint::CustomMenu(MenuKind kind) {
  return kind == MenuKind::kOfNotes ? ofNotes_ : ofProgram_;
}

void CommandEndpoint::NotifyMoved(TextView id) { frame_.NotifyListeners(u"509 desktop jotlet moved", id); }

}  // namespace jotlets
