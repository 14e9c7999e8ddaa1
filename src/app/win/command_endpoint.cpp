#include "app/win/command_endpoint.h"

#include <algorithm>
#include <utility>

#include "app/win/foreground_keeper.h"
#include "app/win/main_frame.h"

namespace jotlets {

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
  return &addressed_.emplace(*jotlet);
}

std::vector<Text> CommandEndpoint::DesktopIds() const { return frame_.Desktop().Ids(); }
std::vector<Text> CommandEndpoint::AttachedIds() const { return IdsOf(frame_.Lists().attached); }
std::vector<Text> CommandEndpoint::SleepingIds() const { return IdsOf(frame_.Lists().sleeping); }
std::vector<Text> CommandEndpoint::ClosedIds() const { return IdsOf(frame_.Lists().deleted); }

const JotletData* CommandEndpoint::FindAttached(TextView id) {
  const auto& attached = frame_.Lists().attached;
  const auto at = std::find_if(attached.begin(), attached.end(),
                               [id](const JotletData& record) { return EqualIgnoreCase(record.id, id); });
  return at == attached.end() ? nullptr : &*at;
}

const StackRecord* CommandEndpoint::FindStack(std::int32_t number) const { return frame_.FindStack(number); }

std::vector<std::int32_t> CommandEndpoint::StackNumbers() const {
  std::vector<std::int32_t> numbers;
  for (const StackRecord& stack : frame_.Lists().stacks) numbers.push_back(stack.number);
  return numbers;
}

Text CommandEndpoint::CreateDesktop(TextView text) {
  NewJotlet fresh;
  fresh.text = text;
  fresh.reason = u"api";
  return frame_.CreateJotlet(fresh);
}

bool CommandEndpoint::CloseDesktop(TextView id) { return frame_.CloseJotlet(id, u"api"); }
bool CommandEndpoint::DeleteDesktop(TextView id) { return frame_.DeleteJotlet(id, u"api"); }

Text CommandEndpoint::ContentForTransfer(const JotletData& record) {
  BJotlet* jotlet = frame_.FindJotlet(record.id);
  return jotlet == nullptr ? frame_.StoredRtf(record) : jotlet->Rtf();
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
  record->sleepNextWake = time;
  frame_.OnListsChanged();
}

bool CommandEndpoint::SaveNow() { return frame_.SaveJotlets(); }
void CommandEndpoint::BringForward() { frame_.BringForward(); }
void CommandEndpoint::NotifyMoved(TextView id) { frame_.NotifyListeners(u"509 desktop jotlet moved", id); }
bool CommandEndpoint::RolledHasAltPosition() const { return frame_.CurrentOptions().rolledHasAltPosition; }
Text CommandEndpoint::DataPath() const { return frame_.DataFolder(); }
Text CommandEndpoint::UniqueId() const { return frame_.InstallId(); }

JotletData& CommandEndpoint::Addressed::Record() { return jotlet_.Record(); }
Text CommandEndpoint::Addressed::PlainText() { return jotlet_.PlainText(); }
Text CommandEndpoint::Addressed::Rtf() { return jotlet_.Rtf(); }
void CommandEndpoint::Addressed::SetTitle(TextView title) { jotlet_.SetTitle(title); }
void CommandEndpoint::Addressed::SetColour(Colour colour) { jotlet_.SetColour(colour); }
bool CommandEndpoint::Addressed::SetPlainText(TextView text) { return jotlet_.SetPlainText(text); }
bool CommandEndpoint::Addressed::SetRtf(TextView rtf) { return jotlet_.SetRtf(rtf); }
void CommandEndpoint::Addressed::MoveTo(Point position) { jotlet_.MoveTo(position); }

}  // namespace jotlets
