#include "app/win/commands/command_endpoint.h"

#include <algorithm>
#include <exception>

#include "backup/backup.h"
#include "picture/win/picture_clipboard.h"

namespace jotlets {
namespace {

NewNote ByCommand() {
  NewNote fresh;
  fresh.reason = Reason::kApi;
  return fresh;
}

NewNote PictureNote(std::string png) {
  NewNote fresh = ByCommand();
  fresh.isImage = true;
  fresh.content = std::move(png);
  return fresh;
}

bool IsCommand(const COPYDATASTRUCT& record) {
  if (record.lpData == nullptr) return false;
  const std::string_view bytes(static_cast<const char*>(record.lpData), record.cbData);
  return StartsWithIgnoreCase(FromAscii(bytes.substr(0, 4)), u"api ");
}

constexpr TextView kTooLarge = u"997 too large";
constexpr TextView kFailedInside = u"997 failed";

}  // namespace

Taken CommandEndpoint::OnCopyData(HWND sender, const COPYDATASTRUCT& record) {
  const ApiReplyChannel reply(program_.clientLines, program_.listeners, record.dwData,
                              reinterpret_cast<ClientWindow>(sender));
  try {
    return Serve(reply, record);
  } catch (const std::exception& error) {
    // To the sender, no answer would mean that we are not there yet.
    program_.log.Write(kLogLifecycle, u"A message of another program failed: ", FromUtf8(error.what()));
    if (!reply.HasReplied() && IsCommand(record)) reply.SendLine(kFailedInside);
    return Taken::kFailed;
  }
}

Taken CommandEndpoint::Serve(const ApiReplyChannel& reply, const COPYDATASTRUCT& record) {
  if (record.cbData > kLargestInbound) {
    program_.log.Write(kLogLifecycle, u"A message of another program is too large: ", record.cbData);
    if (IsCommand(record)) reply.SendLine(kTooLarge);
    return Taken::kFailed;
  }
  // The payload is the sender's memory; all that follows works on a copy.
  const Text text = TextOfCopyData(record, program_.ansi);
  const Inbound inbound = RouteInbound(text, note_.skins.IsFixedByPolicy());
  bool done = true;
  switch (inbound.kind) {
    case InboundKind::kCommand: ExecuteApiCommand(*this, reply, program_.log, inbound.text); break;
    case InboundKind::kSkinFile: done = note_.skins.OpenFile(inbound.text); break;
    case InboundKind::kNoteMessage: done = program_.tray.ImportNoteMessage(inbound.text); break;
  }
  return done ? Taken::kYes : Taken::kFailed;
}

DesktopJotlet* CommandEndpoint::FindDesktop(TextView id) {
  BJotlet* jotlet = note_.notes.Find(id);
  if (jotlet == nullptr) return nullptr;
  return &addressed_.emplace(note_, *jotlet);
}

const JotletData* CommandEndpoint::FindAttached(TextView id) { return note_.desk.Lists().attached.Find(id); }

const JotletData* CommandEndpoint::FindClosed(TextView id) { return note_.desk.Lists().closed.Find(id); }

Text CommandEndpoint::DesktopOfWindow(std::int64_t handle) {
  for (const auto& jotlet : note_.notes.All()) {
    if (reinterpret_cast<std::intptr_t>(jotlet->Handle()) == handle) return jotlet->StoredRecord().id;
  }
  return {};
}

std::vector<Text> CommandEndpoint::DesktopIds() const { return note_.notes.Ids(); }
std::vector<Text> CommandEndpoint::AttachedIds() const { return IdsOf(note_.desk.Lists().attached); }
std::vector<Text> CommandEndpoint::SleepingIds() const { return IdsOf(note_.desk.Lists().sleeping); }
std::vector<Text> CommandEndpoint::ClosedIds() const { return IdsOf(note_.desk.Lists().closed); }

const StackRecord* CommandEndpoint::FindStack(std::int32_t number) const {
  return note_.desk.Lists().FindStack(number);
}

std::vector<std::int32_t> CommandEndpoint::StackNumbers() const {
  std::vector<std::int32_t> numbers;
  for (const StackRecord& stack : note_.desk.Lists().stacks) numbers.push_back(stack.number);
  return numbers;
}

Text CommandEndpoint::ContentForTransfer(const JotletData& record) {
  return note_.contents.RichTextOf(record);
}

Text CommandEndpoint::CreateDesktop(TextView text) {
  NewNote fresh = ByCommand();
  fresh.text = text;
  return note_.desk.Create(fresh);
}

CommandHost::Pasted CommandEndpoint::CreateFromClipboard(Paste what) {
  if (what == Paste::kPicture) {
    std::string png = ClipboardPicture(note_.window.Handle());
    if (png.empty()) return {note_.desk.Create(ByCommand()), false};
    return {note_.desk.Create(PictureNote(std::move(png))), true};
  }
  NewNote fresh = ByCommand();
  fresh.fromClipboard = true;
  fresh.plainClipboard = what == Paste::kPlain;
  return {note_.desk.Create(fresh), true};
}

Text CommandEndpoint::CreateFromPicture(TextView path) {
  std::string png = note_.contents.ReadPicture(path);
  return png.empty() ? Text() : note_.desk.Create(PictureNote(std::move(png)));
}

Text CommandEndpoint::CreateEncoded(TextView encoded, bool asleep) {
  return note_.desk.Admit(encoded, asleep, Reason::kApi);
}

bool CommandEndpoint::CloseDesktop(TextView id) { return note_.desk.Close(id, Reason::kApi); }
bool CommandEndpoint::DeleteDesktop(TextView id) { return note_.desk.Delete(id, Reason::kApi); }
Renamed CommandEndpoint::SetDesktopId(TextView id, TextView newId) { return note_.desk.Rename(id, newId); }

const JotletData* CommandEndpoint::FindSleeping(TextView id) { return note_.desk.Lists().sleeping.Find(id); }

bool CommandEndpoint::WakeSleeping(TextView id) { return program_.sleeping.WakeSleeping(id); }

bool CommandEndpoint::Sleep(TextView id, const WakeFlags& flags, std::int64_t seconds) {
  return note_.desk.Sleep(id, program_.clock.Now().utc + seconds, flags);
}

bool CommandEndpoint::Recur(TextView id, const WakeFlags& flags, const WakeRule& rule, std::int32_t start,
                            std::int32_t end) {
  return note_.desk.Recur(id, rule, start == kNone ? program_.clock.Now().utc : start, end, flags);
}

void CommandEndpoint::SoundAlarm(TextView id, bool on) {
  BJotlet* jotlet = note_.notes.Find(id);
  if (jotlet == nullptr) return;
  if (!on) return jotlet->StopAlarm();
  note_.notes.StartAlarm(id);
}

void CommandEndpoint::MoveSleeping(TextView id, Point position) {
  note_.desk.ChangeSleeping(id, [position](JotletData& record) {
    record.x = position.x;
    record.y = position.y;
  });
}

void CommandEndpoint::SetWakeTime(TextView id, std::int32_t time) {
  note_.desk.ChangeSleeping(id, [time](JotletData& record) { record.sleep.nextWake = time; });
}

bool CommandEndpoint::SaveNow() {
  program_.saving.SaveOptionsIfDirty();
  return program_.saving.SaveJotlets();
}

bool CommandEndpoint::Backup(TextView folder) {
  if (!program_.saving.SaveForBackup()) return false;
  const FileStatus taken = BackUpInto(program_.files, program_.ansi, note_.desk.Folder(), folder);
  program_.log.Write(kLogLifecycle, u"Backup into '", folder, u"': ",
                     taken ? TextView(u"taken") : TextView(taken.reason));
  return taken.ok;
}

void CommandEndpoint::BringForward() { program_.tray.BringForward(); }
void CommandEndpoint::HideAll(bool hidden) { program_.tray.HideAll(hidden); }
void CommandEndpoint::RecreateIcon() { program_.icon.AddAgain(); }
std::optional<bool> CommandEndpoint::OpenManageWindow(bool open) {
  BManageDlg& dialog = program_.managed.Dialog();
  // As other windows that commands bring up, it leaves the keyboard where it is.
  return open ? dialog.OpenWindow(false) : dialog.CloseWindow();
}
bool CommandEndpoint::IsSkinFixed() { return note_.skins.IsFixedByPolicy(); }
bool CommandEndpoint::SetDefaultSkin(TextView path) { return note_.skins.SetDefault(path); }
Text CommandEndpoint::DefaultSkinPath() { return note_.skins.DefaultPath(); }
std::array<std::int32_t, 3> CommandEndpoint::Snapping() const { return note_.options.snap; }
bool CommandEndpoint::RolledHasAltPosition() const { return note_.options.rolledHasAltPosition; }
Text CommandEndpoint::DataPath() const { return note_.desk.Folder(); }
Text CommandEndpoint::UniqueId() const { return program_.installId; }
LocalTime CommandEndpoint::ToLocal(std::int32_t utc) { return program_.clock.ToLocal(utc); }
const FriendList& CommandEndpoint::Friends() { return program_.friends.List(); }

CustomCommands& CommandEndpoint::CustomMenu(MenuKind kind) {
  return kind == MenuKind::kOfNotes ? program_.menus.ofNotes : program_.menus.ofProgram;
}

void CommandEndpoint::NotifyMoved(TextView id) {
  program_.listeners.Send({EventKind::kMoved, Reason::kNotGiven, {Text(id)}, {}});
}

}  // namespace jotlets
