#include "app/activity_log.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace jotlets {
namespace {

constexpr LocalTime kTime{2026, 11, 21, 9, 5, 7};

TEST(LogEntry, IsTimeAndTextOnOneLine) {
  const Text front = u"2026-11-21 09:05.07 ";
  EXPECT_EQ(LogEntry(kTime, u"a\r\nb\rc\nd"), front + u"a b c d\n");
  EXPECT_EQ(LogEntry(kTime, Text(1024, u'x')), front + Text(1024, u'x') + u"\n");
  EXPECT_EQ(LogEntry(kTime, Text(2000, u'x')), front + Text(1024, u'x') + u"...\n");
  EXPECT_EQ(LogEntry(kTime, u"Jotlets closed. Ran"), front + u"Jotlets closed. Ran\n\n");
  EXPECT_EQ(LogEntry(kTime, u"The Jotlets closed"), front + u"The Jotlets closed\n");
}

class ActivityLogFile : public testing::Test {
 protected:
  FakeFiles files;
  FakeClock clock;
  ActivityLog log{files, clock};
};

TEST_F(ActivityLogFile, HoldsWhatComesBeforeItIsOpened) {
  log.Write(1, u"first");
  log.Write(3, u"detail");
  EXPECT_TRUE(files.Paths().empty());
  clock.now.local.second = 8;
  log.Open(u"activity.log", 1);
  log.Write(1, u"\u00fc");
  EXPECT_EQ(files.Get(u"activity.log"), "2026-11-21 09:05.07 first\n2026-11-21 09:05.08 \xC3\xBC\n");
}

TEST_F(ActivityLogFile, HoldsWhatItsLevelLetsThroughOnceAndNotWithoutEnd) {
  for (int i = 0; i < 5000; ++i) log.Write(i == 0 ? 3 : 1, u"held");
  log.Open(u"activity.log", 1);
  const std::string written = files.Get(u"activity.log");
  EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 999);
  log.Open(u"activity.log", 3);
  EXPECT_EQ(files.Get(u"activity.log"), written);
  ActivityLog off(files, clock);
  off.Write(1, u"dropped");
  off.Open(u"off.log", 0);
  off.Open(u"off.log", 3);
  EXPECT_FALSE(files.Exists(u"off.log"));
}

TEST_F(ActivityLogFile, WritesUpToItsLevelBehindWhatIsThere) {
  files.Put(u"activity.log", "old\n");
  log.Open(u"activity.log", 0);
  log.Write(1, u"no");
  EXPECT_FALSE(log.Writes(1));
  EXPECT_EQ(files.Get(u"activity.log"), "old\n");
  log.Open(u"activity.log", 3);
  files.changesUntilFailure = 0;
  log.Write(1, u"lost");
  log.Write(3, u"yes");
  EXPECT_EQ(files.Get(u"activity.log"), "old\n2026-11-21 09:05.07 yes\n");
}

}  // namespace
}  // namespace jotlets
