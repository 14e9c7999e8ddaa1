// The outside of the rules, in memory: files whose changes can be made to fail, a log that can be read back,
// a code page without surprises, clients that hang or go away, and a program for the command language to act
// on.
#pragma once

#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/clock.h"
#include "base/code_page.h"
#include "base/files.h"
#include "base/log.h"
#include "base/text.h"
#include "command/command_host.h"
#include "command/interpreter.h"
#include "command/reply_channel.h"
#include "data/jotlet_id.h"
#include "data/jotlet_line.h"
#include "data/record_list.h"

namespace jotlets {

/// "FRESH1", "FRESH2", ...
inline FreshId CountingIds() {
  return [count = std::make_shared<int>(0)] { return u"FRESH" + IntText(++*count); };
}

/// The same numbers in every run and on every system.
class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  unsigned Below(std::size_t end) { return static_cast<unsigned>(engine_() % end); }
  /// Fewer than `end` of these units.
  Text Pick(TextView units, unsigned end) {
    Text text;
    for (unsigned length = Below(end); length > 0; --length) text.push_back(units[Below(units.size())]);
    return text;
  }

 private:
  std::mt19937 engine_;
};

/// The bytes of a file of the source tree, by its path from the tests' folder; empty for a missing one.
inline std::string FileBytes(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class Latin1 final : public CodePage {
 public:
  Text Decode(std::string_view bytes) const override { return FromAscii(bytes); }
  std::string Encode(TextView text) const override {
    std::string bytes;
    for (const char16_t unit : text) bytes.push_back(unit < 0x100 ? static_cast<char>(unit) : '?');
    return bytes;
  }
};

class FakeLog final : public Log {
 public:
  int highest = kLogDetail;
  std::vector<Text> lines;

  bool Writes(int level) const override { return level <= highest; }
  void WriteEntry(int, TextView text) override { lines.emplace_back(text); }
  bool Holds(TextView part) const {
    return std::any_of(lines.begin(), lines.end(), [part](const Text& l) { return l.find(part) != l.npos; });
  }
};

/// Moved by hand; local time is UTC.
class FakeClock final : public Clock {
 public:
  Moment now{1'795'251'907, {2026, 11, 21, 9, 5, 7}};
  void Move(std::int64_t seconds) {
    now.utc += seconds;
    now.local = ToLocal(now.utc);
  }
  Moment Now() const override { return now; }
  LocalTime ToLocal(std::int64_t utc) const override {
    const std::chrono::sys_seconds time{std::chrono::seconds(utc)};
    const auto midnight = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(midnight);
    const auto seconds = static_cast<int>((time - midnight).count());
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            seconds / 3600,
            seconds / 60 % 60,
            seconds % 60};
  }
  std::int64_t ToUtc(const LocalTime& t) const override {
    const std::chrono::sys_days day = std::chrono::year(t.year) / t.month / t.day;
    return std::chrono::sys_seconds(day).time_since_epoch().count() + t.hour * 3600 + t.minute * 60 +
           t.second;
  }
};

/// Paths are the same without regard to case, as on Windows.
class FakeFiles : public Files {
 public:
  std::set<Text> unreadable;                // folded paths
  std::set<Text> unchangeable;              // folded paths: every change that touches one fails
  int changesUntilFailure = -1;             // counts down to the one change that fails
  int changesUntilDeath = -1;               // counts down to the change that fails with all after it
  std::function<void(TextView to)> onCopy;  // what happens between a copy and the next call
  std::function<void()> onWrite;            // what happens while a file is written

  void Put(TextView path, std::string bytes) { files_[Key(path)] = {Text(path), std::move(bytes)}; }
  std::string Get(TextView path) const {
    const auto found = files_.find(Key(path));
    return found == files_.end() ? "(missing)" : found->second.second;
  }
  std::vector<Text> Paths() const {
    std::vector<Text> paths;
    for (const auto& [folded, file] : files_) paths.push_back(file.first);
    return paths;
  }
  /// Whether the disk takes one more change. One that is dead takes none.
  bool TakesChange() {
    if (changesUntilDeath == 0) return false;
    if (changesUntilDeath > 0) --changesUntilDeath;
    return changesUntilFailure-- != 0;
  }
  /// Whether some file, whatever its name, has these bytes.
  bool Keeps(std::string_view bytes) const {
    return std::any_of(files_.begin(), files_.end(),
                       [bytes](const auto& f) { return f.second.second == bytes; });
  }

  bool Exists(TextView path) const override {
    const Text folder = WithoutSeparator(path);
    return files_.contains(folder) || folders_.contains(folder) ||
           std::any_of(files_.begin(), files_.end(),
                       [&](const auto& f) { return IsInside(f.first, folder); });
  }
  std::uint64_t Size(TextView path) const override { return IsFile(path) ? Get(path).size() : 0; }
  FileContent Read(TextView path) const override {
    if (unreadable.contains(FoldCase(path))) return {FileContent::State::kUnreadable, {}, u"locked"};
    if (!IsFile(path)) return {};
    return {FileContent::State::kRead, Get(path), {}};
  }
  bool SameContent(TextView path, TextView other) const override {
    const FileContent a = Read(path);
    const FileContent b = Read(other);
    return a.state == FileContent::State::kRead && b.state == a.state && a.bytes == b.bytes;
  }
  FileStatus Write(TextView path, std::string_view bytes) override {
    if (onWrite) onWrite();
    return Change(path, [&] { Put(path, std::string(bytes)); });
  }
  FileStatus Append(TextView path, std::string_view bytes) override {
    return Change(path, [&] { Put(path, (IsFile(path) ? Get(path) : "") + std::string(bytes)); });
  }
  FileStatus Copy(TextView from, TextView to) override {
    if (!IsFile(from)) return FileStatus::Failed(u"no such file");
    if (unreadable.contains(FoldCase(from))) return FileStatus::Failed(u"locked");
    FileStatus status = Change(to, [&] { Put(to, Get(from)); });
    if (onCopy) onCopy(to);
    return status;
  }
  FileStatus Rename(TextView from, TextView to) override {
    if (!Exists(from) || Exists(to) || unchangeable.contains(FoldCase(to)))
      return FileStatus::Failed(u"rename");
    return Change(from, [&] {
      const Text folder = WithoutSeparator(from);
      std::map<Text, std::pair<Text, std::string>> moved;
      for (const auto& [folded, file] : files_) {
        if (folded == folder || IsInside(folded, folder)) moved[folded] = file;
      }
      RemoveTree(folder);
      for (const auto& [folded, file] : moved) Put(Text(to) + file.first.substr(folder.size()), file.second);
    });
  }
  FileStatus Remove(TextView path) override {
    return Change(path, [&] { files_.erase(Key(path)); });
  }
  FileStatus MakeFolder(TextView path) override {
    return Change(path, [&] { folders_.insert(WithoutSeparator(path)); });
  }
  std::vector<Text> ListFolders(TextView folder) const override {
    std::set<Text> names;
    const auto add = [&](TextView path, bool isFolder) {
      if (!StartsWithIgnoreCase(path, folder)) return;
      const Split rest = SplitAtFirst(path.substr(folder.size()), u'\\');
      if (isFolder || rest.head.size() + folder.size() < path.size()) names.emplace(rest.head);
    };
    for (const Text& made : folders_) add(made, true);
    for (const auto& [folded, file] : files_) add(file.first, false);
    return {names.begin(), names.end()};
  }
  FileStatus RemoveFolder(TextView folder) override {
    if (!Exists(folder)) return {};
    return Change(folder, [&] { RemoveTree(WithoutSeparator(folder)); });
  }
  bool listsNothing = false;  // as when the folder cannot be looked into
  std::vector<Text> List(TextView folder, TextView extension) const override {
    std::vector<Text> names;
    if (listsNothing) return names;
    for (const auto& [folded, file] : files_) {
      const TextView path = file.first;
      if (!StartsWithIgnoreCase(path, folder)) continue;
      const TextView name = path.substr(folder.size());
      if (name.find(u'\\') == TextView::npos && HasExtension(name, extension)) names.emplace_back(name);
    }
    return names;
  }

 private:
  template <typename Effect>
  FileStatus Change(TextView path, Effect effect) {
    if (unchangeable.contains(FoldCase(path)) || !TakesChange()) return FileStatus::Failed(u"disk full");
    effect();
    return {};
  }

  bool IsFile(TextView path) const { return files_.contains(Key(path)); }
  // One file has many paths.
  static Text Key(TextView path) { return ReplaceAll(FoldCase(path), u"\\.\\", u"\\"); }
  static Text WithoutSeparator(TextView path) {
    const Text key = Key(path);
    return key.substr(0, key.find_last_not_of(u'\\') + 1);
  }
  static bool IsInside(const Text& folded, const Text& folder) {
    return folded.size() > folder.size() && folded[folder.size()] == u'\\' && folded.starts_with(folder);
  }
  void RemoveTree(const Text& folder) {
    std::erase_if(files_, [&](const auto& f) { return f.first == folder || IsInside(f.first, folder); });
    std::erase_if(folders_, [&](const Text& f) { return f == folder || IsInside(f, folder); });
  }

  std::map<Text, std::pair<Text, std::string>> files_;  // folded path to path and bytes
  std::set<Text> folders_;                              // folded paths of those that were made
};

class FakeTransport final : public LineTransport {
 public:
  struct Sent {
    ClientWindow client;
    std::uintptr_t tag;
    Text line;
    friend bool operator==(const Sent&, const Sent&) = default;
  };
  std::vector<Sent> sent;
  std::set<ClientWindow> gone;
  std::set<ClientWindow> hung;
  std::set<ClientWindow> dying;                        // there when asked, gone when sent to
  std::map<ClientWindow, std::uint32_t> slow;          // milliseconds until one answers
  std::vector<ClientWindow> asked;                     // for an answer
  std::uint64_t now = 0;                               // milliseconds
  std::function<void(ClientWindow, TextView)> onSend;  // what a client does inside its window procedure

  Delivery Send(ClientWindow client, std::uintptr_t tag, TextView line, std::uint32_t milliseconds) override {
    sent.push_back({client, tag, Text(line)});
    if (onSend) onSend(client, line);
    const std::uint32_t taken = hung.contains(client)   ? milliseconds
                                : slow.contains(client) ? slow[client]
                                                        : 0;
    now += std::min(taken, milliseconds);
    if (hung.contains(client) || taken > milliseconds) return Delivery::kHung;
    return gone.contains(client) || dying.contains(client) ? Delivery::kGone : Delivery::kDelivered;
  }
  bool Exists(ClientWindow client) const override { return !gone.contains(client); }
  bool AskForAnswer(ClientWindow client) override {
    asked.push_back(client);
    return !gone.contains(client);
  }
  std::uint64_t Milliseconds() const override { return now; }
};

class FakeJotlet final : public DesktopJotlet {
 public:
  JotletData record;
  Text text, clipboard;
  bool rolls = true;
  int contentSaves = 0;

  JotletData& Record() override { return record; }
  Point ShownAt() override { return {record.x, record.y}; }
  Text PlainText() override { return text; }
  Text Rtf() override { return record.IsImage() ? Text() : u"{\\rtf1 " + text + u"}"; }
  Text SkinPath() override { return record.skin.empty() ? Text() : u"C:\\skins\\" + record.skin; }
  std::int64_t WindowNumber() override { return 65812; }
  void SetTitle(TextView title) override { record.title = title; }
  void SetUserString(TextView words) override { record.userString1 = words; }
  void SetColour(Colour colour) override { record.colour = colour; }
  void SetOnTop(bool onTop) override { record.onTop = onTop; }
  void SetGhost(bool ghost) override { record.ghost = ghost; }
  void SetHidden(bool hidden) override { record.hidden = hidden; }
  void SetTransparency(std::int32_t percent) override { record.transparency = percent; }
  bool SetRolled(bool rolled) override {
    record.rolled = rolled && rolls;
    return rolls;
  }
  bool SetPlainText(TextView plain) override {
    if (!record.IsImage()) text = plain;
    return !record.IsImage();
  }
  bool SetRtf(TextView rtf) override { return SetPlainText(rtf); }
  bool SetSkin(TextView path) override {
    if (path == u"bad") return false;
    record.skin = path;
    return true;
  }
  bool ApplyStyle(TextView name) override { return name == u"Style00"; }
  bool SetPicture(TextView path) override { return path != u"bad"; }
  void CopyContent(bool formatted) override { clipboard = formatted ? Rtf() : text; }
  void PasteAtEnd(bool formatted) override { text.append(formatted ? u"+rich" : u"+plain"); }
  bool SaveContent() override { return ++contentSaves > 0; }
  void MoveTo(Point position) override { record.x = position.x, record.y = position.y; }
};

/// A program without windows. `journal` holds saves and lines sent in the order in which they happened.
class FakeProgram final : public CommandHost, public StoreHost {
 private:
  static auto Has(TextView id) {
    return [id](const std::unique_ptr<FakeJotlet>& note) { return EqualIgnoreCase(note->record.id, id); };
  }

 public:
  static constexpr ClientWindow kClient = 7;
  static constexpr std::uintptr_t kTag = 42;

  FakeLog log;
  FakeTransport transport;
  ClientLines lines{transport, log};
  Listeners listeners{lines};
  std::vector<std::unique_ptr<FakeJotlet>> notes;
  std::vector<std::pair<Text, Text>> stored;  // ids and categories
  RecordList attached, closed;
  RecordList sleeping;
  std::vector<Text> journal;
  std::vector<std::int32_t> stacks;
  StackRecord stack;
  FriendList friends;
  CustomCommands menus[2];
  std::vector<Text> encoded;
  Text clipboard, skin;
  bool canFind = true;
  bool works = true;  // creating, closing and saving
  bool skinFixed = false, hidden = false;
  std::optional<bool> manageOpen;
  int saves = 0, broughtForward = 0, created = 0;

  FakeProgram() {
    transport.onSend = [this](ClientWindow, TextView line) { journal.emplace_back(line); };
  }
  FakeJotlet& Add(TextView id) {
    notes.push_back(std::make_unique<FakeJotlet>());
    notes.back()->record.id = id;
    return *notes.back();
  }
  void Execute(TextView command, ClientWindow client = kClient) {
    ExecuteApiCommand(*this, ApiReplyChannel(lines, listeners, kTag, client), log, command);
  }
  /// The lines that a client got in answer to a command, joined by "|": a command has exactly one.
  Text Reply(TextView command, ClientWindow client = kClient) {
    const std::size_t before = transport.sent.size();
    Execute(command, client);
    Text replies;
    for (std::size_t i = before; i < transport.sent.size(); ++i) {
      const auto& sent = transport.sent[i];
      if (sent.client == client && sent.tag == kTag)
        replies.append(replies.empty() ? u"" : u"|").append(sent.line);
    }
    return replies;
  }

  DesktopJotlet* FindDesktop(TextView id) override {
    const auto found = std::find_if(notes.begin(), notes.end(), Has(id));
    return found == notes.end() ? nullptr : found->get();
  }
  std::vector<Text> DesktopIds() const override {
    std::vector<Text> ids;
    for (const auto& note : notes) ids.push_back(note->record.id);
    return ids;
  }
  const JotletData* FindAttached(TextView id) override { return std::as_const(attached).Find(id); }
  const JotletData* FindClosed(TextView id) override { return std::as_const(closed).Find(id); }
  Text DesktopOfWindow(std::int64_t handle) override {
    return handle == 65812 && !notes.empty() ? notes.front()->record.id : Text();
  }
  std::vector<Text> AttachedIds() const override { return IdsOf(attached); }
  std::vector<Text> SleepingIds() const override { return IdsOf(sleeping); }
  std::vector<Text> ClosedIds() const override { return IdsOf(closed); }
  std::vector<std::int32_t> StackNumbers() const override { return stacks; }
  const StackRecord* FindStack(std::int32_t number) const override {
    return number == stack.number ? &stack : nullptr;
  }
  Text CreateDesktop(TextView text) override {
    if (!works) return {};
    Text id = u"NEW" + IntText(++created);
    Add(id).text = text;
    listeners.Send({EventKind::kCreated, Reason::kApi, {id}, {}});
    return id;
  }
  Pasted CreateFromClipboard(Paste what) override {
    const bool picture = what == Paste::kPicture;
    return {CreateDesktop(clipboard + (picture                 ? u""
                                       : what == Paste::kPlain ? u" plain"
                                                               : u" rich")),
            !picture || !clipboard.empty()};
  }
  Text CreateFromPicture(TextView path) override { return path == u"bad" ? Text() : CreateDesktop(path); }
  Text CreateEncoded(TextView note, bool asleep) override {
    encoded.push_back((asleep ? u"asleep:" : u"") + Text(note));
    return works ? u"ENC" + IntText(++created) : Text();
  }
  Renamed SetDesktopId(TextView id, TextView newId) override {
    if (!IsAddressableId(newId)) return Renamed::kNoName;
    if (FindDesktop(newId) != nullptr) return Renamed::kTaken;
    if (!works) return Renamed::kFailed;
    FindDesktop(id)->Record().id = newId;
    return Renamed::kYes;
  }
  bool CloseDesktop(TextView id) override {
    if (!works || std::erase_if(notes, Has(id)) == 0) return false;
    listeners.Send({EventKind::kClosed, Reason::kApi, {Text(id)}, {}});
    return true;
  }
  bool DeleteDesktop(TextView id) override {
    listeners.Send({EventKind::kDeleted, Reason::kApi, {Text(id)}, {}});
    return std::erase_if(notes, Has(id)) > 0;
  }
  Text ContentForTransfer(const JotletData&) override { return u"{\\rtf1 a\r\nb}"; }
  const JotletData* FindSleeping(TextView id) override { return std::as_const(sleeping).Find(id); }
  StoreHost& Stored() override { return *this; }
  std::optional<std::int64_t> Store(TextView id, TextView category) override {
    if (!works || std::erase_if(notes, Has(id)) == 0) return std::nullopt;
    stored.emplace_back(Text(id), Text(category));
    return static_cast<std::int64_t>(stored.size());
  }
  bool IsStored(std::int64_t key) override {
    return key > 0 && static_cast<std::size_t>(key) <= stored.size();
  }
  Text Fetch(std::int64_t key) override {
    return works && IsStored(key) ? stored[static_cast<std::size_t>(key - 1)].first : Text();
  }
  std::vector<std::int64_t> KeysOf(TextView category) override {
    std::vector<std::int64_t> keys;
    for (std::size_t at = 0; at < stored.size(); ++at)
      if (stored[at].second == category) keys.push_back(static_cast<std::int64_t>(at + 1));
    return keys;
  }
  void ShowStored(std::int64_t key) override { journal.push_back(u"show stored " + IntText(key)); }
  std::optional<std::vector<Text>> Find(TextView words) override {
    if (!works) return std::nullopt;
    return std::vector<Text>{u"A1", Text(words)};
  }
  bool CanFind() override { return canFind; }
  bool WakeSleeping(TextView id) override { return works && sleeping.Remove(id).has_value(); }
  bool Sleep(TextView id, const WakeFlags& flags, std::int64_t seconds) override {
    if (!works) return false;
    JotletData record = FindDesktop(id)->Record();
    std::erase_if(notes, Has(id));
    PutToSleep(record, 1000 + seconds, flags);
    sleeping.push_back(std::move(record));
    return true;
  }
  bool Recur(TextView id, const WakeFlags& flags, const WakeRule& rule, std::int32_t start,
             std::int32_t end) override {
    if (!Sleep(id, flags, 0)) return false;
    MakeRecurring(*sleeping.FindToChange(id), rule, start, end, flags);
    return true;
  }
  void SoundAlarm(TextView id, bool on) override {
    journal.push_back((on ? u"sounds " : u"quiet ") + Text(id));
  }
  void MoveSleeping(TextView id, Point to) override {
    JotletData& record = *sleeping.FindToChange(id);
    record.x = to.x, record.y = to.y;
  }
  void SetWakeTime(TextView id, std::int32_t time) override {
    sleeping.FindToChange(id)->sleep.nextWake = time;
  }
  bool SaveNow() override {
    ++saves;
    journal.emplace_back(u"save");
    return works;
  }
  bool Backup(TextView folder) override { return works && folder == u"D:\\backups\\before-the-move"; }
  void BringForward() override { ++broughtForward; }
  void HideAll(bool hide) override { hidden = hide; }
  void RecreateIcon() override { journal.emplace_back(u"icon"); }
  std::optional<bool> OpenManageWindow(bool open) override {
    if (!manageOpen) return std::nullopt;
    return std::exchange(manageOpen, open) != open;
  }
  bool IsSkinFixed() override { return skinFixed; }
  bool SetDefaultSkin(TextView path) override {
    if (path != u"bad") skin = path;
    return path != u"bad";
  }
  Text DefaultSkinPath() override { return skin; }
  std::array<std::int32_t, 3> Snapping() const override { return {1, 10, 2}; }
  LocalTime ToLocal(std::int32_t utc) override { return FakeClock().ToLocal(utc); }
  const FriendList& Friends() override { return friends; }
  CustomCommands& CustomMenu(MenuKind kind) override { return menus[kind == MenuKind::kOfNotes ? 0 : 1]; }
  void NotifyMoved(TextView id) override {
    listeners.Send({EventKind::kMoved, Reason::kNotGiven, {Text(id)}, {}});
  }
  bool RolledHasAltPosition() const override { return false; }
  Text DataPath() const override { return u"C:\\data\\"; }
  Text UniqueId() const override { return u"INSTALL"; }
};

}  // namespace jotlets
