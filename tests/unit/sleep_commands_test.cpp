#include "command/sleep_commands.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace jotlets {
namespace {

class TimeCommands : public ::testing::Test {
 protected:
  Text Reply(TextView command) { return program.Reply(command); }
  const JotletData& Asleep(TextView id) { return *std::as_const(program.sleeping).Find(id); }
  FakeProgram program;
};

TEST_F(TimeCommands, SleepAndWake) {
  program.Add(u"A");
  EXPECT_EQ(Reply(u"do sleep  a  101  90 "), u"000 OK slept");
  EXPECT_TRUE(program.notes.empty());
  EXPECT_TRUE(Asleep(u"A").sleep.nextWake == 1090 && Asleep(u"A").sleep.flags == 5 &&
              !Asleep(u"A").sleep.recurring);
  EXPECT_EQ(Reply(u"do sleep A 000 5"), u"995 not found") << "it is asleep already";
  program.works = false;
  EXPECT_EQ(Reply(u"do wake a"), u"997 unable to wake");
  program.works = true;
  EXPECT_EQ(Reply(u"do wake a"), u"000 OK woken");
  EXPECT_EQ(Reply(u"do wake a"), u"995 not found");
  program.Add(u"B");
  EXPECT_EQ(Reply(u"do sleep B"), u"000 OK slept") << "no digits are 0";
  EXPECT_EQ(Asleep(u"B").sleep.nextWake, 1000);
  EXPECT_EQ(program.journal,
            (std::vector<Text>{u"save", u"000 OK slept", u"995 not found", u"997 unable to wake", u"save",
                               u"000 OK woken", u"995 not found", u"save", u"000 OK slept"}));
}

TEST_F(TimeCommands, RecurTakesItsFieldsInTheirOrder) {
  for (const auto* id : {u"A", u"B", u"C"}) program.Add(id);
  EXPECT_EQ(Reply(u"do recurr A 010 2 9 30 17 2000000000"), u"000 OK slept");
  EXPECT_EQ(RuleOf(Asleep(u"A")), (WakeRule{2, 9, 30, 17}));
  EXPECT_TRUE(Asleep(u"A").sleep.recurring && Asleep(u"A").sleep.lastWake == 2000000000 &&
              Asleep(u"A").sleep.flags == 2);
  EXPECT_EQ(Asleep(u"A").sleep.nextWake, kNone) << "from now on";
  EXPECT_EQ(Reply(u"do recurr B 000 6 1 2 1 -1 1500"), u"000 OK slept");
  EXPECT_TRUE(Asleep(u"B").sleep.lastWake == kNone && Asleep(u"B").sleep.nextWake == 1500);
  EXPECT_EQ(Reply(u"do recurr C 000 2 9 30 0 -1"), u"997 unable to recur") << "on no day of the week";
  EXPECT_EQ(Reply(u"do recurr C"), u"997 unable to recur");
  EXPECT_EQ(Reply(u"do recurr D 000 1 9 30 0 -1"), u"995 not found");
  EXPECT_EQ(program.DesktopIds(), std::vector<Text>{u"C"});
  EXPECT_EQ(Reply(u"do recurr C 000 1 9 30 0"), u"000 OK slept");
  EXPECT_EQ(Asleep(u"C").sleep.lastWake, kNone);
}

TEST_F(TimeCommands, AlarmsSoundAndSleepersAreReadAndChanged) {
  program.Add(u"A");
  EXPECT_EQ(Reply(u"do alarmstart A"), u"000 OK alarmed");
  EXPECT_EQ(Reply(u"do alarmstop A"), u"000 OK quieted");
  EXPECT_EQ(program.journal, (std::vector<Text>{u"sounds A", u"save", u"000 OK alarmed", u"quiet A", u"save",
                                                u"000 OK quieted"}));
  EXPECT_EQ(Reply(u"do alarmstart B"), u"995 not found");
  EXPECT_EQ(Reply(u"get sleeping A position"), u"998 sleeping jotlet not found") << "it is on the desktop";
  Reply(u"do sleep A 000 1");
  EXPECT_EQ(Reply(u"set sleeping a position -5,7"), u"000 OK position set");
  EXPECT_EQ(Reply(u"get sleeping a POSITION"), u"001 -5,7");
  EXPECT_EQ(Reply(u"set sleeping a waketime 2000000000"), u"000 OK wake time set");
  const Text encoded = Reply(u"get sleeping a encoded");
  EXPECT_TRUE(encoded.starts_with(u"001 <X>-005<Y>0007")) << ToUtf8(encoded);
  EXPECT_NE(encoded.find(u"<SLEEPING>1<SLEEPNEXTWAKE>2000000000"), Text::npos);
  EXPECT_TRUE(encoded.ends_with(u"<RTF>{\\rtf1 a^Mb}"));
  EXPECT_EQ(Reply(u"get sleeping a title"), u"999 Not understood");
  EXPECT_EQ(Reply(u"set sleeping a title x"), u"999 Not understood");
  EXPECT_EQ(Reply(u"set sleeping b waketime 1"), u"998 sleeping jotlet not found");
}

}  // namespace
}  // namespace jotlets
