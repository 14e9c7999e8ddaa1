// An evening of notes that sleep, wake, sound, are snoozed and come again, on the real program.
#include <windows.h>

#include <cstdlib>

#include "base/win/system_clock.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "desktop.h"
#include "note/win/jotlet.h"
#include "res/resource.h"
#include "schedule/sleep_times.h"
#include "window_test.h"

namespace jotlets {
namespace {

constexpr TextView kLoud =
    u"Debug=3\nTakeBackups=0\nSoundAlarm=1\nAlarmAlarm=BEEP\nAlarm=C:\\no such file.wav,0\nSnoozeMinutes=7";

class TimeTest : public WindowTest {
 protected:
  static std::int32_t Now() { return RecordTime(SystemClock().Now().utc); }
  static bool IsOnTop(HWND note) { return (GetWindowLongPtrW(note, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }
  static bool Jiggles(HWND note, const Rect& place) {
    return WaitUntil([&] { return BoundsOf(note) != place; }, 3000);
  }
  static bool Settles(HWND note, const Rect& place) {
    return WaitUntil([&] { return BoundsOf(note) == place; }, 5000);
  }
  bool LogHolds(std::string_view part) const { return Log().find(part) != std::string::npos; }
};

TEST_F(TimeTest, ANoteSleepsWakesSoundsAndIsSnoozedBackToItsPlace) {
  ASSERT_TRUE(StartProgramWith(
      {NoteRecord(u"AA01", {300, 200}, u"Dinner"), NoteRecord(u"AA02", {700, 400}, u"Other")}, kLoud));
  std::vector<Text> events;
  client_.OnEvent([&events](TextView line) {
    if (line.starts_with(u"50") && line[2] < u'3') events.emplace_back(line);
  });
  Reply(u"do register");
  const HWND other = NoteTitled(u"Other");
  ASSERT_TRUE(ClickIntoText(other));
  ASSERT_EQ(Reply(u"do sleep AA01 111 1"), u"000 OK slept");
  EXPECT_EQ(List(u"desktop"), std::vector<Text>{u"AA02"});

  const HWND note = NoteTitled(u"Dinner");
  const Rect place{300, 200, 520, 340};
  EXPECT_TRUE(Jiggles(note, place));
  for (int look = 0; look < 50; ++look) {
    const Rect now = BoundsOf(note);
    ASSERT_TRUE(now.left >= 298 && now.left <= 304 && now.top >= 198 && now.top <= 204 && now.Width() == 220);
  }
  EXPECT_TRUE(IsOnTop(note));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == other; })) << "the focus is given back";
  EXPECT_EQ(Reply(u"get desktop AA01 position"), u"001 300,200") << "jiggling is no moving";
  EXPECT_EQ(events, (std::vector<Text>{u"502 deleted desktop jotlet slept AA01",
                                       u"500 created desktop jotlet waking AA01"}));
  for (const char* line :
       {"Waking jotlet 'Dinner'. Jotlet next wake time: ", "Playing sound: C:\\no such file.wav",
        "Starting alarm for: Dinner", "Sounding PC speaker"})
    EXPECT_TRUE(WaitUntil([&] { return LogHolds(line); }, 3000)) << line;

  // Its menu offers a snooze; it is quiet meanwhile.
  ASSERT_TRUE(ClickUntil([this] { return MenuIsOpen(); }, {place.left + 100, place.top + 80}, true));
  EXPECT_TRUE(Settles(note, place));
  PressKeys({VK_DOWN});
  PressKeys({VK_RETURN});
  EXPECT_TRUE(WaitUntil([this] { return !MenuIsOpen(); }));
  EXPECT_TRUE(WaitUntil([&] { return std::abs(Saved(u"AA01").alarm - Now() - 7 * 60) < 60; }));
  EXPECT_TRUE(LogHolds("Stopping alarm for: Dinner"));

  // Clicks and commands quieten it too. What was not on top before is not afterwards.
  ASSERT_EQ(Reply(u"do alarmstart AA02"), u"000 OK alarmed");
  EXPECT_TRUE(Jiggles(other, {700, 400, 920, 540}) && IsOnTop(other));
  EXPECT_TRUE(ClickUntil(
      [&] {
        return BoundsOf(other) == Rect{700, 400, 920, 540} && !IsOnTop(other);
      },
      {800, 480}));
  Reply(u"do alarmstart AA02");
  EXPECT_TRUE(Jiggles(other, {700, 400, 920, 540}));
  EXPECT_EQ(Reply(u"do alarmstop AA02"), u"000 OK quieted");
  EXPECT_EQ(BoundsOf(other), (Rect{700, 400, 920, 540}));
  Reply(u"do alarmstart AA02");
  EXPECT_TRUE(Jiggles(other, {700, 400, 920, 540}));
  EXPECT_EQ(Close(), 0u);
  for (const auto& line : ParseData().jotlets)
    EXPECT_TRUE(line.record.id != u"AA02" ||
                (line.record.x == 700 && line.record.y == 400 && !line.record.onTop));
}

TEST_F(TimeTest, AnAlarmIsSetForAllThatAreSelectedAndHiddenOnesWait) {
  ASSERT_TRUE(StartProgramWith(
      {NoteRecord(u"AA01", {100, 100}, u"One"), NoteRecord(u"AA02", {400, 100}, u"Two")}, kLoud));
  Select({u"One", u"Two"});
  PressKeys({VK_CONTROL, VK_SHIFT, 'A'});
  const HWND dialog = DialogInFront();
  ASSERT_EQ(TextOfWindow(dialog), u"Set Alarm");
  PressKeys({VK_TAB});
  TypeText(u"2");
  PressKeys({VK_MENU, 'S'});
  PressKeys({VK_RETURN});
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(dialog); }));
  EXPECT_EQ(List(u"sleeping"), (std::vector<Text>{u"AA02", u"AA01"})) << "until the alarm sounds";
  for (const TextView id : {u"AA01", u"AA02"}) {
    const JotletData record = Saved(id);
    EXPECT_LT(std::abs(record.alarm - Now() - 7200), 60);
    EXPECT_EQ(record.sleep.nextWake, record.alarm + 61);
  }
  EXPECT_TRUE(LogHolds("Setting alarm type 0 for One to "));
  // One that is hidden sounds when it is shown.
  EXPECT_EQ(Reply(u"do wake AA02"), u"000 OK woken");
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Two")));
  PressKeys({VK_CONTROL, 'H'});
  const HWND two = FindWindowW(kJotletClass, L"Two");
  ASSERT_TRUE(WaitUntil([&] { return !IsWindowVisible(two); }));
  EXPECT_EQ(Reply(u"do alarmstart AA02"), u"000 OK alarmed");
  EXPECT_FALSE(LogHolds("Starting alarm for: Two"));
  for (int press = 0; press < 2; ++press) PostMessageW(MainWindow(), WM_COMMAND, ID_SHOW_OR_HIDE, 0);
  EXPECT_TRUE(WaitUntil([&] { return LogHolds("Starting alarm for: Two"); }));
}

TEST_F(TimeTest, KeysQuietenASoundingNoteOrLetItSnoozeAndTheMenuPutsItAway) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {300, 200}, u"One")}, kLoud));
  const Rect place = BoundsOf(NoteTitled(u"One"));
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"One")));
  ASSERT_EQ(Reply(u"do alarmstart AA01"), u"000 OK alarmed");
  EXPECT_TRUE(Jiggles(NoteTitled(u"One"), place));
  PressKeys({VK_SHIFT, VK_ESCAPE});
  EXPECT_TRUE(Settles(NoteTitled(u"One"), place));
  EXPECT_LT(std::abs(Saved(u"AA01").alarm - Now() - 7 * 60), 60);
  ASSERT_EQ(Reply(u"do alarmstart AA01"), u"000 OK alarmed");
  EXPECT_TRUE(Jiggles(NoteTitled(u"One"), place));
  PressKeys({VK_ESCAPE});
  EXPECT_TRUE(Settles(NoteTitled(u"One"), place));
  EXPECT_EQ(Saved(u"AA01").alarm, kNone);
  ASSERT_EQ(Reply(u"do alarmstart AA01"), u"000 OK alarmed");
  EXPECT_TRUE(Jiggles(NoteTitled(u"One"), place));
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  PressKeys({'H'});
  EXPECT_TRUE(WaitUntil([&] { return std::abs(Saved(u"AA01").alarm - Now() - 60 * 60) < 60; }));
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  for (const WORD key : {WORD{'R'}, WORD{'2'}}) PressKeys({key});
  ASSERT_TRUE(WaitUntil([this] { return List(u"desktop").empty(); }));
  const JotletData asleep = Saved(u"AA01");
  EXPECT_LT(std::abs(asleep.sleep.nextWake - Now() - 20 * 60), 60);
  EXPECT_TRUE(FlagsOf(asleep).alarm);
}

TEST_F(TimeTest, ARecurrenceIsSetByKeysAndEnterTakesNoneThatCannotBe) {
  ASSERT_TRUE(StartProgramWith({NoteRecord(u"AA01", {100, 100}, u"Stand-up")}, kLoud));
  ASSERT_TRUE(ClickIntoText(NoteTitled(u"Stand-up")));
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([this] { return MenuIsOpen(); }));
  for (int press = 0; press < 2; ++press) PressKeys({'R'});
  const HWND dialog = DialogInFront();
  ASSERT_EQ(TextOfWindow(dialog), u"Set Recurrence");
  PressKeys({VK_MENU, 'E'});
  PressKeys({VK_TAB});
  TypeText(u"0");
  ASSERT_TRUE(WaitUntil([&] { return !IsWindowEnabled(GetDlgItem(dialog, IDOK)); }));
  PressKeys({VK_RETURN});
  PressKeys({VK_MENU, 'W'});
  ASSERT_TRUE(WaitUntil([&] { return IsWindowVisible(GetDlgItem(dialog, IDC_REC_WORKING_DAYS)); }));
  EXPECT_TRUE(WaitUntil([&] { return !IsWindowVisible(GetDlgItem(dialog, IDC_REC_COUNT)); }))
      << "one row at a time";
  for (int press = 0; press < 3; ++press) PressKeys({VK_TAB});
  PressKeys({VK_SPACE});
  EXPECT_TRUE(WaitUntil([&] { return SendDlgItemMessageW(dialog, IDC_REC_NEXT, LB_GETCOUNT, 0, 0) == 5; }));
  PressKeys({VK_TAB});  // Enter would press the button once more
  PressKeys({VK_RETURN});
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(dialog); }));
  const JotletData source = Saved(u"AA01");
  EXPECT_EQ(source.sleep.type, 2);
  EXPECT_EQ(source.sleep.day, 31) << "Monday to Friday";
}

TEST_F(TimeTest, ASourceSendsACopyAndWhatFellDueMeanwhileComesAtTheNextStart) {
  ASSERT_TRUE(StartProgramWith(
      {NoteRecord(u"AA01", {100, 100}, u"Tea"), NoteRecord(u"AA02", {700, 100}, u"Late")}, kLoud));
  const std::int32_t start = Now() + 2;
  ASSERT_EQ(Reply(u"do recurr AA01 000 6 0 1 1 -1 " + IntText(start)), u"000 OK slept");
  Reply(u"do sleep AA02 000 3000");
  ASSERT_TRUE(WaitUntil([&] { return List(u"desktop").size() == 1; }));
  const Text copy = List(u"desktop").front();
  EXPECT_EQ(Saved(copy).fromRecurring, u"AA01");
  EXPECT_TRUE(TextOf(copy).starts_with(u"AA01"));
  EXPECT_EQ(Saved(u"AA01").sleep.nextWake, start + 3600);
  Reply(u"set desktop " + copy + u" position 5,5");
  Reply(u"set sleeping AA01 waketime " + IntText(Now() - 5 * 3600));
  Reply(u"set sleeping AA02 waketime " + IntText(Now()));
  program_->Kill();
  ASSERT_TRUE(StartProgram());
  EXPECT_NE(NoteTitled(u"Late"), nullptr);
  EXPECT_TRUE(WaitUntil([&] { return Saved(u"AA01").sleep.nextWake > Now(); }));
  EXPECT_EQ(List(u"desktop").size(), 3u) << "the copies, one for all that were missed";
}

}  // namespace
}  // namespace jotlets
