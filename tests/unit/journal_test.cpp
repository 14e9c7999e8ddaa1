#include <gtest/gtest.h>

#include "data/data_folder.h"
#include "data/journal_replay.h"
#include "data/text_file.h"
#include "fake_desk.h"

namespace jotlets {
namespace {

std::vector<JournalFrame> ReadAll(std::string_view bytes, bool* damaged = nullptr) {
  std::vector<JournalFrame> frames;
  JournalReader reader(bytes);
  while (auto frame = reader.Next()) frames.push_back(std::move(*frame));
  if (damaged != nullptr) *damaged = reader.StoppedInDamage();
  return frames;
}

TEST(JournalFrames, AreReadUpToTheFirstThatIsNotWhole) {
  const std::vector<JournalFrame> frames = {
      {FrameKind::kBegin, 7, 0, 0, 0, {}, "ME"},
      {FrameKind::kText, 1, 2, 3, 4, u"A\u00fc", std::string("a\0b", 3)},
      {FrameKind::kRemoved, 0, 0, 1, 0, u"B", {}}};
  std::string bytes;
  std::vector<std::size_t> ends;
  for (std::size_t i = 0; i < frames.size(); ++i) {
    AppendFrame(bytes, frames[i], 40 + i);
    ends.push_back(bytes.size());
  }
  const auto whole = [&](std::size_t length) {
    return static_cast<std::size_t>(std::upper_bound(ends.begin(), ends.end(), length) - ends.begin());
  };
  bool damaged = true;
  EXPECT_EQ(ReadAll(bytes + std::string(600, '\0'), &damaged), frames);
  EXPECT_FALSE(damaged);
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
    EXPECT_EQ(ReadAll(bytes.substr(0, cut), &damaged).size(), whole(cut)) << cut;
    EXPECT_FALSE(damaged) << cut;
  }
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    std::string flipped = bytes;
    flipped[at] = static_cast<char>(flipped[at] ^ 1);
    EXPECT_EQ(ReadAll(flipped).size(), whole(at)) << at;
  }
  std::string stale = bytes.substr(0, ends[1]);
  AppendFrame(stale, frames[2], 41);
  EXPECT_EQ(ReadAll(stale).size(), 2u) << "a frame of an earlier time";
  EXPECT_TRUE(ReadAll(std::string(500, '\xA7'), &damaged).empty() && damaged) << "no journal at all";
}

// What is known of each note, by folded id: its line, "closed " in front of that of a closed one, and its
// content. Notes that are not there are not in it.
struct Snapshot {
  std::map<Text, Text> lines;
  std::map<Text, std::string> contents;
};

Snapshot Of(const DataFile& file, const FakeFiles& files) {
  Snapshot snapshot;
  for (const auto* list : {&file.jotlets, &file.deleted}) {
    for (const FiledJotlet& note : *list) {
      const Text id = FoldCase(note.record.id);
      snapshot.lines[id] = (list == &file.deleted ? u"closed " : u"") + MakeJotletLine(note.record, false);
      snapshot.contents[id] = files.Get(Text(kFolder) + ContentPath(note.record));
    }
  }
  return snapshot;
}

Snapshot Of(const FakeDesk& home) {
  Snapshot snapshot;
  const auto add = [&](TextView kind, const JotletData& record) {
    const Text id = FoldCase(record.id);
    snapshot.lines[id] = Text(kind) + MakeJotletLine(record, false);
    snapshot.contents[id] = home.IsOpen(id) ? home.windows.At(id).content->bytes
                                            : home.files.Get(Text(kFolder) + ContentPath(record));
  };
  for (const auto& record : home.Lists().desktop) add({}, *record);
  for (const auto* list : {&home.Lists().attached, &home.Lists().sleeping})
    for (const JotletData& record : *list) add({}, record);
  for (const JotletData& record : home.Lists().closed) add(u"closed ", record);
  for (const JotletData& record : home.Lists().discarded) add(u"closed ", record);
  return snapshot;
}

// A desk that is used for a while, and may be killed at any operation of its disk.
class UsedDesk {
 public:
  explicit UsedDesk(unsigned seed) : random_(seed) {
    home.Load(u"[Jotlets]\n<ID>A<X>5<Y>5<RTF>\n<ID>B<X>5<Y>5<RTF>\n<ID>C<SLEEPING>1<SLEEPNEXTWAKE>5<RTF>\n");
    home.desk.Saver().SetDirty();
    home.desk.Saver().SaveIfDirty();
    home.desk.Journal().Flush();
    Remember();
  }

  /// Something a person or a program does, and the journal a moment later.
  void Act() {
    if (home.files.changesUntilDeath == 0) return;
    Do(random_.Below(12));
    Remember();
    home.desk.Journal().WriteChanges([] { return true; });
    const bool flushes = random_.Below(4) == 0 && home.desk.Journal().Flush();
    if (home.files.changesUntilDeath == 0) return;
    Remember();
    if (flushes) sinceFlush_ = states_.size() - 1;
    written_ = states_.size() - 1;
  }

  /// What the next start finds. After a power failure what was not flushed is gone from somewhere on.
  DataFile StartAgain(bool powerFailure) {
    std::string bytes = home.journal.bytes;
    if (powerFailure)
      bytes.resize(home.journal.flushed + random_.Below(bytes.size() - home.journal.flushed + 1));
    if (powerFailure && home.journal.before && random_.Below(2) == 0) bytes = *home.journal.before;
    home.files.changesUntilDeath = -1;
    LoadedData loaded = LoadJotlets(
        {home.files, ansi_, home.options, CountingIds(), home.clock.now, home.log}, kFolder, bytes);
    EXPECT_FALSE(loaded.damaged || loaded.journal.keep);
    return std::move(loaded.file);
  }

  /// Each note is there as it was at some time since what must not be lost.
  void ExpectKept(const DataFile& file, bool powerFailure) const {
    const Snapshot found = Of(file, home.files);
    std::set<Text> ids;
    for (std::size_t at = powerFailure ? sinceFlush_ : written_; at < states_.size(); ++at) {
      for (const auto& [id, line] : states_[at].lines) ids.insert(id);
    }
    for (const auto& [id, line] : found.lines) ids.insert(id);
    for (const Text& id : ids) {
      EXPECT_TRUE(Was(&Snapshot::lines, found.lines, id, powerFailure)) << ToUtf8(id);
      if (!found.lines.contains(id)) continue;
      EXPECT_TRUE(Was(&Snapshot::contents, found.contents, id, powerFailure))
          << ToUtf8(id) << ": " << found.contents.at(id);
    }
  }

  FakeDesk home;

 private:
  Text Any() {
    const std::vector<Text> open = IdsOf(home.Lists().desktop);
    return open.empty() ? Text() : open[random_.Below(open.size())];
  }
  void Do(unsigned what) {
    const Text id = Any();
    NoteDesk& desk = home.desk;
    home.clock.Move(1);
    if (id.empty() || what == 0) {
      NewNote fresh;
      fresh.text = u"new";
      desk.Create(fresh);
    } else if (what < 4) {
      std::string& text = home.windows.At(id).content->bytes;
      text.insert(random_.Below(text.size() + 1), std::string(1 + random_.Below(3), 'x'));
      home.windows.At(id).content->unsaved = true;
      desk.Changed(id);
    } else if (what == 4) {
      home.Lists().desktop.Find(id)->x += 3;
      desk.Changed(id);
    } else if (what == 5) {
      desk.Close(id, Reason::kUser);
    } else if (what == 6) {
      desk.Delete(id, Reason::kDeleted);
    } else if (what == 7) {
      desk.Sleep(id, home.Now() + 60, {});
    } else if (what == 8) {
      desk.Rename(id, u"R" + IntText(random_.Below(5)));
    } else if (what == 9) {
      desk.Restore(IdsOf(home.Lists().closed));
    } else if (what == 10) {
      for (const Text& sleeping : IdsOf(home.Lists().sleeping)) desk.Wake(sleeping, {});
    } else {
      desk.Saver().SaveIfDirty();
    }
  }
  void Remember() { states_.push_back(Of(home)); }

  template <typename Map>
  bool Was(Map Snapshot::*part, const Map& found, const Text& id, bool powerFailure) const {
    for (std::size_t at = powerFailure ? sinceFlush_ : written_; at < states_.size(); ++at) {
      const Map& then = states_[at].*part;
      if (then.contains(id) == found.contains(id) && (!found.contains(id) || then.at(id) == found.at(id)))
        return true;
    }
    return false;
  }

  Random random_;
  Latin1 ansi_;
  std::vector<Snapshot> states_;
  std::size_t sinceFlush_ = 0;  // the state that was flushed last
  std::size_t written_ = 0;     // the state that was written last
};

TEST(Journal, LosesNothingWhereverTheProgramIsKilled) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    const bool powerFailure = seed % 2 == 0;
    UsedDesk used(seed);
    used.home.files.changesUntilDeath = static_cast<int>(seed % 97);
    for (int act = 0; act < 25; ++act) used.Act();
    const DataFile file = used.StartAgain(powerFailure);
    used.ExpectKept(file, powerFailure);
    const Snapshot once = Of(file, used.home.files);
    const Snapshot twice = Of(used.StartAgain(false), used.home.files);
    EXPECT_TRUE(powerFailure || (once.lines == twice.lines && once.contents == twice.contents));
    if (testing::Test::HasFailure()) FAIL() << "with seed " << seed;
  }
}

TEST(Journal, ADiskThatFailsOnceLosesNothing) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    UsedDesk used(seed);
    for (int act = 0; act < 12; ++act) {
      used.home.files.changesUntilFailure = static_cast<int>(seed % 7);
      used.Act();
    }
    used.home.files.changesUntilFailure = -1;
    used.Act();
    used.ExpectKept(used.StartAgain(false), false);
    if (testing::Test::HasFailure()) FAIL() << "with seed " << seed;
  }
}

class Replay : public testing::Test {
 protected:
  JournalReplay Do(std::initializer_list<JournalFrame> frames, Fingerprint onDisk, bool damaged = false) {
    std::string bytes;
    std::uint64_t sequence = 9;
    for (const JournalFrame& frame : frames) AppendFrame(bytes, frame, sequence++);
    const LoadContext context{files, ansi, options, CountingIds(), clock.now, log};
    return ReplayJournal(context, kFolder, bytes, onDisk, damaged, file);
  }
  static JournalFrame Begin(Fingerprint base) { return {FrameKind::kBegin, base, 0, 0, 0, {}, "ME"}; }
  static JournalFrame Record(TextView id) {
    return {FrameKind::kRecord, 0, 0, 0, 0, Text(id), "<ID>" + ToUtf8(id) + "<X>7<RTF>"};
  }
  // Of a content that was `before`, whole or what has changed of it.
  static JournalFrame Content(TextView id, std::string_view before, std::string_view after, bool whole) {
    JournalFrame frame{FrameKind::kText, FingerprintOf(before), FingerprintOf(after), 0, 0, Text(id), {}};
    const ContentChange change = whole ? ContentChange() : CompareContents(before, after);
    frame.head = change.head;
    frame.tail = change.tail;
    frame.payload = after.substr(change.head, after.size() - change.head - change.tail);
    return frame;
  }

  FakeFiles files;
  Latin1 ansi;
  Options options;
  FakeClock clock;
  FakeLog log;
  DataFile file;
};

TEST_F(Replay, RecordsCountOnlyForTheDataFileThatTheyGoOnFrom) {
  EXPECT_TRUE(Do({Begin(5), Record(u"A")}, 6).keep);
  EXPECT_TRUE(file.jotlets.empty() && log.lines.empty());
  const JournalReplay replay =
      Do({Begin(5), Record(u"A"), {FrameKind::kSaving, 0, 6, 1, 0, {}, {}}, Record(u"B")}, 6);
  EXPECT_TRUE(replay.any && !replay.keep && replay.nextSequence > 12);
  EXPECT_TRUE(file.jotlets.size() == 1 && file.jotlets[0].record.id == u"B")
      << "the file has A, or not, rightly";
  EXPECT_TRUE(Do({Begin(5), Record(u"A")}, 6, true).any) << "of a damaged file nothing newer is known";
  EXPECT_EQ(file.jotlets.size(), 2u);
}

TEST_F(Replay, AContentFromOutsideIsKeptBesideTheOneThatWasTyped) {
  const Text path = u"D:\\rtf\\A.rtf";
  files.Put(path, "from outside");
  EXPECT_TRUE(Do({Begin(0), Content(u"A", "before", "typed", true)}, 0).any);
  EXPECT_EQ(files.Get(path), "typed");
  EXPECT_TRUE(files.Keeps("from outside") && log.Holds(u"was changed from outside"));
  files.Put(path, "from outside");
  EXPECT_TRUE(Do({Begin(0), Content(u"A", "before it", "before this", false)}, 0).keep);
  EXPECT_EQ(files.Get(path), "from outside") << "what is only a change of something else is of no use";
  files.Put(path, "before it");
  EXPECT_FALSE(Do({Begin(0), Content(u"A", "before it", "before this", false)}, 0).keep);
  EXPECT_EQ(files.Get(path), "before this");
  files.unchangeable.insert(u"d:\\rtf\\a.rtf");
  JournalReplay full = Do({Begin(0), Content(u"A", "before this", "typed last", true)}, 0);
  EXPECT_TRUE(full.keep && full.unwritten.starts_with(path)) << "nobody is to type on the older text";
  files.unchangeable.clear();
  full = Do({Begin(0), Content(u"A", "before this", "typed last", true)}, 0);
  EXPECT_TRUE(!full.keep && full.unwritten.empty() && files.Get(path) == "typed last");
}

TEST_F(Replay, NamesThatLeaveTheFolderAreNobodysNotes) {
  const JournalReplay replay = Do({Begin(0),
                                   Record(u"..\\A"),
                                   Content(u"..\\..\\B", "", "x", true),
                                   {FrameKind::kRemoved, 0, 0, 0, 0, u"..\\C", {}}},
                                  0);
  EXPECT_TRUE(!replay.any && replay.gone.empty() && file.jotlets.empty() && files.Paths().empty());
  EXPECT_TRUE(replay.keep) << "what wrote them may be wanted";
}

TEST(Journal, AStartThatCannotSaveGoesOnBehindWhatItFound) {
  constexpr TextView kNotes = u"[Jotlets]\n<ID>A<X>5<Y>5<RTF>\n<ID>B<X>5<Y>5<RTF>\n";
  const auto typeAndWrite = [](FakeDesk& home, TextView id) {
    home.windows.Type(id, u"{\\rtf1 more}");
    home.desk.Changed(id);
    home.desk.Journal().WriteChanges([] { return true; });
  };
  FakeDesk first;
  first.Load(kNotes);
  first.desk.Saver().SetDirty();
  first.desk.Saver().SaveIfDirty();
  typeAndWrite(first, u"A");
  const Latin1 ansi;
  FakeDesk second;
  second.files = first.files;
  // The last frame was cut short.
  second.journal.bytes = first.journal.bytes + std::string("\x40\0\0\0half", 8);
  const auto load = [&] {
    return LoadJotlets({second.files, ansi, second.options, CountingIds(), second.clock.now, second.log},
                       kFolder, second.journal.bytes);
  };
  LoadedData loaded = load();
  second.desk.Load(std::move(loaded.file));
  second.desk.Journal().GoOn(loaded.journal, loaded.fingerprint);
  second.files.unchangeable.insert(u"d:\\jotlets.ini");
  second.desk.Saver().SetDirty();
  EXPECT_FALSE(second.desk.Saver().SaveIfDirty());
  typeAndWrite(second, u"B");
  EXPECT_TRUE(load().journal.any);
  EXPECT_EQ(second.files.Get(u"D:\\rtf\\A.rtf"), "{\\rtf1 more}");
  EXPECT_EQ(second.files.Get(u"D:\\rtf\\B.rtf"), "{\\rtf1 more}");
}

TEST(Journal, AKillAfterASaveLeavesNoContentOfWhatWasDeleted) {
  FakeDesk home;
  home.Load(u"[Jotlets]\n<ID>A<X>5<Y>5<RTF>\n<ID>B<X>5<Y>5<RTF>\n");
  EXPECT_TRUE(home.desk.Discard(u"A", Reason::kDeleted) && home.desk.Discard(u"B", Reason::kDeleted));
  home.desk.Saver().SetDirty();
  EXPECT_TRUE(home.desk.Saver().SaveIfDirty() && home.desk.Undelete(u"B"));
  home.desk.Journal().WriteChanges([] { return true; });
  const Latin1 ansi;
  const LoadedData loaded = LoadJotlets(
      {home.files, ansi, home.options, CountingIds(), home.clock.now, home.log}, kFolder, home.journal.bytes);
  ASSERT_EQ(loaded.journal.gone.size(), 1u);
  EXPECT_EQ(FoldCase(loaded.journal.gone[0].id), FoldCase(u"A"));
  ASSERT_EQ(loaded.file.jotlets.size(), 1u);
  EXPECT_EQ(loaded.file.jotlets[0].record.id, u"B");
}

TEST(Journal, SaysOnceThatTheDiskIsFullAndGoesOnLater) {
  FakeDesk home;
  home.Load(u"[Jotlets]\n<ID>A<X>5<Y>5<RTF>\n<ID>B<X>5<Y>5<RTF>\n");
  home.desk.Saver().SetDirty();
  home.desk.Saver().SaveIfDirty();
  const std::size_t before = home.journal.bytes.size();
  const auto write = [&] { return home.desk.Journal().WriteChanges([] { return true; }); };
  EXPECT_TRUE(write());
  EXPECT_EQ(home.journal.bytes.size(), before) << "nothing has changed";
  home.windows.Type(u"A", u"{\\rtf1 more}");
  home.desk.Changed(u"A");
  home.files.changesUntilDeath = 0;
  EXPECT_FALSE(write() || write());
  EXPECT_EQ(std::count_if(home.log.lines.begin(), home.log.lines.end(),
                          [](const Text& line) { return line.starts_with(u"Unable to write the journal"); }),
            1);
  home.files.changesUntilDeath = -1;
  home.windows.At(u"A").content->cutShort = true;
  home.Lists().desktop.Find(u"B")->title = u"new";
  home.desk.Changed(u"B");
  EXPECT_FALSE(write() || home.desk.Saver().SaveIfDirty()) << "what is not whole is not written";
  const auto frames = ReadAll(home.journal.bytes);
  EXPECT_TRUE(std::any_of(frames.begin(), frames.end(), [](const JournalFrame& f) {
    return f.kind == FrameKind::kRecord && f.id == u"B";
  })) << "it holds no other note back";
  home.windows.At(u"A").content->cutShort = false;
  EXPECT_TRUE(write() && ReadAll(home.journal.bytes).back().payload == "{\\rtf1 more}");
}

}  // namespace
}  // namespace jotlets
