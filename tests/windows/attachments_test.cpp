// Notes attached to the windows of another program, which is a real one.
#include <windows.h>

#include "foreign_window.h"

#include <algorithm>

#include "base/win/wide.h"
#include "note/win/jotlet.h"
#include "res/resource.h"
#include "ui/screen.h"
#include "ui/window.h"
#include "window_test.h"

namespace jotlets {

ForeignProgram::ForeignProgram(const Text& title, const Text& className)
    : process_(ProgramFolder() + u"foreign_window.exe", u"\"" + title + u"\" " + className) {
  WaitUntil([&] {
    for (const HWND window : WindowsOfClass(Wide(className), process_.Id())) window_ = window;
    return window_ != nullptr && IsWindowVisible(window_);
  });
}

void ForeignProgram::Move(Point to) const {
  SetWindowPos(window_, nullptr, to.x, to.y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

void ForeignProgram::Rename(const Text& title) const { SetWindowTextW(window_, Wide(title)); }

bool ForeignProgram::Activate() const {
  const Rect bounds = BoundsOf(window_);
  return ClickUntil([this] { return GetForegroundWindow() == window_; },
                    {bounds.right - 20, bounds.bottom - 20});
}

namespace {

constexpr TextView kOptions = u"Debug=3\nSnap=0,10,2\nTakeBackups=0";

class AttachmentsTest : public WindowTest {
 protected:
  static JotletData Attached(TextView id, const Text& title, Point offset) {
    JotletData record = NoteRecord(id, {700, 500}, id);
    record.attachment.title = title;
    record.attachment.className = u"Foreign*";
    record.attachment.posType = 1;
    record.attachment.posX = offset.x;
    record.attachment.posY = offset.y;
    return record;
  }
  static HWND NoteOf(const Text& title) {
    const HWND note = FindWindowW(kJotletClass, Wide(title));
    return IsWindowVisible(note) ? note : nullptr;
  }
  static bool IsThere(const Text& title) {
    return WaitUntil([&] { return NoteOf(title) != nullptr; }, 8000);
  }
  static bool IsAway(const Text& title) {
    return WaitUntil([&] { return FindWindowW(kJotletClass, Wide(title)) == nullptr; }, 8000);
  }
  static bool ComesTo(const Text& title, Point place) {
    return WaitUntil([&] { return NoteOf(title) != nullptr && BoundsOf(NoteOf(title)).TopLeft() == place; },
                     8000);
  }
};

TEST_F(AttachmentsTest, ComeWithTheirWindowFollowItAndGoWithIt) {
  JotletData own = Attached(u"AA02", u"*pad", {});
  own.attachment.posType = 0;
  own.attachment.onlyVisible = true;
  ASSERT_TRUE(StartProgramWith({Attached(u"AA01", u"*Pad", {10, -40}), own}, kOptions));
  EXPECT_EQ(List(u"attached"), (std::vector<Text>{u"AA01", u"AA02"}));
  std::vector<Text> events;
  client_.OnEvent([&events](TextView line) { events.emplace_back(line); });
  Reply(u"do register");
  const ForeignProgram pad(u"notes.txt - Pad", u"ForeignPad");
  const Rect at = BoundsOf(pad.Window());
  EXPECT_TRUE(ComesTo(u"AA01", {at.left + 10, at.top - 40}));
  EXPECT_TRUE(ComesTo(u"AA02", {700, 500}));
  const auto happened = [&](TextView event) {
    return WaitUntil([&] { return std::find(events.begin(), events.end(), event) != events.end(); }, 3000);
  };
  EXPECT_TRUE(happened(u"500 created desktop jotlet attached AA01"));
  EXPECT_NE(Log().find("About to move attached AA01 to the Desktop"), std::string::npos);
  EXPECT_EQ(Value(u"get attached AA01 encoded", u"998"), u" jotlet not found");

  // It follows, and from where the user drags it.
  pad.Move({300, 300});
  EXPECT_TRUE(ComesTo(u"AA01", {310, 260}));
  ASSERT_TRUE(Drag(NoteOf(u"AA01"), {370, 269}, {50, 30}));
  pad.Move({400, 310});
  EXPECT_TRUE(ComesTo(u"AA01", {460, 300}));
  EXPECT_EQ(Saved(u"AA01").attachment.posX, 60);
  EXPECT_EQ(Saved(u"AA02").x, 700);

  // Minimised, it takes along who must see it; renamed, everybody.
  pad.Minimise();
  EXPECT_TRUE(IsAway(u"AA02"));
  EXPECT_NE(NoteOf(u"AA01"), nullptr);
  EXPECT_TRUE(happened(u"502 deleted desktop jotlet unattached AA02"));
  pad.Restore();
  EXPECT_TRUE(IsThere(u"AA02"));
  pad.Rename(u"Pad++ x");
  EXPECT_TRUE(IsAway(u"AA01") && IsAway(u"AA02"));
  EXPECT_NE(Log().find("About to move Desktop AA01 to the attached list"), std::string::npos);
  EXPECT_TRUE(Value(u"get attached AA01 encoded").starts_with(MakeJotletLine(Saved(u"AA01"), false)));
  pad.Rename(u"PAD");
  EXPECT_TRUE(ComesTo(u"AA01", {460, 300}));
  pad.Close();
  EXPECT_TRUE(IsAway(u"AA01"));
  // All of it is there after a restart.
  EXPECT_EQ(Close(), 0u);
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(List(u"attached").size(), 2u);
}

TEST_F(AttachmentsTest, OnlyWithFocusComeAndGoWithItAndNeverTakeIt) {
  JotletData record = Attached(u"AA01", u"one", {20, 30});
  record.attachment.onlyFocus = true;
  ASSERT_TRUE(StartProgramWith({record}, kOptions));
  const ForeignProgram one(u"one", u"ForeignOne");
  const ForeignProgram two(u"two", u"ForeignTwo");
  two.Move({600, 100});
  ASSERT_TRUE(WaitUntil([&] { return BoundsOf(two.Window()).left == 600; }));
  const Point place{BoundsOf(one.Window()).left + 20, BoundsOf(one.Window()).top + 30};
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(one.Activate());
    EXPECT_TRUE(ComesTo(u"AA01", place));
    EXPECT_EQ(GetForegroundWindow(), one.Window());
    ASSERT_TRUE(two.Activate());
    EXPECT_TRUE(IsAway(u"AA01"));
    EXPECT_EQ(GetForegroundWindow(), two.Window());
  }
  // Whoever writes into the note has not left its window.
  ASSERT_TRUE(one.Activate() && IsThere(u"AA01"));
  ASSERT_TRUE(ClickIntoText(NoteOf(u"AA01")));
  const auto passes = GetTickCount64() + 2500;
  EXPECT_FALSE(WaitUntil([&] { return NoteOf(u"AA01") == nullptr; }, 2500)) << GetTickCount64() - passes;
  TypeText(u"x");
  ASSERT_TRUE(two.Activate());
  EXPECT_TRUE(IsAway(u"AA01"));
  ASSERT_TRUE(one.Activate() && IsThere(u"AA01"));
  EXPECT_TRUE(TextOf(u"AA01").find(u'x') != Text::npos) << "what was typed has been kept";
}

TEST_F(AttachmentsTest, WindowsThatHangOrHaveStrangeTitlesAreLookedAtLikeOthers) {
  const Text longPattern(1000, u'x');
  ASSERT_TRUE(StartProgramWith({Attached(u"AA01", u"*hangs", {1, 2}), Attached(u"AA02", longPattern, {}),
                                Attached(u"AA03", u"", {3, 4})},
                               kOptions));
  const ForeignProgram hung(u"it hangs", u"ForeignOne");
  hung.Hang();
  EXPECT_TRUE(IsThere(u"AA01"));
  const ForeignProgram other(u"other", u"ForeignTwo");
  other.Rename(Text(100'000, u'x'));
  const ULONGLONG before = GetTickCount64();
  EXPECT_EQ(Reply(u"do ping"), u"000 OK pong");
  EXPECT_LT(GetTickCount64() - before, 2000u);
  other.Rename(u"");
  EXPECT_TRUE(ComesTo(u"AA03", {BoundsOf(other.Window()).left + 3, BoundsOf(other.Window()).top + 4}));
  EXPECT_EQ(List(u"attached"), std::vector<Text>{u"AA02"});
}

TEST_F(AttachmentsTest, AlarmsComeWithoutTheirWindowAndWaitUntilItIsInFront) {
  JotletData alone = Attached(u"AA01", u"nowhere", {});
  alone.alarm = 1;
  JotletData behind = Attached(u"AA02", u"one", {20, 30});
  behind.alarm = 1;
  const ForeignProgram one(u"one", u"ForeignOne");
  const ForeignProgram two(u"two", u"ForeignTwo");
  two.Move({600, 100});
  ASSERT_TRUE(WaitUntil([&] { return BoundsOf(two.Window()).left == 600; }));
  ASSERT_TRUE(two.Activate());
  WriteData({alone, behind}, kDataFileName, Text(kOptions).append(u"\nJiggleAlarm=0"));
  ASSERT_TRUE(StartProgram());
  const auto sounds = [this](const char* id) {
    return WaitUntil(
        [&] { return Log().find(std::string("Starting alarm for: ") + id) != std::string::npos; }, 8000);
  };
  EXPECT_TRUE(IsThere(u"AA01") && sounds("AA01"));
  EXPECT_TRUE(WaitUntil([] { return FindWindowW(kJotletClass, L"AA02") != nullptr; }));
  EXPECT_FALSE(WaitUntil([] { return NoteOf(u"AA02") != nullptr; }, 2500)) << "its window is behind";
  EXPECT_EQ(Log().find("Starting alarm for: AA02"), std::string::npos);
  ASSERT_TRUE(one.Activate());
  EXPECT_TRUE(sounds("AA02") && IsThere(u"AA02"));
  // Both stay as long as they sound.
  one.Close();
  EXPECT_FALSE(WaitUntil([] { return NoteOf(u"AA01") == nullptr || NoteOf(u"AA02") == nullptr; }, 2500));
  Reply(u"do alarmstop AA01");
  Reply(u"do alarmstop AA02");
  EXPECT_TRUE(IsAway(u"AA01") && IsAway(u"AA02"));
}

TEST_F(AttachmentsTest, AreAttachedByTheDialogAndUnattachedByTheMenu) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {500, 100}, u"AA01")}, kOptions));
  const ForeignProgram pad(u"letter.txt - Pad", u"ForeignPad");
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"AA01")));
  const auto menuEntry = [this](WORD key) {
    PressKeys({VK_CONTROL, VK_APPS});
    WaitUntil([this] { return MenuIsOpen(); });
    PressKeys({key});
  };
  menuEntry('W');
  const HWND dialog = DialogInFront();
  ASSERT_NE(dialog, nullptr);
  const HWND title = GetDlgItem(dialog, IDC_ATTACH_TITLE);
  const auto foundInList = [&] {
    PressKeys({VK_DOWN});
    return WaitUntil([&] { return TextOfWindow(title) == u"letter.txt - Pad"; }, 200);
  };
  EXPECT_TRUE(WaitUntil(foundInList));
  EXPECT_EQ(TextOfWindow(GetDlgItem(dialog, IDC_ATTACH_CLASS)), u"ForeignPad");
  const auto preview = [&](TextView pattern) {
    SendMessageW(title, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(Text(pattern))));
    return TextOfWindow(GetDlgItem(dialog, IDC_ATTACH_PREVIEW));
  };
  EXPECT_TRUE(preview(u"*paint").find(u": 0") != Text::npos);
  EXPECT_TRUE(preview(u"*PAD").find(u": 1") != Text::npos);
  PressKeys({VK_RETURN});
  EXPECT_TRUE(WaitUntil([&] { return !IsWindow(dialog); }));
  const JotletData saved = Saved(u"AA01");
  const Rect at = BoundsOf(pad.Window());
  EXPECT_TRUE(saved.attachment.title == u"*PAD" && saved.attachment.className == u"ForeignPad" &&
              saved.attachment.posType == 1);
  EXPECT_EQ((Point{saved.attachment.posX, saved.attachment.posY}), (Point{500 - at.left, 100 - at.top}));
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"AA01")));
  menuEntry('Q');
  EXPECT_TRUE(WaitUntil([&] { return !Saved(u"AA01").IsAttached(); }));
  pad.Close();
  EXPECT_FALSE(WaitUntil([&] { return NoteOf(u"AA01") == nullptr; }, 2500));
}

TEST_F(AttachmentsTest, AClickOnOneNoteBringsAllBeforeTheWindowsOfOthers) {
  ASSERT_TRUE(StartProgramWith(
      {NoteRecord(u"AA01", {500, 100}, u"AA01"), NoteRecord(u"AA02", {800, 400}, u"AA02")}, kOptions));
  const HWND other = NoteTitled(u"AA02");
  const ForeignProgram pad(u"letter.txt - Pad", u"ForeignPad");
  SetWindowPos(pad.Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  SetForegroundWindow(pad.Window());
  const auto isInFront = [&] {
    HWND window = GetTopWindow(nullptr);
    while (window != nullptr && window != other && window != pad.Window())
      window = GetWindow(window, GW_HWNDNEXT);
    return window == other;
  };
  ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == pad.Window() && !isInFront(); }));
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"AA01")));
  EXPECT_TRUE(WaitUntil(isInFront, 5000));
}

}  // namespace
}  // namespace jotlets
