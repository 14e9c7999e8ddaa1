#include "schedule/waking.h"

#include <gtest/gtest.h>

#include "fake_desk.h"
#include "looks/ink.h"
#include "note/alarm.h"

namespace jotlets {
namespace {

class Waking : public testing::Test, public FakeDesk {
 protected:
  JotletData Note(TextView id, std::int32_t fromNow, std::int32_t flags = 0) const {
    JotletData record;
    record.id = id, record.title = Text(u"about ").append(id);
    record.x = record.y = 9;
    PutToSleep(record, Now() + fromNow, {});
    record.sleep.flags = flags;
    return record;
  }
  JotletData Source(TextView id, WakeRule rule, std::int32_t fromNow, std::int32_t end = kNone) const {
    JotletData record;
    record.id = id;
    record.x = record.y = 9;
    record.width = record.height = 200;
    MakeRecurring(record, rule, Now() + fromNow, end, {});
    return record;
  }
  /// Puts a note to sleep, with a content file.
  void Asleep(const JotletData& record) {
    files.Put(Text(kFolder) + ContentPath(record), "{\\rtf1 " + ToUtf8(record.id) + "}");
    DataFile file;
    file.jotlets.push_back({record, {}});
    desk.Load(std::move(file));
  }
  const RecordList& Sleeping() const { return Lists().sleeping; }
  // What came: windows that show are left out, copies are named for their source.
  std::vector<Text> Journal() {
    std::vector<Text> lines;
    for (Text line : TakeJournal()) {
      if (line.starts_with(u"show ")) continue;
      line = ReplaceAll(line, u"created desktop jotlet ", u"");
      for (const auto& open : Lists().desktop) {
        if (!open->fromRecurring.empty()) line = ReplaceAll(line, open->id, u"of " + open->fromRecurring);
      }
      lines.push_back(std::move(line));
    }
    return lines;
  }
  std::vector<Text> AfterWaking() {
    asleep.WakeSleeping();
    return Journal();
  }
};

using Lines = std::vector<Text>;
constexpr WakeRule kEveryHour{kEvery, 0, 1, kHours};

TEST_F(Waking, WhatIsDueComesInListOrderAndOnce) {
  for (const auto& [id, fromNow, flags] :
       {std::tuple{u"A", 60, 0}, {u"B", 30, 1}, {u"C", 60, 7}, {u"D", 90, 0}})
    Asleep(Note(id, fromNow, flags));
  EXPECT_EQ(AfterWaking(), Lines{});
  // One that comes later is due earlier than all the others.
  Asleep(Note(u"E", 29));
  clock.Move(29);
  EXPECT_EQ(AfterWaking(), Lines{u"waking E"});
  EXPECT_FALSE(Lists().desktop.Find(u"E")->sleep.asleep);
  // The computer slept: everything since then, in order, with one sound.
  files.Remove(u"D:\\rtf\\B.rtf");
  clock.Move(31);
  EXPECT_EQ(AfterWaking(), (Lines{u"waking A", u"waking B", u"top C", u"waking C", u"sounds C", u"sound"}));
  EXPECT_EQ(IdsOf(Sleeping()), Lines{u"D"});
  const int before = changes;
  EXPECT_EQ(AfterWaking(), Lines{});
  EXPECT_EQ(changes, before);
  EXPECT_TRUE(log.Holds(u"Waking jotlet 'about B'. Jotlet next wake time: "));
  EXPECT_TRUE(log.Holds(u" (today), time now: " + IntText(Now())));
  EXPECT_TRUE(log.Holds(u"Created (waking) B"));
  EXPECT_TRUE(log.Holds(u"The content of jotlet B is gone; it wakes empty"));
}

TEST_F(Waking, ARecurringNoteSendsCopies) {
  Asleep(Source(u"S", kEveryHour, 0, Now() + 5 * 3600));
  EXPECT_EQ(AfterWaking(), Lines{u"recurring of S"});
  const Text copy = (*Lists().desktop.begin())->id;
  EXPECT_EQ(files.Get(u"D:\\rtf\\" + copy + u".rtf"), "{\\rtf1 S}");
  EXPECT_EQ(Sleeping().Find(u"s")->sleep.nextWake, Now() + 3600);
  // Two missed, and an untouched copy is there: no further one, unless that is not minded.
  clock.Move(2 * 3600 + 100);
  EXPECT_EQ(AfterWaking(), Lines{});
  EXPECT_GT(Sleeping().Find(u"S")->sleep.nextWake, Now());
  windows.Type(copy, u"{\\rtf1 touched}");
  clock.Move(3600);
  EXPECT_EQ(AfterWaking(), Lines{u"recurring of S"});
  EXPECT_EQ(AfterWaking(), Lines{});
  options.preventDuplicates = 0;
  files.Remove(u"D:\\rtf\\S.rtf");
  clock.Move(3600);
  EXPECT_EQ(AfterWaking(), Lines{u"recurring of S"});
  EXPECT_TRUE(log.Holds(u"Unable to copy the content of jotlet S: "));
  // Past its end it goes at its next time, without a copy.
  clock.Move(3600);
  EXPECT_EQ(AfterWaking(), Lines{});
  EXPECT_TRUE(Sleeping().empty());
}

TEST_F(Waking, APlainNoteWithAnEndStaysAsleepAndChangesNothing) {
  for (const std::int32_t end : {-1, 20}) {
    JotletData note = Note(u"A" + IntText(end), 10);
    note.sleep.lastWake = Now() + end;
    Asleep(note);
  }
  const int before = changes;
  clock.Move(60);
  EXPECT_EQ(AfterWaking(), Lines{});
  EXPECT_TRUE(Sleeping().size() == 2 && changes == before);
}

TEST_F(Waking, ForcedANoteComesItself) {
  Asleep(Source(u"S", kEveryHour, 3600));
  Asleep(Note(u"A", 3600, 1));
  Asleep(Source(u"OVER", kEveryHour, 3600, Now() - 1));
  EXPECT_TRUE(asleep.WakeSleeping(u"s"));
  EXPECT_TRUE(asleep.WakeSleeping(u"A"));
  EXPECT_EQ(Journal(), (Lines{u"waking S", u"waking A", u"sound"}));
  EXPECT_FALSE(asleep.WakeSleeping(u"A"));
  EXPECT_FALSE(asleep.WakeSleeping(u"OVER"));
  asleep.Enable(false);
  Asleep(Note(u"B", 0));
  EXPECT_FALSE(asleep.WakeSleeping(u"B"));
  EXPECT_EQ(AfterWaking(), Lines{}) << "while the program holds still";
  EXPECT_EQ(Sleeping().size(), 2U);
}

TEST_F(Waking, RulesThatAreNoneAreToldOnceAndKept) {
  Asleep(Source(u"WEEK", {kWeekly, 9, 0, 0}, -100));
  Asleep(Source(u"COUNT", {kEvery, 0, 0, kMinutes}, -100));
  Asleep(Source(u"FAR", {kEvery, 0, 2147483647, kWeeks}, -100));
  Asleep(Note(u"OLD", 0));
  desk.ChangeSleeping(u"OLD", [](JotletData& record) { record.sleep.nextWake = -2147483647; });
  EXPECT_EQ(AfterWaking(), (Lines{u"recurring of FAR", u"waking OLD"}));
  for (int seconds = 0; seconds < 5; ++seconds) {
    clock.Move(1);
    EXPECT_EQ(AfterWaking(), Lines{});
  }
  clock.Move(kNeverAgain);
  EXPECT_EQ(AfterWaking(), Lines{}) << "beyond the range of the records";
  EXPECT_EQ(IdsOf(Sleeping()), (Lines{u"WEEK", u"COUNT", u"FAR"}));
  EXPECT_EQ(std::count_if(log.lines.begin(), log.lines.end(),
                          [](const Text& line) { return line.find(u"cannot be followed") != Text::npos; }),
            2);
}

TEST_F(Waking, WithoutAWindowANoteSleepsOn) {
  windows.hasWindows = false;
  Asleep(Note(u"A", -5, 1));
  Asleep(Source(u"S", kEveryHour, -5));
  EXPECT_EQ(AfterWaking(), Lines{});
  clock.Move(1);
  EXPECT_EQ(AfterWaking(), Lines{});
  EXPECT_EQ(windows.tried, 1) << "not every second";
  EXPECT_TRUE(Sleeping().size() == 2 && Sleeping().Find(u"A")->sleep.asleep);
  windows.hasWindows = true;
  clock.Move(60);
  EXPECT_EQ(AfterWaking(), (Lines{u"waking A", u"recurring of S", u"sound"}));
}

TEST_F(Waking, ListenersMayChangeTheListMeanwhile) {
  for (const auto* id : {u"A", u"B", u"C", u"D"}) Asleep(Note(id, -1));
  onEvent = [this](const NoteEvent&) {
    onEvent = nullptr;
    desk.CloseWaiting({u"B"});
    desk.ChangeSleeping(u"C", [](JotletData& record) { record.sleep.nextWake += 100; });
    asleep.WakeSleeping(u"D");
  };
  EXPECT_EQ(AfterWaking(), (Lines{u"waking A", u"waking D"}));
  EXPECT_EQ(IdsOf(Sleeping()), Lines{u"C"});
}

TEST_F(Waking, AlarmsSoundInOrderAndWakeSleepers) {
  JotletData open = Note(u"OPEN", 0), dozing = Note(u"ASLEEP", 1000, 1), later = Note(u"LATER", 1000);
  open.sleep = {};
  open.alarm = dozing.alarm = Now() + 10;
  later.alarm = Now() + 11;
  for (const JotletData& record : {open, dozing, later}) Asleep(record);
  desk.Show(u"OPEN", Showing::kQuietly);
  clock.Move(10);
  asleep.CheckAlarms();
  EXPECT_EQ(Journal(), Lines{}) << "due when the time is past";
  clock.Move(1);
  asleep.CheckAlarms();
  EXPECT_EQ(Journal(), (Lines{u"sounds OPEN", u"waking ASLEEP", u"sound", u"silence", u"sounds ASLEEP"}));
  // One that cannot be woken does not hold the program up.
  windows.hasWindows = false;
  clock.Move(1);
  asleep.CheckAlarms();
  EXPECT_EQ(IdsOf(Sleeping()), Lines{u"LATER"});
}

TEST_F(Waking, AListenerThatPutsTheNoteBackToSleepDoesNotHoldTheProgramUp) {
  JotletData dozing = Note(u"ASLEEP", 1000);
  dozing.alarm = Now() - 1;
  Asleep(dozing);
  onEvent = [this, times = 0](const NoteEvent& event) mutable {
    if (event.reason != Reason::kWaking) return;
    ASSERT_LT(++times, 3);
    desk.Sleep(u"ASLEEP", Now() + 1000, {});
  };
  asleep.CheckAlarms();
  EXPECT_EQ(windows.tried, 1);
  asleep.CheckAlarms();
  EXPECT_EQ(windows.tried, 2) << "the next second tries again";
}

TEST(Alarms, JiggleLopsidedlyThroughTheirPhases) {
  std::set<std::int32_t> seen;
  for (std::int32_t random = 0; random <= 32767; ++random) seen.insert(JiggleOffset(random));
  EXPECT_EQ(seen, (std::set<std::int32_t>{-2, -1, 0, 1, 2, 3, 4}));
  EXPECT_EQ(JiggleOffset(32765), 3);
  EXPECT_EQ(JiggleOffset(32766), 4);
  EXPECT_EQ(NextAlarmPhase(0), 1);
  EXPECT_EQ(NextAlarmPhase(24), 0);
  for (const Colour paper :
       {Colour{255, 255, 180}, Colour{128, 128, 128}, Colour{0, 0, 0}, Colour{255, 193, 7},
        Colour{255, 255, 255}, Colour{0, 64, 128}, Colour{60, 60, 20}}) {
    EXPECT_GE(Contrast(InkOn(paper), FlashColour(paper, 0)), kTextContrast);
    EXPECT_NE(FlashColour(paper, 0), paper);
    EXPECT_EQ(FlashColour(paper, 24), paper);
    EXPECT_EQ(FlashColour(paper, kNotSounding), paper);
  }
}

TEST(WakingRules, ACopyIsUntouchedWhileNothingOfItChanged) {
  JotletData source;
  source.x = 10, source.y = 20, source.title = u"t", source.sleep.flags = 4;
  JotletData copy = source;
  EXPECT_FALSE(IsUntouchedCopy(copy, source)) << "it was put on top";
  copy.onTop = true;
  EXPECT_TRUE(IsUntouchedCopy(copy, source));
  for (void (*touch)(JotletData&) :
       {+[](JotletData& r) { r.x = 11; },
        +[](JotletData& r) {
          r.colour = {1, 2, 3};
        },
        +[](JotletData& r) { r.rolled = true; }, +[](JotletData& r) { r.height = 9; },
        +[](JotletData& r) { r.title = u"T"; }, +[](JotletData& r) { r.attachment.className = u"C"; },
        +[](JotletData& r) { r.user2 = true; }}) {
    JotletData touched = copy;
    touch(touched);
    EXPECT_FALSE(IsUntouchedCopy(touched, source));
  }
}

}  // namespace
}  // namespace jotlets
