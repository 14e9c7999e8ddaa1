// The desk on windows in memory: what happens to notes is written down in the order in which it happens, and
// what a listener does from inside an event can be tried.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "data/data_folder.h"
#include "desk/attached_notes.h"
#include "desk/sleeping_notes.h"
#include "fakes.h"

namespace jotlets {

inline constexpr TextView kFolder = u"D:\\";

/// What is appended is lost in a power failure until it is flushed.
class FakeJournalFile final : public JournalFile {
 public:
  explicit FakeJournalFile(FakeFiles& disk) : disk_(disk) {}

  std::string bytes;
  std::size_t flushed = 0;            // of them
  std::optional<std::string> before;  // what was there before it was emptied, until that is flushed

  FileContent Read() const override { return {FileContent::State::kRead, bytes, {}}; }
  FileStatus Append(std::string_view more) override {
    return Change([&] { bytes.append(more); });
  }
  FileStatus Truncate(std::size_t length) override {
    return Change([&] { bytes.resize(length); });
  }
  FileStatus Reset(std::string_view fresh) override {
    return Change([&] {
      if (!before) before = bytes.substr(0, flushed);
      bytes = fresh;
      flushed = 0;
    });
  }
  FileStatus Flush() override {
    return Change([&] {
      flushed = bytes.size();
      before.reset();
    });
  }

 private:
  template <typename Effect>
  FileStatus Change(Effect effect) {
    if (!disk_.TakesChange()) return FileStatus::Failed(u"disk full");
    effect();
    return {};
  }
  FakeFiles& disk_;
};

class FakeWindows final : public NoteWindows {
 public:
  // A text without an editor.
  struct Content final : NoteContent {
    std::string bytes;
    bool unsaved = false, whole = true, cutShort = false;

    TextView Extension() const override { return u"rtf"; }
    bool Fits(std::string_view) const override { return true; }
    TextView Load(std::string_view loaded) override { return bytes = loaded, TextView(); }
    bool IsWhole() const override { return whole; }
    bool HasUnsavedChanges() const override { return unsaved; }
    void SetUnsavedChanges(bool changed) override { unsaved = changed; }
    ContentBytes BytesToSave() const override {
      if (cutShort) return {FileStatus::Failed(u"out of memory"), std::nullopt};
      return {{}, unsaved && whole ? std::optional(bytes) : std::nullopt};
    }
    ContentCopy Copy(bool) const override { return {bytes, {}}; }
    Text PlainText() const override { return FromAscii(bytes); }
    Text RichText() const override { return FromAscii(bytes); }
    Text TitleWords() const override { return {}; }
    bool SetPlainText(TextView text) override { return SetRichText(u"{\\rtf1 " + Text(text) + u"}"); }
    bool SetRichText(TextView rtf) override { return bytes = ToUtf8(rtf), unsaved = true; }
    void Paste(bool) override { unsaved = true; }
    void PasteAtEnd(bool) override { unsaved = true; }
  };
  struct Window {
    std::shared_ptr<JotletData> record;
    std::unique_ptr<Content> content = std::make_unique<Content>();
    bool shown = false, sounding = false, waits = false, moving = false;
    Rect bounds;
  };

  explicit FakeWindows(FakeFiles& fileSystem) : files(fileSystem) {}

  FakeFiles& files;
  std::map<Text, Window> open;  // by folded id
  bool hasWindows = true;
  int tried = 0;
  std::vector<Text> journal;
  std::function<void(const Text& id)> onClose;  // the focus that a window loses is told of
  std::function<void(const Text& id)> onShow;   // so is the one that it gets

  Window& At(TextView id) { return open.at(FoldCase(id)); }
  const Window& At(TextView id) const { return open.at(FoldCase(id)); }
  void Type(TextView id, TextView rtf) { At(id).content->SetRichText(rtf); }

  bool Open(std::shared_ptr<JotletData> record) override {
    ++tried;
    if (!hasWindows) return false;
    Window window;
    window.bounds = {record->x, record->y, record->x + record->width, record->y + record->height};
    window.content->Load(files.Read(Text(kFolder) + ContentPath(*record)).bytes);
    window.record = std::move(record);
    const Text id = FoldCase(window.record->id);
    open.insert_or_assign(id, std::move(window));
    return true;
  }
  void Close(TextView id) override {
    const Text own(id);
    open.erase(FoldCase(own));
    if (onClose) onClose(own);
  }
  void Show(TextView id, Showing showing) override {
    const Text own(id);
    At(own).shown = true;
    journal.push_back((showing == Showing::kWithFocus ? u"focus " : u"show ") + own);
    if (onShow) onShow(own);
  }
  void Sync(TextView) override {}
  void Rename(TextView id, TextView newId) override {
    auto window = open.extract(FoldCase(id));
    window.key() = FoldCase(newId);
    open.insert(std::move(window));
  }
  FileStatus SaveContent(TextView id) override {
    bool keepOld = false;
    return SaveContentFile(*At(id).content, keepOld, files, Text(kFolder) + ContentPath(*At(id).record), {})
        .status;
  }
  NoteContent& ContentOf(TextView id) override { return *At(id).content; }
  NoteWindowState StateOf(TextView id) const override {
    const Window& window = At(id);
    return {window.bounds, window.moving, window.sounding, window.waits};
  }
  void PlaceAt(TextView id, Point to) override {
    Rect& bounds = At(id).bounds;
    bounds = {to.x, to.y, to.x + bounds.Width(), to.y + bounds.Height()};
  }
  void SetOnTop(TextView id) override { journal.push_back(u"top " + Text(id)); }
  void Attach(TextView id, const Attachment& attachment) override { At(id).record->attachment = attachment; }
  void StyleNewText(TextView) override {}
  void StartAlarm(TextView id) override {
    if (!At(id).shown) return;
    At(id).record->alarm = kNone;
    journal.push_back(u"sounds " + Text(id));
  }
  void EndWaitForWindow(TextView id) override { At(id).waits = false; }
  ScreenFacts Screen() const override { return {{1280, 800}, {0, 0, 1280, 800}}; }
};

class FakeDesk : public EventSink, public TimeSigns {
 public:
  FakeFiles files;
  FakeClock clock;
  FakeLog log;
  Options options;
  FakeWindows windows{files};
  FakeJournalFile journal{files};
  std::vector<NoteEvent> events;
  std::function<void(const NoteEvent&)> onEvent;  // what a listener does before it answers
  int changes = 0;
  NoteStore store{files, log};
  NoteDesk desk{{files, clock, log, options, windows, journal, *this, store, [this] { ++changes; }, 0xABC}};
  SleepingNotes asleep{desk, windows, files, clock, log, options, *this};

  FakeDesk() {
    desk.SetFolder(kFolder, u"ME");
    asleep.Enable(true);
    files.MakeFolder(Text(kFolder) + Text(kRtfFolder));
    files.Put(Text(kFolder) + u"default.rtf", "{\\rtf1 new}");
  }

  void Send(const NoteEvent& event) override {
    EXPECT_TRUE(IsListed(event.kind, event.reason)) << ToUtf8(EventLine(event));
    events.push_back(event);
    windows.journal.push_back(EventLine(event).substr(4));
    if (onEvent) onEvent(event);
  }
  void PlayWakeSound() override { windows.journal.emplace_back(u"sound"); }
  void StopSounds() override { windows.journal.emplace_back(u"silence"); }
  Text ShownTime(std::int32_t) override { return u"today"; }

  const NoteLists& Lists() const { return desk.Lists(); }
  std::int32_t Now() const { return static_cast<std::int32_t>(clock.now.utc); }
  bool IsOpen(TextView id) const { return Lists().WhereIs(id) == NoteList::kDesktop; }

  /// The notes of a data file, each with its content file. Lines as in the file.
  void Load(TextView jotlets) {
    Options ignored;
    DataFile file =
        ParseDataFile(Text(u"[Options]\niniver=3\n").append(jotlets), {ignored, CountingIds(), 0});
    for (const auto* list : {&file.jotlets, &file.deleted}) {
      for (const FiledJotlet& note : *list) {
        files.Put(Text(kFolder) + ContentPath(note.record), "{\\rtf1 " + ToUtf8(note.record.id) + "}");
      }
    }
    desk.Load(std::move(file));
  }
  std::vector<Text> TakeJournal() { return std::exchange(windows.journal, {}); }
};

}  // namespace jotlets
