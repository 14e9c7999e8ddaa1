// Finding notes, by command and in the field over everything.
#include <windows.h>

#include <algorithm>

#include "base/win/wide.h"
#include "data/data_folder.h"
#include "manage/manage_actions.h"
#include "note/win/jotlet.h"
#include "res/find_numbers.h"
#include "res/resource.h"
#include "window_test.h"

namespace jotlets {
namespace {

class FindTest : public WindowTest {
 protected:
  // Once all notes have been read.
  Text Found(TextView words) {
    Text reply;
    WaitUntil([&] { return !(reply = Reply(u"do find " + Text(words))).starts_with(u"997"); });
    return reply;
  }
  static HWND Field() { return FindWindowW(L"#32770", L"Find Jotlets"); }
  static LRESULT Rows() { return SendMessageW(GetDlgItem(Field(), IDC_QUICK_FIND_LIST), LB_GETCOUNT, 0, 0); }
  // It closes when another window comes to the front, as one may that was on its way when the keys were
  // pressed.
  static bool OpenField() {
    constexpr int kAttempts = 3;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      PressKeys({VK_LWIN, VK_MENU, 'F'});
      const auto opened = [] { return Field() != nullptr && GetForegroundWindow() == Field(); };
      if (WaitUntil(opened, kPatience / kAttempts)) return true;
    }
    return false;
  }
};

TEST_F(FindTest, CommandKnowsEveryNoteWhereverItIsAndWhatWasJustTyped) {
  ASSERT_TRUE(StartProgramWith(
      {NoteRecord(u"A1", {100, 100}, u"Apple pie"), NoteRecord(u"B2", {400, 100}, u"Plum")}, u"Debug=1"));
  EXPECT_EQ(Found(u"app"), u"001 A1,");
  EXPECT_EQ(Found(u"nothing"), u"001 ");
  EXPECT_NE(Log().find("...finished generating titles and filling cache"), std::string::npos);
  Reply(u"set desktop B2 text an apple a day");
  EXPECT_EQ(Found(u"day app"), u"001 B2,");
  EXPECT_EQ(Reply(u"do store A1 Kitchen"), u"000 OK stored: 1");
  EXPECT_EQ(Found(u"pie category:kit"), u"001 1,");
  EXPECT_EQ(Reply(u"do fetch 1"), u"000 OK fetched: A1");
  EXPECT_EQ(Found(u"pie"), u"001 A1,");
  EXPECT_EQ(Reply(u"do desktop A1 close"), u"000 OK closed");
  EXPECT_EQ(Found(u"pie is:closed"), u"001 A1,");
  // What the index holds is still true at the next start.
  ASSERT_EQ(Close(), DWORD{0});
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(Found(u"apple -plum"), u"001 A1,");
  // It knows stored notes even when their file is gone.
  EXPECT_EQ(Reply(u"do store B2 Kitchen"), u"000 OK stored: 2");
  EXPECT_EQ(Found(u"plum category:kit"), u"001 2,");
  ASSERT_EQ(Close(), DWORD{0});
  ASSERT_TRUE(DeleteFileW(Wide(folder_ + Text(kStoreFileName))));
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(Found(u"plum category:kit"), u"001 2,");
  EXPECT_EQ(Reply(u"do fetch 2"), u"000 OK fetched: B2");
}

TEST_F(FindTest, FieldFindsAtEachKeyAndOpensWhatIsChosen) {
  ASSERT_TRUE(StartProgramWith(
      {NoteRecord(u"A1", {100, 500}, u"Apple pie"), NoteRecord(u"B2", {400, 500}, u"Plum")}));
  Reply(u"set desktop A1 text bake it in the orchard");
  Reply(u"do desktop A1 close");
  ASSERT_TRUE(StartsWithIgnoreCase(Found(u"orch"), u"001 A1"));
  ASSERT_TRUE(OpenField());
  TypeText(u"o");
  TypeText(u"rch");
  ASSERT_TRUE(WaitUntil([] { return Rows() == 1; }));
  PressKeys({VK_RETURN});
  EXPECT_TRUE(WaitUntil([] { return Field() == nullptr; }));
  const HWND note = NoteTitled(u"Apple pie");
  ASSERT_NE(note, nullptr);
  EXPECT_TRUE(WaitUntil([&] {
    const HWND strip = GetDlgItem(note, 101);
    return strip != nullptr && IsWindowVisible(strip) && TextOfWindow(GetDlgItem(strip, 2)) == u"1 of 1";
  })) << "the words are marked";

  ASSERT_TRUE(OpenField());
  TypeText(u"zebra");
  EXPECT_TRUE(WaitUntil([] {
    return TextOfWindow(GetDlgItem(Field(), IDC_QUICK_FIND_STATUS))
        .starts_with(u"Nothing holds \u201Czebra\u201D");
  }));
  PressKeys({VK_CONTROL, VK_RETURN});
  EXPECT_TRUE(WaitUntil([&] { return Field() == nullptr && List(u"desktop").size() == 3; }));
  EXPECT_EQ(TextOf(List(u"desktop").back()), u"zebra");

  ASSERT_TRUE(OpenField());
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(WaitUntil([] { return Field() == nullptr; }));
}

TEST_F(FindTest, EnterOpensWhatIsTypedNowAndShowsWhereAWaitingNoteIs) {
  JotletData waiting = NoteRecord(u"C3", {700, 500}, u"Pear");
  waiting.attachment.className = u"NoSuchClass";
  waiting.attachment.title = u"*";
  JotletData latest = NoteRecord(u"A1", {100, 500}, u"Forest");
  latest.modified = 1'795'000'000;
  ASSERT_TRUE(StartProgramWith({latest, NoteRecord(u"B2", {400, 500}, u"Fog"), waiting}));
  ASSERT_TRUE(WaitUntil([&] { return Found(u"is:attached") == u"001 C3,"; }, 8000));
  Reply(u"do desktop A1 close");
  for (int round = 0; round < 3; ++round) {
    Reply(u"do desktop B2 close");
    ASSERT_EQ(Found(u"fo is:closed"), u"001 A1,B2,");
    ASSERT_TRUE(OpenField());
    TypeText(u"fo");
    ASSERT_TRUE(WaitUntil([] { return Rows() == 2; }));
    TypeText(u"g");
    PressKeys({VK_RETURN});
    ASSERT_TRUE(WaitUntil([] { return Field() == nullptr; }));
    ASSERT_TRUE(WaitUntil([&] { return !List(u"desktop").empty(); }));
    EXPECT_EQ(List(u"desktop"), std::vector<Text>{u"B2"});
    EXPECT_TRUE(WaitUntil([] { return GetForegroundWindow() == NoteTitled(u"Fog"); }));
  }
  ASSERT_TRUE(OpenField());
  TypeText(u"pear");
  PressKeys({VK_RETURN});
  EXPECT_TRUE(WaitUntil([] {
    const HWND window = FindWindowW(L"#32770", L"Manage Jotlets");
    return SendMessageW(GetDlgItem(window, IDC_MANAGE_VIEWS), LB_GETCURSEL, 0, 0) ==
               static_cast<LRESULT>(ManageView::kAttached) &&
           TextOfWindow(GetDlgItem(window, IDC_MANAGE_STATUS)) == u"1 of 1, 1 selected";
  }));
}

}  // namespace
}  // namespace jotlets
