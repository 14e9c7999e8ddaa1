// The manage window by mouse and keys: finding, opening, deleting and having back, and notes in a bad state.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <filesystem>

#include "app/win/system_facts.h"
#include "base/win/ansi_code_page.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "data/options_file.h"
#include "data/text_file.h"
#include "desktop.h"
#include "manage/manage_actions.h"
#include "note/win/jotlet.h"
#include "res/resource.h"
#include "ui/screen.h"
#include "window_test.h"

namespace jotlets {
namespace {

class ManageTest : public WindowTest {
 protected:
  // The notes of the data file that are not closed, and those that are, with their contents.
  void WriteNotes(const std::vector<JotletData>& open, const std::vector<JotletData>& closed,
                  TextView options) {
    WriteData(open, kDataFileName, options);
    DataFileView view;
    view.installId = u"TEST";
    for (const JotletData& record : open) view.jotlets.push_back(&record);
    for (const JotletData& gone : closed) view.deleted.push_back(&gone);
    for (const JotletData& record : closed)
      Write(folder_ + ContentPath(record), "{\\rtf1\\ansi about " + ToUtf8(record.id) + "}");
    Write(folder_ + Text(kDataFileName), EncodeTextFile(ComposeDataFile(view)));
  }
  static JotletData Closed(TextView id, TextView title, Point place = {700, 300}) {
    JotletData record = NoteRecord(id, place, title);
    record.deletedTime = 1763800000;
    return record;
  }

  static HWND Find() { return FindWindowW(L"#32770", L"Manage Jotlets"); }
  static HWND List() { return GetDlgItem(Find(), IDC_MANAGE_LIST); }
  static Text Status() { return TextOfWindow(GetDlgItem(Find(), IDC_MANAGE_STATUS)); }
  static bool Shows(const Text& status) {
    return WaitUntil([&] { return Status() == status; }, 8000);
  }
  static bool HasFocus() {
    return WaitUntil([] { return Find() != nullptr && GetForegroundWindow() == Find(); });
  }
  // From the window where keys go now.
  static bool OpenByKey() {
    PressKeys({VK_CONTROL, 'M'});
    return HasFocus();
  }
  static LRESULT Row() { return SendMessageW(GetDlgItem(Find(), IDC_MANAGE_VIEWS), LB_GETCURSEL, 0, 0); }
  // In a store without categories each view is one row.
  static void GoToView(ManageView view) {
    for (std::size_t i = 0; i < kManageViews && Row() != static_cast<LRESULT>(view); ++i) {
      const LRESULT before = Row();
      PressKeys({VK_CONTROL, VK_NEXT});
      WaitUntil([&] { return Row() != before; }, 5000);
    }
  }
  static bool ClickTitle() {
    const Rect bounds = BoundsOf(Find());
    return ClickUntil([] { return GetForegroundWindow() == Find(); }, {bounds.left + 200, bounds.top + 12});
  }
  // By the keyboard, into the text of the note that is selected, once it is shown.
  static bool GoIntoText(TextView shown) {
    if (!WaitUntil([&] { return ShownText(Find()) == shown; })) return false;
    for (int i = 0; i < 20 && !TypesInto(Find()); ++i) {
      PressKeys({VK_TAB});
      WaitUntil([&] { return TypesInto(Find()); }, 200);
    }
    return TypesInto(Find());
  }
  std::vector<Text> Listed(TextView list) {
    std::vector<Text> ids = WindowTest::List(list);
    std::sort(ids.begin(), ids.end());
    return ids;
  }
  Options SavedOptions() const {
    Options options;
    LoadOptions(options, DecodeTextFile(Read(folder_ + Text(kOptionsFileName)), AnsiCodePage()).text);
    return options;
  }
  void ListenToChanges() {
    client_.OnEvent([this](TextView line) {
      if (line < u"503" || line.starts_with(u"508")) events_.emplace_back(line);
    });
    Reply(u"do register");
  }

  std::vector<Text> events_;
  using Ids = std::vector<Text>;
};

TEST_F(ManageTest, AmongAllNotesEachIsOpenedAndDeletedAsInItsOwnView) {
  WriteNotes({NoteRecord(u"AA01", {900, 600}, u"Desk")},
             {Closed(u"CC01", u"Alpha"), Closed(u"CC02", u"Beta", {640, 420})}, u"TakeBackups=0");
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(Reply(u"do store " + Create(u"kept") + u" Work"), u"000 OK stored: 1");
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Desk")));
  ASSERT_TRUE(OpenByKey());
  GoToView(ManageView::kAll);
  EXPECT_TRUE(Shows(u"4 of 4")) << ToUtf8(Status());
  TypeText(u"a");
  EXPECT_TRUE(Shows(u"3 of 4")) << ToUtf8(Status());
  PressKeys({VK_RETURN});
  PressKeys({VK_CONTROL, 'A'});
  EXPECT_TRUE(Shows(u"3 of 4, 3 selected")) << ToUtf8(Status());
  PressKeys({VK_RETURN});
  EXPECT_TRUE(WaitUntil([this] { return Listed(u"desktop").size() == 3; })) << "the stored one has no a";
  EXPECT_TRUE(Listed(u"closed").empty());
}

TEST_F(ManageTest, FindsAClosedNoteByItsTextAndBringsItBackToItsPlace) {
  WriteNotes({NoteRecord(u"AA01", {900, 600}, u"Desk")},
             {Closed(u"CC01", u"Alpha"), Closed(u"CC02", u"Beta", {640, 420}), Closed(u"CC03", u"Gamma")},
             u"Debug=3\nTakeBackups=0\nManageWindow=40,60,700,400\nManageSorted=-2");
  ASSERT_TRUE(StartProgram());
  ListenToChanges();
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Desk")));
  ASSERT_TRUE(OpenByKey());
  EXPECT_EQ(BoundsOf(Find()), (Rect{40, 60, 740, 460}));
  TypeText(u"About CC02");
  const auto words = [] { return TextOfWindow(GetDlgItem(Find(), IDC_MANAGE_EMPTY)); };
  EXPECT_TRUE(WaitUntil([&] { return words() == u"Nothing here holds these words.\nElsewhere: Closed 1"; }))
      << ToUtf8(words());
  GoToView(ManageView::kClosed);
  EXPECT_TRUE(Shows(u"1 of 3")) << ToUtf8(Status());
  PressKeys({VK_RETURN});
  EXPECT_TRUE(Shows(u"1 of 3, 1 selected")) << ToUtf8(Status());
  PressKeys({VK_RETURN});
  const HWND beta = NoteTitled(u"Beta");
  EXPECT_EQ(BoundsOf(beta), (Rect{640, 420, 860, 560}));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == beta; }));
  EXPECT_TRUE(Shows(u"0 of 2")) << ToUtf8(Status());
  EXPECT_TRUE(WaitUntil([&] { return !events_.empty(); }));
  EXPECT_EQ(events_, Ids{u"500 created desktop jotlet restored CC02"});
  EXPECT_EQ(ShownText(beta), u"about CC02");
  Reply(u"do saveini");
  const DataFile saved = ParseData();
  EXPECT_EQ(saved.jotlets.size(), 2u);
  EXPECT_EQ(saved.jotlets.back().record.deletedTime, kNotSet);
  EXPECT_EQ(saved.deleted.size(), 2u);

  // Dragged by its caption, and closed: the place is kept, and the next start leaves it closed.
  ASSERT_TRUE(ClickTitle());
  ASSERT_TRUE(Drag(Find(), {140, 72}, {30, 20}));
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(WaitUntil([] { return Find() == nullptr; }));
  EXPECT_EQ(Close(), 0u);
  EXPECT_EQ(SavedOptions().manageWindow, (std::array{70, 80, 700, 400}));
  EXPECT_EQ(SavedOptions().manageWindowVisible, 0);
  EXPECT_EQ(SavedOptions().manageSorted, -2);
}

TEST_F(ManageTest, ANoteIsStoredByItsKeyAndComesBackFromItsCategory) {
  WriteNotes({NoteRecord(u"AA01", {640, 420}, u"Desk")}, {},
             u"Debug=3\nTakeBackups=0\nManageWindow=40,60,840,400");
  ASSERT_TRUE(StartProgram());
  ListenToChanges();
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Desk")));
  PressKeys({VK_CONTROL, VK_SHIFT, 'D'});
  ASSERT_TRUE(WaitUntil([] {
    const HWND asks = FindWindowW(L"#32770", L"Store");
    return asks != nullptr && GetForegroundWindow() == asks;
  }));
  TypeText(u"work in progress");
  PressKeys({VK_RETURN});
  EXPECT_TRUE(WaitUntil([&] { return WindowTest::List(u"desktop").empty(); }));
  EXPECT_EQ(WindowTest::List(u"stored work in progress"), Ids{u"1"});
  EXPECT_EQ(Reply(u"do showstored 1"), u"000 OK done");
  EXPECT_TRUE(Shows(u"1 of 1, 1 selected")) << ToUtf8(Status());
  ASSERT_TRUE(ClickTitle());
  PressKeys({VK_RETURN});
  EXPECT_EQ(BoundsOf(NoteTitled(u"Desk")), (Rect{640, 420, 860, 560}));
  EXPECT_TRUE(Shows(u"0 of 0")) << ToUtf8(Status());
  EXPECT_EQ(events_,
            (Ids{u"502 deleted desktop jotlet stored AA01", u"500 created desktop jotlet restored AA01"}));
}

TEST_F(ManageTest, ATextIsChangedInThePreviewOfAnOpenNoteAndOfAClosedOne) {
  WriteNotes({NoteRecord(u"AA01", {900, 600}, u"Desk")}, {Closed(u"CC01", u"Alpha")},
             u"TakeBackups=0\nManageWindow=40,60,1000,500");
  ASSERT_TRUE(StartProgram());
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Desk")));
  TypeText(u"milk");
  ASSERT_TRUE(OpenByKey());
  PressKeys({VK_RETURN});
  ASSERT_TRUE(GoIntoText(u"AA01milk"));
  // Its keys are those of a text: what is selected goes, not the note.
  PressKeys({VK_CONTROL, 'A'});
  PressKeys({VK_DELETE});
  TypeText(u"bread");
  EXPECT_TRUE(WaitUntil([this] { return Reply(u"get desktop AA01 text") == u"001 bread"; }));
  TypeText(u", tea");
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(WaitUntil([this] { return Reply(u"get desktop AA01 text") == u"001 bread, tea"; }))
      << ToUtf8(Reply(u"get desktop AA01 text"));
  EXPECT_EQ(Listed(u"desktop"), Ids{u"AA01"});

  GoToView(ManageView::kClosed);
  PressKeys({VK_RETURN});
  ASSERT_TRUE(GoIntoText(u"about CC01"));
  TypeText(u"all ");
  EXPECT_TRUE(WaitUntil([] { return ShownText(Find()) == u"all about CC01"; }));
  EXPECT_EQ(Close(), 0u);
  EXPECT_NE(Read(folder_ + u"rtf\\CC01.rtf").find("all about CC01"), std::string::npos) << "saved at the end";
}

TEST_F(ManageTest, WhatIsTypedInThePreviewStaysWithItsNote) {
  JotletData asleep = NoteRecord(u"AA03", {640, 300}, u"Gone");
  asleep.sleep.asleep = true;
  asleep.sleep.nextWake = 2100000000;
  WriteNotes({NoteRecord(u"AA01", {900, 600}, u"Alpha"), NoteRecord(u"AA02", {900, 400}, u"Beta"), asleep},
             {}, u"TakeBackups=0\nManageWindow=40,60,1000,500");
  std::filesystem::rename(std::filesystem::path(folder_ + u"rtf\\AA03.rtf"),
                          std::filesystem::path(folder_ + u"away.rtf"));
  ASSERT_TRUE(StartProgram());
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Beta")));
  ASSERT_TRUE(OpenByKey());
  TypeText(u"aa0");
  EXPECT_TRUE(Shows(u"2 of 2")) << ToUtf8(Status());
  PressKeys({VK_RETURN});
  ASSERT_TRUE(GoIntoText(u"AA01"));
  PressKeys({VK_CONTROL, 'A'});
  TypeText(u"bread");
  EXPECT_TRUE(WaitUntil([this] { return Reply(u"get desktop AA01 text") == u"001 bread"; }));
  PressKeys({VK_F5});
  EXPECT_TRUE(Shows(u"1 of 2, 1 selected")) << ToUtf8(Status()) << ": its row has gone";
  EXPECT_FALSE(WaitUntil([] { return ShownText(Find()) != u"bread"; }, 600))
      << "not while it has the keyboard";
  TypeText(u" and salt");
  EXPECT_TRUE(WaitUntil([this] { return Reply(u"get desktop AA01 text") == u"001 bread and salt"; }));
  EXPECT_EQ(Reply(u"get desktop AA02 text"), u"001 AA02");
  PressKeys({VK_ESCAPE});
  ASSERT_TRUE(GoIntoText(u"AA02")) << "the row that is selected now";

  // A text that cannot be had now may be there in a moment.
  PressKeys({VK_ESCAPE});
  PressKeys({VK_CONTROL, 'F'});
  PressKeys({VK_ESCAPE});
  GoToView(ManageView::kSleeping);
  PressKeys({VK_RETURN});
  ASSERT_TRUE(GoIntoText(u""));
  std::filesystem::rename(std::filesystem::path(folder_ + u"away.rtf"),
                          std::filesystem::path(folder_ + u"rtf\\AA03.rtf"));
  const std::string before = Read(folder_ + u"rtf\\AA03.rtf");
  TypeText(u"z");
  EXPECT_FALSE(WaitUntil([] { return ShownText(Find()) == u"z"; }, 600));
  EXPECT_EQ(Close(), 0u);
  EXPECT_EQ(Read(folder_ + u"rtf\\AA03.rtf"), before);
}

TEST_F(ManageTest, NotesAreDraggedToCategoriesToTheDesktopAndFromThere) {
  WriteNotes({NoteRecord(u"AA01", {900, 120}, u"Desk")}, {},
             u"TakeBackups=0\nSnap=0,10,2\nManageWindow=40,60,700,560");
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(Reply(u"do store " + Create(u"kept") + u" Work"), u"000 OK stored: 1");
  EXPECT_EQ(Reply(u"do store " + Create(u"other") + u" Home"), u"000 OK stored: 2");
  EXPECT_EQ(Reply(u"do showstored 1"), u"000 OK done");
  ASSERT_TRUE(Shows(u"2 of 2")) << ToUtf8(Status());
  ASSERT_TRUE(ClickTitle());
  // The rows of the views, the last of which are the categories, "Home" and "Work".
  const auto category = [&](int number) {
    RECT area{};
    const HWND views = GetDlgItem(Find(), IDC_MANAGE_VIEWS);
    SendMessageW(views, LB_GETITEMRECT,
                 static_cast<WPARAM>(ManageView::kStored) + static_cast<WPARAM>(number),
                 reinterpret_cast<LPARAM>(&area));
    MapWindowPoints(views, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return Point{static_cast<std::int32_t>(area.left) + 40, static_cast<std::int32_t>(area.top) + 10};
  };
  const auto dragRow = [&](Point to) {
    const bool shown =
        ClickUntil([] { return Row() == static_cast<LRESULT>(ManageView::kStored) + 2; }, category(2)) &&
        Shows(u"1 of 1");
    return shown && DragFrom(Find(), {BoundsOf(List()).left + 60, BoundsOf(List()).top + 45}, to);
  };
  ASSERT_TRUE(dragRow(category(1))) << ToUtf8(Status());
  EXPECT_TRUE(WaitUntil([&] { return WindowTest::List(u"stored Home").size() == 2; }));
  PressKeys({VK_CONTROL, 'Z'});
  EXPECT_TRUE(WaitUntil([&] { return WindowTest::List(u"stored Work") == Ids{u"1"}; }));
  EXPECT_TRUE(WaitUntil([] { return ListView_GetSelectedCount(List()) == 1; }));
  ASSERT_TRUE(dragRow({820, 400})) << ToUtf8(Status());
  const HWND kept = NoteTitled(u"kept");
  EXPECT_TRUE(WaitUntil([kept] { return BoundsOf(kept).TopLeft() == Point{820, 400}; }));
  EXPECT_TRUE(WindowTest::List(u"stored Work").empty());
  const HWND desk = NoteTitled(u"Desk");
  const Point home = category(1);
  HoldKey(VK_SHIFT, true);
  ASSERT_TRUE(Drag(desk, Title(desk), {home.x - Title(desk).x, home.y - Title(desk).y}));
  HoldKey(VK_SHIFT, false);
  EXPECT_TRUE(WaitUntil([&] { return WindowTest::List(u"stored Home").size() == 2; }));
  EXPECT_EQ(WindowTest::List(u"desktop").size(), 1u);
}

TEST_F(ManageTest, WhatIsDeletedIsClosedAndCanBeHadBackUntilItIsDeletedForGood) {
  JotletData asleep = NoteRecord(u"BB01", {300, 300}, u"Asleep");
  asleep.sleep.asleep = true;
  asleep.sleep.nextWake = 2000000000;
  JotletData waiting = NoteRecord(u"BB02", {300, 300}, u"Waiting");
  waiting.attachment.className = u"NoSuchClass";
  waiting.attachment.title = u"*";
  WriteNotes({NoteRecord(u"AA01", {900, 600}, u"Desk"), asleep, waiting}, {Closed(u"CC01", u"Old")},
             u"Debug=3\nTakeBackups=0\nManageWindow=-9000,60,700,400\nManageWindowVisible=1\n"
             u"ManageWidths=-5,0,x,99999999\nManageSorted=77\nManageWindowSearchWhat=-3");
  ASSERT_TRUE(StartProgram());
  ASSERT_TRUE(WaitUntil([] { return Find() != nullptr && IsWindowVisible(Find()); })) << "open as it was";
  EXPECT_TRUE(VirtualScreen().Contains(BoundsOf(Find()).TopLeft())) << "but where it can be seen";
  ListenToChanges();
  Reply(u"do saveini");
  const DataFile before = ParseData();
  const bool attachedWaits = !WindowTest::List(u"attached").empty();
  ASSERT_TRUE(ClickTitle());
  for (const ManageView view : {ManageView::kDesktop, ManageView::kAttached, ManageView::kSleeping}) {
    GoToView(view);
    PressKeys({VK_CONTROL, 'A'});
    PressKeys({VK_DELETE});
    EXPECT_TRUE(Shows(u"0 of 0")) << static_cast<int>(view) << ToUtf8(Status());
  }
  EXPECT_EQ(Listed(u"closed"), (Ids{u"AA01", u"BB01", u"BB02", u"CC01"}));
  EXPECT_EQ(events_.front(), u"501 closed desktop jotlet user AA01");
  for (int step = 0; step < 3; ++step) {
    PressKeys({VK_CONTROL, 'Z'});
    EXPECT_TRUE(WaitUntil([&] { return Listed(u"closed").size() == 3u - static_cast<std::size_t>(step); }));
    ASSERT_TRUE(ClickTitle());
  }
  NoteTitled(u"Desk");
  Reply(u"do saveini");
  const DataFile after = ParseData();
  ASSERT_EQ(after.jotlets.size(), before.jotlets.size());
  for (const FiledJotlet& line : before.jotlets) {
    EXPECT_TRUE(std::any_of(after.jotlets.begin(), after.jotlets.end(), [&](const FiledJotlet& l) {
      return l.record == line.record;
    })) << ToUtf8(line.record.id);
  }
  EXPECT_TRUE(attachedWaits);

  // What is closed goes for good, when the user says so; a note that sleeps can be woken.
  events_.clear();
  GoToView(ManageView::kClosed);
  PressKeys({VK_CONTROL, 'A'});
  PressKeys({VK_DELETE});
  EXPECT_NE(AnswerBox(*program_, Find()).find(u"for good"), Text::npos);
  EXPECT_EQ(Listed(u"closed").size(), 1u) << "Enter without looking";
  PressKeys({VK_DELETE});
  ASSERT_TRUE(WaitUntil([&] { return DialogInFront() != Find(); }));
  PressKeys({'Y'});
  EXPECT_TRUE(WaitUntil([&] { return Listed(u"closed").empty(); }));
  EXPECT_EQ(events_, Ids{u"508 deleted closed jotlet CC01"});
  Reply(u"do saveini");
  EXPECT_EQ(Read(folder_ + u"rtf\\CC01.rtf"), "");
  ASSERT_TRUE(ClickTitle());
  GoToView(ManageView::kSleeping);
  PressKeys({VK_CONTROL, 'A'});
  PressKeys({VK_RETURN});
  NoteTitled(u"Asleep");
  ASSERT_TRUE(ClickTitle());
  GoToView(ManageView::kAttached);
  const Rect list = BoundsOf(ManageTest::List());
  ASSERT_TRUE(ClickUntil([] { return Shows(u"1 of 1, 1 selected"); }, {list.left + 40, list.top + 28}));
  PressKeys({VK_MENU, 'A'});
  const HWND unattached = NoteTitled(u"Waiting");
  EXPECT_TRUE(IsWindow(unattached));
  EXPECT_TRUE(WindowTest::List(u"attached").empty());
  Reply(u"do saveini");
  for (const FiledJotlet& line : ParseData().jotlets) EXPECT_FALSE(line.record.IsAttached());
}

}  // namespace
}  // namespace jotlets
