// Being killed at any moment, and many notes.
#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "base/win/wide.h"
#include "data/loading.h"
#include "note/win/jotlet.h"
#include "window_test.h"

namespace jotlets {
namespace {

class KillTest : public WindowTest {
 protected:
  static constexpr int kRounds = 25;

  // One command that changes notes; false when no reply came.
  bool ChangeSomething(const Text& text) {
    if (notes_.size() < 4 || Below(4) == 0) {
      const Text reply = Reply(u"do new jotlet " + text);
      if (!reply.starts_with(u"000 OK created: ")) return false;
      notes_[reply.substr(16)] = {text};
      return true;
    }
    const auto note = std::next(notes_.begin(), static_cast<std::ptrdiff_t>(Below(notes_.size())));
    const Text id = note->first;
    if (Below(4) == 0) {
      // Without a reply it may be there or not.
      notes_.erase(note);
      return Reply(u"do desktop " + id + u" delete") == u"000 OK deleted";
    }
    note->second.insert(text);
    if (Reply(u"set desktop " + id + u" text " + text) != u"000 OK text set") return false;
    note->second = {text};
    return true;
  }

  void ExpectAllThere() {
    const std::vector<Text> ids = List(u"desktop");
    for (auto& [id, texts] : notes_) {
      ASSERT_EQ(std::count(ids.begin(), ids.end(), id), 1) << ToUtf8(id);
      const Text text = TextOf(id);
      EXPECT_TRUE(texts.contains(text)) << ToUtf8(id) << ": " << ToUtf8(text);
      texts = {text};
    }
  }

  unsigned Below(std::size_t end) { return static_cast<unsigned>(random_() % end); }

  std::mt19937 random_{20261121};
  std::map<Text, std::set<Text>> notes_;  // id to what its text may be
};

TEST_F(KillTest, NothingThatWasRepliedIsLost) {
  WriteData({}, kDataFileName, u"Debug=1");
  ULONGLONG milliseconds = 0;
  unsigned commands = 0;
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    SCOPED_TRACE(round);
    ASSERT_TRUE(StartProgram());
    ExpectAllThere();
    const auto change = [&] {
      return ChangeSomething(u"text " + IntText(++commands) + Text(Below(800), u'.'));
    };
    const ULONGLONG start = GetTickCount64();
    for (unsigned i = Below(3); i <= 3; ++i) ASSERT_TRUE(change());
    milliseconds += GetTickCount64() - start;
    // The only sleep here: the kill comes at any moment of the next two commands or so, however long they
    // take.
    std::thread killer([this, delay = Below(2 * milliseconds / commands + 2)] {
      Sleep(delay);
      program_->Strike();
    });
    while (change()) continue;
    killer.join();
    program_->Kill();
  }
  for (const Text& name : FilesBelow(folder_)) EXPECT_EQ(name.find(u"damaged"), Text::npos) << ToUtf8(name);
  EXPECT_EQ(Log().find("content file not found"), std::string::npos);
}

// The ten-second save never comes while somebody types.
TEST_F(KillTest, WhatIsTypedIsThereButForAMoment) {
  WriteData({NoteRecord(u"AA01", {300, 300}, u"One")}, kDataFileName, u"Debug=1");
  for (int round = 0; round < 3 && !HasFailure(); ++round) {
    ASSERT_TRUE(StartProgram());
    const HWND note = NoteTitled(u"One");
    ASSERT_EQ(Reply(u"set desktop AA01 text "), u"000 OK text set");
    ASSERT_TRUE(ClickIntoText(note));
    Text typed;
    std::vector<ULONGLONG> times;
    const ULONGLONG end = GetTickCount64() + 800 + Below(800);
    while (GetTickCount64() < end) {
      typed.push_back(static_cast<char16_t>(u'a' + typed.size() % 26));
      times.push_back(GetTickCount64());
      TypeText(typed.substr(typed.size() - 1));
      WaitUntil([] { return false; }, 5);
    }
    const ULONGLONG killed = GetTickCount64();
    program_->Kill();
    ASSERT_TRUE(StartProgram());
    const Text found = TextOf(u"AA01");
    ASSERT_TRUE(typed.starts_with(found)) << ToUtf8(found);
    const ULONGLONG age = found.size() < typed.size() ? killed - times[found.size()] : 0;
    RecordProperty("round" + std::to_string(round), static_cast<int>(age));
    EXPECT_LT(age, 1000u) << "a fifth of a second, and what a busy machine adds";
    program_->Kill();
  }
  EXPECT_NE(Log().find("From the journal: "), std::string::npos);
}

TEST_F(WindowTest, AFileThatAnotherProgramLooksAtIsReplacedWhenThatIsOver) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}));
  const Text path = folder_ + Text(kDataFileName);
  const auto look = [&path] {
    return OwnHandle(
        CreateFileW(Wide(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  };
  UniqueHandle looking = look();
  ASSERT_TRUE(looking);
  std::thread letGo([&] {
    WaitUntil([&] {
      const std::vector<Text> names = FilesBelow(folder_);
      return std::any_of(names.begin(), names.end(),
                         [](const Text& name) { return name.ends_with(u".new"); });
    });
    looking.reset();
  });
  EXPECT_EQ(Reply(u"do saveini"), u"000 OK saved");
  letGo.join();
  looking = look();
  const std::string before = Read(path);
  EXPECT_EQ(Reply(u"do saveini"), u"995 problem saving");
  EXPECT_EQ(Read(path), before);
  looking.reset();
  EXPECT_EQ(Reply(u"do saveini"), u"000 OK saved");
}

TEST_F(WindowTest, ContentThatIsNoRichTextIsShownAndKeptWhenTheNoteIsChanged) {
  WriteData({NoteRecord(u"PLAIN", {50, 50})});
  Write(folder_ + u"rtf\\PLAIN.rtf", "just words");
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(TextOf(u"PLAIN"), u"just words");
  EXPECT_EQ(Reply(u"set desktop PLAIN text changed"), u"000 OK text set");
  EXPECT_EQ(Reply(u"set desktop PLAIN text again"), u"000 OK text set");
  std::vector<std::string> kept;
  for (const Text& path : FilesBelow(folder_)) {
    if (path.find(kDamagedMark) != Text::npos) kept.push_back(Read(folder_ + path));
  }
  EXPECT_EQ(kept, std::vector<std::string>{"just words"});
}

TEST_F(WindowTest, AThousandNotesWork) {
  std::vector<JotletData> records;
  std::vector<Text> ids;
  for (int i = 0; i < 1000; ++i) {
    ids.push_back(u"N" + IntText(i));
    records.push_back(NoteRecord(ids.back(), {i % 40 * 30, i / 40 * 30}));
  }
  ASSERT_TRUE(StartProgramWith(records));
  EXPECT_EQ(List(u"desktop"), ids);
  EXPECT_EQ(WindowsOfClass(kJotletClass).size(), 1000u);
  EXPECT_EQ(TextOf(u"N999"), u"N999");
  EXPECT_EQ(Close(), 0u);
  const DataFile saved = ParseData();
  ASSERT_EQ(saved.jotlets.size(), records.size());
  for (std::size_t i = 0; i < records.size(); ++i) EXPECT_EQ(saved.jotlets[i].record, records[i]);
}

}  // namespace
}  // namespace jotlets
