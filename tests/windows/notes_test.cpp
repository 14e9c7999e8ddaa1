// Notes on the screen, used by a person, and what is found of them at the next start.
#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "data/text_file.h"
#include "note/win/jotlet.h"
#include "res/resource.h"
#include "ui/clipboard.h"
#include "window_test.h"

namespace jotlets {
namespace {

using Records = std::map<Text, JotletData>;

Records ById(const std::vector<FiledJotlet>& jotlets) {
  Records records;
  for (const FiledJotlet& jotlet : jotlets) records[jotlet.record.id] = jotlet.record;
  return records;
}

Rect PlaceOf(const JotletData& record) {
  return {record.x, record.y, record.x + record.width, record.y + record.height};
}

class DemoTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    constexpr auto kAll = std::filesystem::copy_options::recursive;
    std::filesystem::remove_all(std::filesystem::path(folder_));
    std::filesystem::copy(L"..\\demo", std::filesystem::path(folder_), kAll);
    Write(folder_ + Text(kOptionsFileName), EncodeTextFile(u"[Options]\nDebug=1\n"));
    ASSERT_EQ(ParseData().jotlets.size(), 13u) << "the demonstration folder";
  }

  std::map<Text, Text> Texts() {
    std::map<Text, Text> texts;
    for (const Text& id : List(u"desktop")) texts[id] = TextOf(id);
    return texts;
  }

  static void ExpectOnScreen(const Records& records) {
    const auto text = [](const Rect& r) {
      return ToUtf8(IntText(r.left) + u"," + IntText(r.top) + u" " + IntText(r.Width()) + u"x" +
                    IntText(r.Height()));
    };
    std::multiset<std::string> places, shown;
    for (const auto& [id, record] : records) {
      if (!record.sleep.asleep && !record.IsAttached()) places.insert(text(PlaceOf(record)));
    }
    for (const HWND note : WindowsOfClass(kJotletClass)) {
      if (IsWindowVisible(note)) shown.insert(text(BoundsOf(note)));
    }
    EXPECT_EQ(shown, places);
  }
};

TEST_F(DemoTest, WhatAPersonChangesIsSavedByItselfAndThereAgainAtTheNextStart) {
  const Text path = folder_ + Text(kDataFileName);
  const DataFile before = ParseData();
  const std::string bytesBefore = Read(path);
  Records expected = ById(before.jotlets);
  ASSERT_TRUE(StartProgram());
  ExpectOnScreen(expected);
  EXPECT_EQ(Value(u"get list sleeping"), u"DEMO10,DEMO11,");
  EXPECT_EQ(Value(u"get list attached"), u"DEMO12,");
  EXPECT_EQ(Value(u"get list stacks"), u"1,2,");
  const Text oldText = TextOf(u"DEMO01");
  EXPECT_NE(oldText.find(u"green for what is done"), Text::npos);

  const Text typed = u"Typed: d\u00E9j\u00E0 \u20AC \u6F22 \U0001F600!";
  const HWND welcome = NoteTitled(u"Welcome");
  ASSERT_TRUE(ClickIntoText(welcome));
  PressKeys({VK_CONTROL, VK_END});
  TypeText(typed);
  EXPECT_TRUE(WaitUntil([&] { return ShownText(welcome).ends_with(typed); })) << ToUtf8(ShownText(welcome));

  const HWND dragged = NoteTitled(u"Shopping");
  ASSERT_TRUE(Drag(dragged, {BoundsOf(dragged).left + 60, BoundsOf(dragged).top + 12}, {700, 520}));
  expected[u"DEMO02"].x += 700;
  expected[u"DEMO02"].y += 520;
  EXPECT_EQ(BoundsOf(dragged), PlaceOf(expected[u"DEMO02"]));

  const HWND sized = NoteTitled(u"Another colour");
  ASSERT_TRUE(Drag(sized, {BoundsOf(sized).right - 2, BoundsOf(sized).bottom - 2}, {100, 40}));
  expected[u"DEMO08"].width += 100;
  expected[u"DEMO08"].height += 40;
  EXPECT_EQ(BoundsOf(sized), PlaceOf(expected[u"DEMO08"]));

  const HWND closed = NoteTitled(u"In a stack");
  const Rect last = BoundsOf(closed);
  const ULONGLONG lastChange = GetTickCount64();
  ASSERT_TRUE(ClickUntil([closed] { return !IsWindow(closed); }, {last.right - 10, last.top + 10}));

  // One save, ten seconds after the last change, with everything in it.
  ASSERT_TRUE(WaitUntil([&] { return Read(path) != bytesBefore; }, 20000)) << Log();
  EXPECT_GE(GetTickCount64() - lastChange, 9000u);
  const DataFile saved = ParseData();
  Records records = ById(saved.jotlets);
  EXPECT_GT(records[u"DEMO01"].modified, expected[u"DEMO01"].modified);
  expected[u"DEMO01"].modified = records[u"DEMO01"].modified;
  expected[u"DEMO01"].scroll = records[u"DEMO01"].scroll;
  JotletData closedRecord = expected.extract(u"DEMO13").mapped();
  EXPECT_EQ(records, expected);
  ASSERT_EQ(saved.deleted.size(), before.deleted.size() + 1);
  closedRecord.deletedTime = saved.deleted[0].record.deletedTime;
  EXPECT_GT(closedRecord.deletedTime, records[u"DEMO02"].modified);
  EXPECT_EQ(saved.deleted[0].record, closedRecord);
  EXPECT_EQ(saved.stacks, before.stacks);
  EXPECT_EQ(saved.installId, u"DEMO");

  // Killed, not closed: what counts is what the program has saved by itself.
  const auto texts = Texts();
  EXPECT_EQ(texts.at(u"DEMO01"), oldText + typed);
  program_->Kill();
  ASSERT_TRUE(StartProgram());
  ExpectOnScreen(records);
  EXPECT_EQ(Texts(), texts);
  EXPECT_EQ(Reply(u"do saveini"), u"000 OK saved");
  const DataFile again = ParseData();
  EXPECT_EQ(ById(again.jotlets), records);
  EXPECT_EQ(ById(again.deleted), ById(saved.deleted));
  EXPECT_EQ(again.stacks, saved.stacks);
}

class KeysTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}, u"Debug=1"));
  }

  // Presses keys that create a note with the focus, types into it and gives its id.
  Text CreateBy(std::initializer_list<WORD> keys, const Text& typed) {
    const auto before = WindowsOfClass(kJotletClass);
    HWND fresh = nullptr;
    PressKeys(keys);
    EXPECT_TRUE(WaitUntil([&] {
      fresh = GetForegroundWindow();
      const auto now = WindowsOfClass(kJotletClass);
      return now.size() == before.size() + 1 && fresh == now[0];
    }));
    TypeText(typed);
    EXPECT_TRUE(WaitUntil([&] { return ShownText(fresh) == typed; })) << ToUtf8(ShownText(fresh));
    return List(u"desktop").back();
  }
};

TEST_F(KeysTest, NotesAreCreatedAndTheProgramEndedWithTheKeyboard) {
  std::vector<Text> events;
  client_.OnEvent([&](TextView line) { events.emplace_back(line); });
  EXPECT_EQ(Reply(u"do register"), u"000 OK will send events your way");
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  const Text id = CreateBy({VK_CONTROL, 'N'}, u"Fresh");
  // What is meant is asked first: nothing, just the note, or all.
  const auto answer = [&](WORD key) {
    PressKeys({VK_MENU, VK_F4});
    const HWND dialog = DialogInFront();
    PressKeys({key});
    return dialog != nullptr && WaitUntil([&] { return !IsWindow(dialog); });
  };
  EXPECT_TRUE(answer(VK_ESCAPE));
  EXPECT_EQ(List(u"desktop").back(), id);
  EXPECT_TRUE(answer('L'));
  EXPECT_EQ(program_->WaitForEnd(), 0u);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.front(), u"506 desktop jotlet focus AA01");
  EXPECT_EQ(events.back(), u"503 jotlets is exiting, so long");
  EXPECT_EQ(std::count(events.begin(), events.end(), u"500 created desktop jotlet user " + id), 1);

  EXPECT_EQ(ById(ParseData(kExitCopyName).jotlets), ById(ParseData().jotlets));
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(TextOf(id), u"Fresh");
}

TEST_F(KeysTest, HotKeysCreateNotesAndATakenOneDoesNoHarm) {
  const Text id = CreateBy({VK_LWIN, VK_MENU, 'S'}, u"Hot");
  EXPECT_EQ(Close(), 0u);
  ASSERT_TRUE(RegisterHotKey(nullptr, 1, MOD_WIN | MOD_ALT, 'S'));
  ASSERT_TRUE(StartProgram());
  EXPECT_NE(Log().find("Hot key 10 (Win+Alt+S): "), std::string::npos);
  EXPECT_EQ(TextOf(id), u"Hot");
  // With a picture on the clipboard it would be a picture note, which takes no words.
  ASSERT_TRUE(PutTextOnClipboard(nullptr, {}, {}));
  CreateBy({VK_LWIN, VK_MENU, VK_SHIFT, 'S'}, u"Clip");
  UnregisterHotKey(nullptr, 1);
}

TEST_F(KeysTest, ANewNoteBeginsWithItsTitleOrWithNothingIfTheOptionSaysSo) {
  EXPECT_EQ(Close(), 0u);
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 300}, u"One")}, u"NewJotletAction=1"));
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  PressKeys({VK_CONTROL, 'N'});
  ASSERT_TRUE(
      WaitUntil([] { return FindWindowExW(GetForegroundWindow(), nullptr, L"Edit", nullptr) != nullptr; }));
  TypeText(u"Titled");
  PressKeys({VK_RETURN});
  EXPECT_NE(NoteTitled(u"Titled"), nullptr);
  EXPECT_EQ(Close(), 0u);
  Write(folder_ + Text(kOptionsFileName), EncodeTextFile(u"[Options]\nNewJotletAction=2\n"));
  ASSERT_TRUE(StartProgram());
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  PressKeys({VK_CONTROL, 'N'});
  EXPECT_TRUE(WaitUntil([this] { return List(u"desktop").size() == 3; }));
  EXPECT_EQ(GetForegroundWindow(), NoteTitled(u"One"));
}

TEST_F(KeysTest, WhatIsClosedDeletedHiddenOrPutToSleepIsOfferedToBeHadBack) {
  const auto strip = [this] {
    const auto strips = WindowsOfClass(L"JotletsUndoStrip", program_->Id());
    return strips.empty() ? nullptr : strips[0];
  };
  const auto undo = [&](const Text& words, std::initializer_list<WORD> keys) {
    EXPECT_TRUE(WaitUntil([&] { return strip() != nullptr && TextOfWindow(strip()) == words; }))
        << ToUtf8(words);
    if (keys.size() > 0) {
      // No other note is there to take the keyboard.
      EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == strip(); }));
      PressKeys(keys);
      EXPECT_TRUE(WaitUntil([&] { return strip() == nullptr; }));
    } else {
      const Rect at = BoundsOf(strip());
      EXPECT_TRUE(ClickUntil([&] { return strip() == nullptr; }, {at.right - 20, at.top + at.Height() / 2}));
    }
    return WaitUntil([this] { return List(u"desktop").size() == 1; }) && ClickIntoText(NoteTitled(u"One"));
  };
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  TypeText(u"typed ");
  const Text text = u"AA01typed ";
  EXPECT_TRUE(WaitUntil([&] { return ShownText(NoteTitled(u"One")) == text; }));
  PressKeys({VK_CONTROL, 'W'});
  ASSERT_TRUE(undo(u"“One” closed. Undo", {VK_RETURN}));
  PressKeys({VK_CONTROL, 'H'});
  ASSERT_TRUE(undo(u"“One” hidden. Undo", {}));
  const auto deleteIt = [&] {
    PressKeys({VK_CONTROL, VK_SHIFT, VK_DELETE});
    EXPECT_NE(DialogInFront(), nullptr);
    PressKeys({'Y'});
  };
  deleteIt();
  ASSERT_TRUE(undo(u"“One” deleted. Undo", {VK_CONTROL, 'Z'}));
  EXPECT_EQ(ShownText(NoteTitled(u"One")), text);
  // The key of undoing has it back from the note that has the keyboard now, unless that is written in.
  const Text other = Create(u"kept");
  EXPECT_EQ(Reply(u"set desktop " + other + u" title Two"), u"000 OK title set");
  const HWND second = NoteTitled(u"Two");
  for (const bool types : {false, true}) {
    ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
    PressKeys({VK_CONTROL, 'W'});
    ASSERT_TRUE(WaitUntil([&] { return strip() != nullptr; }));
    SetForegroundWindow(second);
    // Not by a click, which is something else done.
    ASSERT_TRUE(WaitUntil([&] { return TypesInto(second); }));
    if (types) {
      TypeText(u"!");
      ASSERT_TRUE(WaitUntil([&] { return ShownText(second) != u"kept"; }));
    }
    PressKeys({VK_CONTROL, 'Z'});
    EXPECT_TRUE(WaitUntil([&] { return types ? ShownText(second) == u"kept" : strip() == nullptr; }));
    EXPECT_EQ(ShownText(second), u"kept");
    EXPECT_EQ(List(u"desktop").size(), types ? 1u : 2u);
  }
  EXPECT_EQ(Reply(u"do desktop " + other + u" delete"), u"000 OK deleted");
  ASSERT_TRUE(undo(u"“One” closed. Undo", {}));
  // What was deleted is had back long after its strip, in the order in which things were done.
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  deleteIt();
  ASSERT_TRUE(WaitUntil([&] { return strip() != nullptr; }));
  const Text later = Create(u"later");
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"later")));
  PressKeys({VK_CONTROL, 'W'});
  ASSERT_TRUE(
      WaitUntil([&] { return strip() != nullptr && TextOfWindow(strip()) == u"“later” closed. Undo"; }));
  EXPECT_EQ(Reply(u"do manage open"), u"000 OK opened");
  const HWND manage = DialogWith(IDC_MANAGE_LIST);
  for (const TextView step : {u"&Undo close", u"&Undo delete"}) {
    EXPECT_TRUE(WaitUntil([&] { return TextOfWindow(GetDlgItem(manage, IDC_MANAGE_ACTION + 6)) == step; }));
    // A note that is back has taken the keyboard.
    SetForegroundWindow(manage);
    ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == manage; }));
    PressKeys({VK_CONTROL, 'Z'});
  }
  EXPECT_TRUE(WaitUntil([] { return NoteTitled(u"One") != nullptr; }));
  EXPECT_EQ(Reply(u"do manage close"), u"000 OK closed");
  EXPECT_EQ(Reply(u"do desktop " + later + u" delete"), u"000 OK deleted");
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  const Text id = List(u"desktop").front();
  deleteIt();
  EXPECT_TRUE(WaitUntil([&] { return strip() != nullptr; }));
  EXPECT_EQ(Close(), 0u);
  EXPECT_FALSE(Read(folder_ + u"jotlets.ini").empty());
  EXPECT_EQ(Read(folder_ + u"rtf\\" + id + u".rtf"), "") << "with the end at the latest it is gone";
}

}  // namespace
}  // namespace jotlets
