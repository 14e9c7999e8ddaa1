// Moving, sizing, rolling, locking and fading of notes, by mouse and keys, read from the windows themselves.
#include <windows.h>

#include <limits>

#include "data/data_folder.h"
#include "desktop.h"
#include "note/papers.h"
#include "note/win/jotlet.h"
#include "window_test.h"

namespace jotlets {
namespace {

constexpr TextView kSnapping = u"Debug=3\nSnap=1,10,2\nTakeBackups=0";

class NoteWindowTest : public WindowTest {
 protected:
  static BYTE AlphaOf(HWND note) {
    BYTE alpha = 0;
    GetLayeredWindowAttributes(note, nullptr, &alpha, nullptr);
    return alpha;
  }
  static LONG_PTR ExtendedStyle(HWND note) { return GetWindowLongPtrW(note, GWL_EXSTYLE); }
  static bool Turns(HWND note, const Rect& bounds) {
    return WaitUntil([&] { return BoundsOf(note) == bounds; }, 3000);
  }
};

TEST_F(NoteWindowTest, SnapsToItsNeighbourUnlessAltIsHeld) {
  ASSERT_TRUE(StartProgramWith(
      {NoteRecord(u"AA01", {300, 200}, u"Above"), NoteRecord(u"AA02", {340, 500}, u"Below")}, kSnapping));
  const HWND below = NoteTitled(u"Below");
  // Its top would lie 7 below the other one's bottom, its left 5 beside: both are caught.
  ASSERT_TRUE(Drag(below, Title(below), {-35, -153}));
  EXPECT_TRUE(Turns(below, {300, 342, 520, 482}));
  HoldKey(VK_MENU, true);
  Drag(below, Title(below), {3, -1});
  HoldKey(VK_MENU, false);
  EXPECT_TRUE(Turns(below, {303, 341, 523, 481})) << BoundsOf(below).left << "," << BoundsOf(below).top;
  // The right edge is caught by the other one's, and the record has what the window shows.
  ASSERT_TRUE(Drag(below, {BoundsOf(below).right - 2, BoundsOf(below).top + 60}, {-6, 0}));
  EXPECT_TRUE(Turns(below, {303, 341, 520, 481})) << BoundsOf(below).right;
  EXPECT_EQ(Saved(u"AA02").width, 217);
}

TEST_F(NoteWindowTest, StopsAtTheSmallestSizeOfItsSkin) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 200}, u"Small")}, kSnapping));
  const HWND note = NoteTitled(u"Small");
  ASSERT_TRUE(Drag(note, {BoundsOf(note).right - 2, BoundsOf(note).bottom - 2}, {-200, -130}));
  EXPECT_TRUE(Turns(note, {300, 200, 450, 245}));
  EXPECT_NE(Log().find("Set size safe to: 150 45, minimums: 150 45"), std::string::npos);
}

TEST_F(NoteWindowTest, MovesWithTheNotesThatAreSelectedAndCommandsReachThemAll) {
  ASSERT_TRUE(
      StartProgramWith({NoteRecord(u"AA01", {100, 100}, u"One"), NoteRecord(u"AA02", {400, 100}, u"Two"),
                        NoteRecord(u"AA03", {700, 100}, u"Three")},
                       u"Debug=3\nSnap=0,10,2\nTakeBackups=0"));
  const HWND one = NoteTitled(u"One");
  const HWND two = NoteTitled(u"Two");
  Select({u"One", u"Two"});
  std::vector<Text> moves;
  client_.OnEvent([&moves](TextView line) {
    if (line.starts_with(u"509")) moves.emplace_back(line);
  });
  Reply(u"do register");
  ASSERT_TRUE(Drag(two, Title(two), {30, 50}));
  EXPECT_TRUE(WaitUntil([&] { return !moves.empty(); }));
  EXPECT_EQ(moves, std::vector<Text>{u"509 desktop jotlet moved AA02,AA01,"});
  EXPECT_TRUE(Turns(one, {130, 150, 350, 290}));
  EXPECT_TRUE(Turns(two, {430, 150, 650, 290}));
  EXPECT_EQ(BoundsOf(NoteTitled(u"Three")).left, 700);
  PressKeys({VK_CONTROL, VK_SHIFT, 'T'});
  EXPECT_TRUE(WaitUntil([&] { return (ExtendedStyle(one) & ExtendedStyle(two) & WS_EX_TOPMOST) != 0; }));
  EXPECT_EQ(ExtendedStyle(NoteTitled(u"Three")) & WS_EX_TOPMOST, 0);
  EXPECT_TRUE(Saved(u"AA01").onTop && Saved(u"AA02").onTop && !Saved(u"AA03").onTop);
}

TEST_F(NoteWindowTest, IsResizedUnderTheMouseThatDragsItToAnotherScale) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 200}, u"Travels")}, u"Snap=0,10,2\nTakeBackups=0"));
  const HWND note = NoteTitled(u"Travels");
  const auto scale = [note](int dpi) { SendMessageW(note, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), 0); };
  ASSERT_TRUE(Drag(note, Title(note), {40, 80}, [&scale] { scale(144); }));
  // Held 60 pixels from its left edge, and half as much again after half of the way.
  EXPECT_TRUE(Turns(note, {310, 276, 640, 486}));
  scale(96);
  EXPECT_TRUE(Turns(note, {310, 276, 530, 416}));
  Reply(u"do save");
  EXPECT_TRUE(Saved(u"AA01").x == 310 && Saved(u"AA01").y == 276 && Saved(u"AA01").width == 220);
}

TEST_F(NoteWindowTest, RollsUpToItsTitleAndKeepsItsHeight) {
  // On a busy machine two clicks are far apart.
  SetDoubleClickTime(5000);
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 200}, u"Rolled")}, kSnapping));
  const HWND note = NoteTitled(u"Rolled");
  ASSERT_TRUE(ClickIntoText(note));
  PressKeys({VK_CONTROL, VK_SHIFT, 'U'});
  EXPECT_TRUE(Turns(note, {300, 200, 520, 219}));
  EXPECT_TRUE(Saved(u"AA01").rolled && Saved(u"AA01").height == 140);
  ASSERT_TRUE(Drag(note, Title(note), {50, 60}));
  program_->Kill();
  ASSERT_TRUE(StartProgram());
  // Saved by the command before, not by the drag after it.
  const HWND again = NoteTitled(u"Rolled");
  EXPECT_EQ(BoundsOf(again), (Rect{300, 200, 520, 219}));
  for (int click = 0; click < 2; ++click) Drag(again, Title(again), {0, 0});
  EXPECT_TRUE(Turns(again, {300, 200, 520, 340})) << "a double click on the title";
}

TEST_F(NoteWindowTest, IsOpaqueWhileItIsEditedAndFadesAfterwards) {
  JotletData record = NoteRecord(u"AA01", {300, 200}, u"Faint");
  record.transparency = 50;
  ASSERT_TRUE(StartProgramWith({record, NoteRecord(u"AA02", {700, 200}, u"Other")},
                               u"Debug=3\nOpaqueEdit=1\nTakeBackups=0"));
  const HWND note = NoteTitled(u"Faint");
  EXPECT_EQ(AlphaOf(note), 127);
  ASSERT_TRUE(ClickIntoText(note));
  EXPECT_TRUE(WaitUntil([&] { return AlphaOf(note) == 255; }));
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Other")));
  // One step short of its own opacity: 51 percent.
  EXPECT_TRUE(WaitUntil([&] { return AlphaOf(note) == 51 * 255 / 100; })) << int{AlphaOf(note)};
  EXPECT_EQ(Saved(u"AA01").transparency, 50);
}

TEST_F(NoteWindowTest, TakesThePaperThatIsMarkedInItsMenu) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 200}, u"Paper")}, kSnapping));
  const HWND note = NoteTitled(u"Paper");
  ASSERT_TRUE(ClickIntoText(note));
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  const Rect menu = BoundsOf(WindowsOfClass(L"#32768", program_->Id()).front());
  EXPECT_EQ((Point{menu.left, menu.top}), (Point{308, 219})) << "under the title";
  // Not Down: the mouse may have lit an entry already.
  for (const int key : {VK_HOME, VK_RIGHT, VK_RIGHT, VK_LEFT, VK_RETURN}) PressKeys({static_cast<WORD>(key)});
  EXPECT_TRUE(WaitUntil([&] { return Saved(u"AA01").colour == kPapers[1]; }));
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  // In the fourth of the nine.
  EXPECT_TRUE(ClickUntil([&] { return Saved(u"AA01").colour == kPapers[3]; },
                         {menu.left + menu.Width() * 7 / 18 - 8, menu.top + 24}));
}

TEST_F(NoteWindowTest, GoesAwayAndIsBackWhereItWas) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 200}, u"Away")}, kSnapping));
  const HWND note = NoteTitled(u"Away");
  ASSERT_TRUE(ClickIntoText(note));
  PressKeys({VK_CONTROL, 'H'});
  EXPECT_TRUE(WaitUntil([&] { return !IsWindowVisible(note); }));
  EXPECT_TRUE(Turns(note, {300, 200, 520, 340}));
  const JotletData saved = Saved(u"AA01");
  EXPECT_TRUE(saved.hidden && saved.x == 300 && saved.y == 200);
}

TEST_F(NoteWindowTest, OffTheScreenIsShownOnItButItsRecordStays) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {-5000, 200}, u"Far")}, kSnapping));
  EXPECT_EQ(BoundsOf(NoteTitled(u"Far")).left, 8);
  EXPECT_NE(Log().find("Saved jotlet AA01 from appearing off screen (moved from -5000,200 to 8,200)"),
            std::string::npos);
  EXPECT_EQ(Value(u"get desktop AA01 position"), u"8,200");
  EXPECT_EQ(Saved(u"AA01").x, -5000);
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Far")));
  PressKeys({VK_CONTROL, VK_SHIFT, 'U'});
  EXPECT_TRUE(Turns(NoteTitled(u"Far"), {8, 200, 228, 219})) << "rolled up where it is seen";
  EXPECT_EQ(Saved(u"AA01").x, -5000);
}

TEST_F(NoteWindowTest, IsRescuedForGoodAndGhostsInReachAreLeftToTheCommand) {
  JotletData ghost = NoteRecord(u"AA01", {300, 200}, u"Ghost");
  ghost.ghost = true;
  JotletData distant = NoteRecord(u"AA02", {-5000, 400}, u"Far");
  distant.ghost = true;
  WriteData({ghost, distant}, kDataFileName, kSnapping);
  ASSERT_TRUE(StartProgram(u"-rescue"));
  EXPECT_NE(ExtendedStyle(NoteTitled(u"Ghost")) & WS_EX_TRANSPARENT, 0);
  EXPECT_EQ(ExtendedStyle(NoteTitled(u"Far")) & WS_EX_TRANSPARENT, 0);
  EXPECT_EQ(Saved(u"AA02").x, 8);
  EXPECT_TRUE(Saved(u"AA01").ghost);
  ChooseInTrayMenu({'R'});
  EXPECT_TRUE(WaitUntil([&] { return (ExtendedStyle(NoteTitled(u"Ghost")) & WS_EX_TRANSPARENT) == 0; }));
}

TEST_F(NoteWindowTest, AnUnknownHeightIsThatOfItsTextAndWhatCannotRollUpSaysSo) {
  JotletData rolled = NoteRecord(u"AA01", {300, 200}, u"Rolled");
  rolled.rolled = true;
  rolled.height = kNone;
  JotletData flat = NoteRecord(u"AA02", {600, 200}, u"Flat");
  flat.skin = u"Flat";
  WriteFlatSkin();
  ASSERT_TRUE(StartProgramWith({rolled, flat}, kSnapping));
  EXPECT_EQ(Reply(u"do desktop AA02 rolled"), u"997 unable to roll up");
  EXPECT_EQ(Saved(u"AA01").height, kNone);
  EXPECT_EQ(Reply(u"do desktop AA01 unrolled"), u"000 OK unrolled");
  EXPECT_EQ(
      AnswerBox(*program_),
      u"BJotlet::GetJotletHeight() - should never be here, getting jotlet height when jotlet is rolled, and "
      u"m_unrolledheight == -1");
  const std::int32_t height = BoundsOf(NoteTitled(u"Rolled")).Height();
  EXPECT_TRUE(height >= 40 && height < 120) << height;
  EXPECT_EQ(Saved(u"AA01").height, height);
}

// Whatever brings a note to the desktop while all are hidden.
TEST_F(NoteWindowTest, NothingAppearsWhileNotesAreHidden) {
  JotletData hidden = NoteRecord(u"AA01", {300, 200}, u"One");
  hidden.hidden = true;
  JotletData asleep = NoteRecord(u"AA02", {600, 200}, u"Two");
  asleep.sleep.asleep = true;
  asleep.sleep.nextWake = std::numeric_limits<std::int32_t>::max();
  ASSERT_TRUE(StartProgramWith({hidden, asleep}, u"Debug=3\nHidden=1\nShadows=1\nTakeBackups=0"));
  Create(u"new");
  EXPECT_EQ(Reply(u"do wake AA02"), u"000 OK woken");
  EXPECT_EQ(Reply(u"do alarmstart AA02"), u"000 OK alarmed");
  Reply(u"set desktop AA01 hidden 0");
  ChooseInTrayMenu({'N'});
  ASSERT_TRUE(WaitUntil([this] { return List(u"desktop").size() == 4; }));
  for (const wchar_t* name : {kJotletClass, kNoteShadowClass}) {
    for (const HWND window : WindowsOfClass(name, program_->Id())) EXPECT_FALSE(IsWindowVisible(window));
  }
}

TEST_F(NoteWindowTest, IsMovedAndSizedAndLeftWithTheKeyboardAlone) {
  ASSERT_TRUE(StartProgramWith(
      {NoteRecord(u"AA01", {300, 200}, u"One"), NoteRecord(u"AA02", {600, 200}, u"Two")}, kSnapping));
  const HWND one = NoteTitled(u"One");
  const HWND two = NoteTitled(u"Two");
  // Wine takes the modifiers from the X server when that tells of another focus, however late: what was
  // pressed by then is a plain key. Such a chord does nothing here, and is pressed again.
  const auto press = [](std::initializer_list<WORD> chord, const std::function<bool()>& done) {
    for (int attempt = 0; attempt < 3; ++attempt) {
      PressKeys(chord);
      if (WaitUntil(done, kPatience / 3)) return true;
    }
    return false;
  };
  const auto has = [](HWND note, const Rect& bounds) {
    return [note, bounds] { return BoundsOf(note) == bounds; };
  };
  ASSERT_TRUE(ClickIntoText(one));
  EXPECT_TRUE(press({VK_MENU, VK_RIGHT}, has(one, {308, 200, 528, 340})));
  EXPECT_TRUE(press({VK_MENU, VK_DOWN}, has(one, {308, 208, 528, 348})));
  EXPECT_TRUE(press({VK_MENU, VK_SHIFT, VK_RIGHT}, has(one, {308, 208, 536, 348})));
  ASSERT_TRUE(press({VK_CONTROL, VK_TAB}, [two] { return GetForegroundWindow() == two; }));
  EXPECT_TRUE(press({VK_MENU, VK_SHIFT, VK_UP}, has(two, {600, 200, 820, 332})));
  EXPECT_EQ(Saved(u"AA01").x, 308);
  EXPECT_EQ(Saved(u"AA02").height, 132);
}

TEST_F(NoteWindowTest, WhatCannotBeShownAsItIsIsLoggedAndKept) {
  JotletData picture = NoteRecord(u"AA01", {300, 200}, u"Picture");
  picture.isImage = 1;
  WriteData({picture, NoteRecord(u"AA02", {600, 200}, u"Large")}, kDataFileName, kSnapping);
  Write(folder_ + u"images\\AA01.png", "\x89PNG and no more");
  std::string large = "{\\rtf1 ";
  while (large.size() < 5u << 20) large += "a line of text\\par ";
  large += "}";
  Write(folder_ + u"rtf\\AA02.rtf", large);
  ASSERT_TRUE(StartProgram());
  EXPECT_NE(Log().find("The content of jotlet AA01: no readable picture"), std::string::npos);
  EXPECT_NE(Log().find("The content of jotlet AA02: too large"), std::string::npos);
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Large")));
  TypeText(u"x");
  EXPECT_EQ(Close(), 0u);
  EXPECT_TRUE(Read(folder_ + u"rtf\\AA02.rtf") == large);
  EXPECT_EQ(Read(folder_ + u"images\\AA01.png"), "\x89PNG and no more");
}

TEST_F(NoteWindowTest, LockedIsNotTypedIntoAndTitleAndKeysReachIt) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 200}, u"Locked")}, kSnapping));
  const HWND note = NoteTitled(u"Locked");
  ASSERT_TRUE(ClickIntoText(note));
  PressKeys({VK_CONTROL, 'A'});
  // What is selected can be no link: an address is asked for.
  PressKeys({VK_CONTROL, 'K'});
  ASSERT_TRUE(WaitUntil([&] { return !WindowsOfClass(L"#32770", program_->Id()).empty(); }));
  TypeText(u"example.com");
  PressKeys({VK_RETURN});
  EXPECT_TRUE(WaitUntil([&] { return TextOf(u"AA01") == u"AA01 (http://example.com)"; }))
      << ToUtf8(TextOf(u"AA01"));
  PressKeys({VK_CONTROL, VK_SHIFT, 'K'});
  EXPECT_TRUE(WaitUntil([&] { return Saved(u"AA01").readOnly; }));
  TypeText(u"x");
  PressKeys({VK_F2});
  const auto titleLine = [] {
    return FindWindowExW(FindWindowW(kJotletClass, nullptr), nullptr, L"Edit", nullptr);
  };
  ASSERT_TRUE(WaitUntil([&] { return titleLine() != nullptr; }));
  TypeText(u"Renamed");
  // The note's own commands leave the title alone.
  PressKeys({VK_CONTROL, 'A'});
  PressKeys({VK_RETURN});
  EXPECT_NE(NoteTitled(u"Renamed"), nullptr);
  PressKeys({VK_F2});
  ASSERT_TRUE(WaitUntil([&] { return titleLine() != nullptr; }));
  TypeText(u"Not this");
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(WaitUntil([&] { return titleLine() == nullptr; }));
  EXPECT_EQ(Saved(u"AA01").title, u"Renamed");
  EXPECT_EQ(TextOf(u"AA01"), u"AA01 (http://example.com)");
}

}  // namespace
}  // namespace jotlets
