#include "schedule/waking.h"

#include <gtest/gtest.h>

#include "desk/jotlet_lists.h"
#include "fakes.h"
#include "schedule/alarm.h"

namespace jotlets {
namespace {

// A desktop on which everything is written down in the order in which it happens.
class FakeDesktop final : public WakeHost {
 public:
  SleepingList sleeping;
  FakeClock clock;
  FakeLog log;
  Options options;
  Waking waking{sleeping, *this, clock, log, options};
  std::vector<JotletData> notes;
  std::vector<Text> journal;
  bool hasWindows = true, hasCopy = false, diskFull = false;
  int ids = 0, windowsTried = 0;
  std::function<void()> onWake;

  FakeDesktop() { waking.Enable(true); }
  std::int32_t Now() const { return static_cast<std::int32_t>(clock.now.utc); }
  JotletData Note(TextView id, std::int32_t fromNow, std::int32_t flags = 0) const {
    JotletData record;
    record.id = id, record.title = Text(u"about ").append(id);
    PutToSleep(record, Now() + fromNow, {});
    record.sleep.flags = flags;
    return record;
  }
  JotletData Source(TextView id, WakeRule rule, std::int32_t fromNow, std::int32_t end = kNone) const {
    JotletData record;
    record.id = id;
    MakeRecurring(record, rule, Now() + fromNow, end, {});
    return record;
  }
  std::vector<Text> TakeJournal() { return std::exchange(journal, {}); }
  std::vector<Text> AfterWaking() {
    waking.WakeSleeping();
    return TakeJournal();
  }

  bool Wake(JotletData record, TextView reason, const WakeFlags& flags) override {
    ++windowsTried;
    if (!hasWindows) return false;
    EXPECT_FALSE(record.sleep.asleep || record.sleep.recurring);
    journal.push_back(Text(reason) + u" " + record.id + (flags.alarm ? u" alarm" : u"") +
                      (flags.onTop ? u" top" : u""));
    notes.push_back(std::move(record));
    if (onWake) onWake();
    return true;
  }
  bool HasCopyOf(const JotletData&) override { return hasCopy; }
  Text NewJotletId() override { return u"COPY" + IntText(++ids); }
  FileStatus CopyContent(const JotletData& from, const JotletData& to) override {
    journal.push_back(from.id + u" to " + to.id);
    return diskFull ? FileStatus::Failed(u"disk full") : FileStatus();
  }
  void ForgetContent(const JotletData& record) override { journal.push_back(u"forget " + record.id); }
  void StartDueAlarms(std::int64_t now) override {
    for (JotletData& note : notes) {
      if (note.alarm == kNone || note.alarm >= now) continue;
      note.alarm = kNone;
      journal.push_back(u"sounds " + note.id);
    }
  }
  void PlayWakeSound() override { journal.push_back(u"sound"); }
  void StopSounds() override { journal.push_back(u"silence"); }
  void OnListsChanged() override { journal.push_back(u"changed"); }
  Text ShownTime(std::int32_t) override { return u"today"; }
};

using Lines = std::vector<Text>;
constexpr WakeRule kEveryHour{kEvery, 0, 1, kHours};

TEST(Waking, WhatIsDueComesInListOrderAndOnce) {
  FakeDesktop desktop;
  for (const auto& [id, fromNow, flags] :
       {std::tuple{u"A", 60, 0}, {u"B", 30, 1}, {u"C", 60, 7}, {u"D", 90, 0}})
    desktop.sleeping.push_back(desktop.Note(id, fromNow, flags));
  EXPECT_EQ(desktop.AfterWaking(), Lines{});
  // One that comes later is due earlier than all the others.
  desktop.sleeping.push_back(desktop.Note(u"E", 29));
  desktop.clock.Move(29);
  EXPECT_EQ(desktop.AfterWaking(), (Lines{u"waking E", u"changed"}));
  // The computer slept: everything since then, in order, with one sound.
  desktop.clock.Move(31);
  EXPECT_EQ(desktop.AfterWaking(),
            (Lines{u"waking A", u"waking B", u"waking C alarm top", u"sound", u"changed"}));
  EXPECT_EQ(IdsOf(desktop.sleeping), Lines{u"D"});
  EXPECT_EQ(desktop.AfterWaking(), Lines{});
  EXPECT_TRUE(desktop.log.Holds(u"Waking jotlet 'about B'. Jotlet next wake time: "));
  EXPECT_TRUE(desktop.log.Holds(u" (today), time now: " + IntText(desktop.Now())));
}

TEST(Waking, ARecurringNoteSendsCopies) {
  FakeDesktop desktop;
  desktop.sleeping.push_back(desktop.Source(u"S", kEveryHour, 0, desktop.Now() + 5 * 3600));
  EXPECT_EQ(desktop.AfterWaking(), (Lines{u"S to COPY1", u"recurring COPY1", u"changed"}));
  EXPECT_EQ(desktop.notes.back().fromRecurring, u"S");
  EXPECT_EQ(desktop.sleeping.Find(u"s")->sleep.nextWake, desktop.Now() + 3600);
  // Two missed: one copy.
  desktop.clock.Move(2 * 3600 + 100);
  EXPECT_EQ(desktop.AfterWaking(), (Lines{u"S to COPY2", u"recurring COPY2", u"changed"}));
  EXPECT_EQ(desktop.AfterWaking(), Lines{});
  // An untouched copy is there: no further one, unless that is not minded.
  desktop.hasCopy = true;
  desktop.clock.Move(3600);
  EXPECT_EQ(desktop.AfterWaking(), Lines{u"changed"});
  EXPECT_GT(desktop.sleeping.Find(u"S")->sleep.nextWake, desktop.Now());
  desktop.options.preventDuplicates = 0;
  desktop.diskFull = true;
  desktop.clock.Move(3600);
  EXPECT_EQ(desktop.AfterWaking(), (Lines{u"S to COPY3", u"recurring COPY3", u"changed"}));
  EXPECT_TRUE(desktop.log.Holds(u"Unable to copy the content of jotlet S: disk full"));
  // Past its end it goes at its next time, without a copy.
  desktop.clock.Move(3600);
  EXPECT_EQ(desktop.AfterWaking(), (Lines{u"forget S", u"changed"}));
  EXPECT_TRUE(desktop.sleeping.empty());
}

TEST(Waking, APlainNoteWithAnEndStaysAsleepAndChangesNothing) {
  FakeDesktop desktop;
  for (const std::int32_t end : {-1, 20}) {
    JotletData note = desktop.Note(u"A" + IntText(end), 10);
    note.sleep.lastWake = desktop.Now() + end;
    desktop.sleeping.push_back(note);
  }
  desktop.clock.Move(60);
  EXPECT_EQ(desktop.AfterWaking(), Lines{});
  EXPECT_EQ(desktop.sleeping.size(), 2u);
}

TEST(Waking, ForcedANoteComesItself) {
  FakeDesktop desktop;
  desktop.sleeping.push_back(desktop.Source(u"S", kEveryHour, 3600));
  desktop.sleeping.push_back(desktop.Note(u"A", 3600, 1));
  desktop.sleeping.push_back(desktop.Source(u"OVER", kEveryHour, 3600, desktop.Now() - 1));
  desktop.hasCopy = true;
  EXPECT_TRUE(desktop.waking.WakeSleeping(u"s"));
  EXPECT_TRUE(desktop.waking.WakeSleeping(u"A"));
  EXPECT_EQ(desktop.TakeJournal(), (Lines{u"waking S", u"changed", u"waking A", u"sound", u"changed"}));
  EXPECT_FALSE(desktop.waking.WakeSleeping(u"A"));
  EXPECT_FALSE(desktop.waking.WakeSleeping(u"OVER"));
  desktop.waking.Enable(false);
  desktop.sleeping.push_back(desktop.Note(u"B", 0));
  EXPECT_FALSE(desktop.waking.WakeSleeping(u"B"));
  EXPECT_EQ(desktop.AfterWaking(), Lines{}) << "while the program holds still";
  EXPECT_EQ(desktop.sleeping.size(), 2U);
}

TEST(Waking, RulesThatAreNoneAreToldOnceAndKept) {
  FakeDesktop desktop;
  desktop.sleeping.push_back(desktop.Source(u"WEEK", {kWeekly, 9, 0, 0}, -100));
  desktop.sleeping.push_back(desktop.Source(u"COUNT", {kEvery, 0, 0, kMinutes}, -100));
  desktop.sleeping.push_back(desktop.Source(u"FAR", {kEvery, 0, 2147483647, kWeeks}, -100));
  desktop.sleeping.push_back(desktop.Note(u"OLD", 0));
  desktop.sleeping.FindToChange(u"OLD")->sleep.nextWake = -2147483647;
  EXPECT_EQ(desktop.AfterWaking(), (Lines{u"FAR to COPY1", u"recurring COPY1", u"waking OLD", u"changed"}));
  for (int seconds = 0; seconds < 5; ++seconds) {
    desktop.clock.Move(1);
    EXPECT_EQ(desktop.AfterWaking(), Lines{});
  }
  desktop.clock.Move(kNeverAgain);
  EXPECT_EQ(desktop.AfterWaking(), Lines{}) << "beyond the range of the records";
  EXPECT_EQ(IdsOf(desktop.sleeping), (Lines{u"WEEK", u"COUNT", u"FAR"}));
  EXPECT_EQ(std::count_if(desktop.log.lines.begin(), desktop.log.lines.end(),
                          [](const Text& line) { return line.find(u"cannot be followed") != Text::npos; }),
            2);
}

TEST(Waking, WithoutAWindowANoteSleepsOn) {
  FakeDesktop desktop;
  desktop.hasWindows = false;
  desktop.sleeping.push_back(desktop.Note(u"A", -5, 1));
  desktop.sleeping.push_back(desktop.Source(u"S", kEveryHour, -5));
  EXPECT_EQ(desktop.AfterWaking(), Lines{});
  desktop.clock.Move(1);
  EXPECT_EQ(desktop.AfterWaking(), Lines{});
  EXPECT_EQ(desktop.windowsTried, 1) << "not every second";
  EXPECT_EQ(desktop.sleeping.size(), 2U);
  EXPECT_TRUE(desktop.sleeping.Find(u"A")->sleep.asleep);
  desktop.hasWindows = true;
  desktop.clock.Move(60);
  EXPECT_EQ(desktop.AfterWaking(),
            (Lines{u"S to COPY1", u"recurring COPY1", u"waking A", u"sound", u"changed"}));
}

TEST(Waking, ListenersMayChangeTheListMeanwhile) {
  FakeDesktop desktop;
  for (const auto* id : {u"A", u"B", u"C", u"D"}) desktop.sleeping.push_back(desktop.Note(id, -1));
  desktop.onWake = [&desktop] {
    desktop.onWake = nullptr;
    desktop.sleeping.Remove(u"B");
    desktop.sleeping.FindToChange(u"C")->sleep.nextWake += 100;
    desktop.waking.WakeSleeping(u"D");
  };
  EXPECT_EQ(desktop.AfterWaking(), (Lines{u"waking A", u"waking D", u"changed", u"changed"}));
  EXPECT_EQ(IdsOf(desktop.sleeping), Lines{u"C"});
}

TEST(Alarms, SoundInOrderAndWakeSleepers) {
  FakeDesktop desktop;
  JotletData open, asleep = desktop.Note(u"ASLEEP", 1000, 1), later = desktop.Note(u"LATER", 1000);
  open.id = u"OPEN", open.alarm = desktop.Now() + 10;
  asleep.alarm = desktop.Now() + 10;
  later.alarm = desktop.Now() + 11;
  desktop.notes = {open};
  desktop.sleeping.push_back(asleep);
  desktop.sleeping.push_back(later);
  desktop.clock.Move(10);
  desktop.waking.CheckAlarms();
  EXPECT_EQ(desktop.TakeJournal(), Lines{}) << "due when the time is past";
  desktop.clock.Move(1);
  desktop.waking.CheckAlarms();
  EXPECT_EQ(desktop.TakeJournal(),
            (Lines{u"sounds OPEN", u"waking ASLEEP", u"sound", u"changed", u"silence", u"sounds ASLEEP"}));
  // One that cannot be woken does not hold the program up.
  desktop.hasWindows = false;
  desktop.clock.Move(1);
  desktop.waking.CheckAlarms();
  EXPECT_EQ(IdsOf(desktop.sleeping), Lines{u"LATER"});
}

TEST(Alarms, AListenerThatPutsTheNoteBackToSleepDoesNotHoldTheProgramUp) {
  FakeDesktop desktop;
  JotletData asleep = desktop.Note(u"ASLEEP", 1000);
  asleep.alarm = desktop.Now() - 1;
  desktop.sleeping.push_back(asleep);
  desktop.onWake = [&desktop, &asleep, times = 0]() mutable {
    ASSERT_LT(++times, 3);
    desktop.notes.clear();
    desktop.sleeping.push_back(asleep);
  };
  desktop.waking.CheckAlarms();
  EXPECT_EQ(desktop.windowsTried, 1);
  desktop.waking.CheckAlarms();
  EXPECT_EQ(desktop.windowsTried, 2) << "the next second tries again";
}

TEST(Alarms, JiggleLopsidedlyThroughTheirPhases) {
  std::set<std::int32_t> seen;
  for (std::int32_t random = 0; random <= 32767; ++random) seen.insert(JiggleOffset(random));
  EXPECT_EQ(seen, (std::set<std::int32_t>{-2, -1, 0, 1, 2, 3, 4}));
  EXPECT_EQ(JiggleOffset(32765), 3);
  EXPECT_EQ(JiggleOffset(32766), 4);
  EXPECT_EQ(NextAlarmPhase(0), 1);
  EXPECT_EQ(NextAlarmPhase(24), 0);
  for (const Colour paper : {Colour{255, 255, 180}, Colour{128, 128, 128}, Colour{0, 0, 0}}) {
    EXPECT_NE(FlashColour(paper, 0), paper);
    EXPECT_EQ(FlashColour(paper, 24), paper);
    EXPECT_EQ(FlashColour(paper, kNotSounding), paper);
  }
}

TEST(Waking, ACopyIsUntouchedWhileNothingOfItChanged) {
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
