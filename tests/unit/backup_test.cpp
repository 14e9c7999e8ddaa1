#include "backup/backup.h"

#include <gtest/gtest.h>

#include "backup/backup_keeper.h"
#include "backup/restore_job.h"
#include "fakes.h"

namespace jotlets {
namespace {

constexpr char kData[] = "[Jotlets]\n<ID>A<RTF>{\\rtf1 a}\n<ID>B<RTF>{\\rtf1 b}\n";
constexpr TextView kBackups = u"D:\\backups\\";
constexpr std::int64_t kHour = 3600;

class BackupFolder : public testing::Test {
 protected:
  BackupFolder() {
    files.Put(u"D:\\jotlets.ini", kData);
    files.Put(u"D:\\options.ini", "[Options]\n");
    files.Put(u"D:\\rtf\\A.rtf", "a");
    files.Put(u"D:\\rtf\\B.rtf", "bb");
    files.Put(u"D:\\images\\C.png", "ccc");
  }

  FakeFiles files;
  Latin1 ansi;
  FakeLog log;
  FakeClock clock;
  Options options;

  void PutBackup(TextView name, std::string data = kData) {
    files.Put(Text(kBackups).append(name).append(u"\\jotlets.ini"), std::move(data));
  }
  BackupJob Job(TextView name = u"202611210905") {
    return {files, ansi, u"D:\\", Text(kBackups).append(name)};
  }
  void Prune(std::int32_t keep, TextView justTaken) {
    PruneJob job(files, ansi, log, kBackups, keep, justTaken);
    while (job.Step(1) == Job::State::kRunning) {
    }
  }
  RestoreJob Restoring(TextView name) { return {files, ansi, u"D:\\", kBackups, name, u"202612240000"}; }
  Text Folders() const { return Joined(files.ListFolders(kBackups)); }
  Text Backups() const { return Joined(ListBackups(files, ansi, kBackups)); }
  static Text Joined(const std::vector<Text>& names) {
    Text joined;
    for (const Text& name : names) joined.append(name).push_back(u' ');
    return joined;
  }
};

TEST(BackupTime, IsTheTwelveDigitsOfARealMinute) {
  const LocalTime time = BackupTime(u"202611212359").value();
  EXPECT_EQ(MinuteStamp(time), u"202611212359");
  EXPECT_TRUE(BackupTime(u"202612310000"));
  for (const TextView no : {u"", u"old", u"20261121235", u"2026112123590", u"202611212400", u"202611212360",
                            u"202600212359", u"202613212359", u"202611002359", u"202611322359",
                            u"20261121 905", u"-02611210905", u"202611210905.partial"}) {
    EXPECT_FALSE(BackupTime(no)) << ToUtf8(no);
  }
}

TEST(BackupDue, StrictlyAfterThePeriod) {
  constexpr std::int64_t last = 1'795'000'000;
  EXPECT_FALSE(IsBackupDue(last + 24 * kHour, last, 24));
  EXPECT_TRUE(IsBackupDue(last + 24 * kHour + 1, last, 24));
  EXPECT_TRUE(IsBackupDue(last, {}, 24));
  EXPECT_FALSE(IsBackupDue(last, last, 24));
  EXPECT_FALSE(IsBackupDue(last - kHour, last, 24)) << "the second backup of a minute is named ahead";
  EXPECT_TRUE(IsBackupDue(last - kHour - 1, last, 24)) << "the clock was set back";
  EXPECT_FALSE(IsBackupDue(last + kHour, last, 0));
  EXPECT_FALSE(IsBackupDue(last + 1, last, -5));
  EXPECT_FALSE(IsBackupDue(last + 1, last, 0x7FFFFFFF));
}

TEST_F(BackupFolder, GivesTheSecondOfAMinuteTheNextName) {
  EXPECT_EQ(FreeBackupName(files, kBackups, {2028, 2, 28, 23, 59, 59}), u"202802282359");
  for (const TextView taken : {u"202802282359", u"202611302359", u"202612312359", u"202702282359"})
    PutBackup(taken);
  EXPECT_EQ(FreeBackupName(files, kBackups, {2028, 2, 28, 23, 59, 59}), u"202802290000");
  EXPECT_EQ(FreeBackupName(files, kBackups, {2026, 11, 30, 23, 59, 0}), u"202612010000");
  EXPECT_EQ(FreeBackupName(files, kBackups, {2026, 12, 31, 23, 59, 0}), u"202701010000");
  EXPECT_EQ(FreeBackupName(files, kBackups, {2027, 2, 28, 23, 59, 0}), u"202703010000");
}

TEST_F(BackupFolder, CountsOnlyWhatCanBeReadWhole) {
  for (const TextView name : {u"202611200000", u"202611190000", u"old", u"202611180000.partial"})
    PutBackup(name);
  PutBackup(u"202611220000", "[Jotlets");
  PutBackup(u"202611230000", std::string("[Jotlets]\n\0\0", 12));
  PutBackup(u"202611240000", "[Jotlets]\n<ID>A");
  PutBackup(u"202611250000");
  files.unreadable.insert(u"d:\\backups\\202611250000\\jotlets.ini");
  files.MakeFolder(u"D:\\backups\\202611260000");
  EXPECT_EQ(Backups(), u"202611190000 202611200000 ");
  files.Put(u"D:\\backups\\202611200000\\rtf\\A.rtf", "12345");
  const Backup backup = DescribeBackup(files, ansi, kBackups, u"202611200000");
  EXPECT_EQ(backup.notes, 2u);
  EXPECT_EQ(backup.bytes, sizeof kData - 1 + 5);
  EXPECT_EQ(backup.taken.day, 20);
}

TEST_F(BackupFolder, GrowsUnderAnotherNameUntilItIsWhole) {
  files.Put(u"D:\\backups\\202611210905.partial\\rtf\\left.rtf", "of a killed program");
  BackupJob job = Job();
  for (int file = 0; file < 4; ++file) {
    EXPECT_EQ(job.Step(1), Job::State::kRunning);
    EXPECT_EQ(Folders(), u"202611210905.partial ");
    EXPECT_EQ(Backups(), u"");
  }
  EXPECT_EQ(job.Step(1), Job::State::kDone);
  EXPECT_EQ(Folders(), u"202611210905 ");
  for (const TextView path :
       {u"jotlets.ini", u"options.ini", u"rtf\\A.rtf", u"rtf\\B.rtf", u"images\\C.png"}) {
    EXPECT_EQ(files.Get(Text(kBackups).append(u"202611210905\\").append(path)),
              files.Get(Text(u"D:\\").append(path)));
  }
  EXPECT_FALSE(files.Exists(u"D:\\backups\\202611210905\\rtf\\left.rtf"));
}

TEST_F(BackupFolder, LeavesNothingAndHarmsNothingWhenAnyStepFails) {
  int failures = 0;
  for (int step = 0;; ++step) {
    PutBackup(u"202611200905");
    files.changesUntilFailure = step;
    BackupJob job = Job();
    const Job::State state = job.Finish();
    files.changesUntilFailure = -1;
    if (state == Job::State::kDone) break;
    ++failures;
    EXPECT_EQ(Folders(), u"202611200905 ") << step;
    EXPECT_NE(job.Reason(), u"");
    EXPECT_EQ(job.Step(1), Job::State::kFailed);
  }
  EXPECT_EQ(failures, 10);  // four folders, five files, the rename
}

TEST_F(BackupFolder, FollowsNotesThatChangeOrGoMeanwhile) {
  files.onCopy = [this](TextView to) {
    if (to.ends_with(u"A.rtf")) files.Remove(u"D:\\rtf\\A.rtf");
    if (to.ends_with(u"B.rtf") && files.Get(u"D:\\rtf\\B.rtf") == "bb") files.Put(u"D:\\rtf\\B.rtf", "b2");
    if (to.ends_with(u"B.rtf")) files.Put(u"D:\\rtf\\D.rtf", "d"), files.Put(u"D:\\images\\A.png", "e");
  };
  EXPECT_EQ(Job().Finish(), Job::State::kDone);
  EXPECT_EQ(files.Get(u"D:\\backups\\202611210905\\rtf\\B.rtf"), "b2");
  EXPECT_FALSE(files.Exists(u"D:\\backups\\202611210905\\rtf\\A.rtf"));
  EXPECT_EQ(files.Get(u"D:\\backups\\202611210905\\rtf\\D.rtf"), "d") << "the data file may name it";
  EXPECT_EQ(files.Get(u"D:\\backups\\202611210905\\images\\A.png"), "e");
}

TEST_F(BackupFolder, IsRefusedWhenACopyDiffersOrCannotBeCompared) {
  files.onCopy = [this](TextView to) {
    if (to.ends_with(u"B.rtf")) files.Put(to, "b");
  };
  BackupJob differs = Job();
  EXPECT_EQ(differs.Finish(), Job::State::kFailed);
  EXPECT_EQ(differs.Reason(), u"rtf\\B.rtf: the copy differs");
  files.Put(u"D:\\rtf\\B.rtf", "");
  files.onCopy = [this](TextView to) {
    if (to.ends_with(u"B.rtf")) files.unreadable = {u"d:\\rtf\\b.rtf"};
  };
  EXPECT_EQ(Job().Finish(), Job::State::kFailed);
  files.unreadable.clear();
  files.onCopy = nullptr;
  files.Put(u"D:\\jotlets.ini", "junk");
  EXPECT_EQ(Job().Finish(), Job::State::kFailed);
  EXPECT_EQ(Folders(), u"");
}

TEST_F(BackupFolder, TakesTheDataIntoExactlyTheFolderThatIsNamed) {
  EXPECT_TRUE(BackUpInto(files, ansi, u"D:\\", u"E:\\mine"));
  EXPECT_EQ(files.Get(u"E:\\mine\\jotlets.ini"), kData);
  files.Put(u"E:\\mine\\other.txt", "kept");
  files.Put(u"E:\\mine\\jotlets.ini", "old");
  EXPECT_TRUE(BackUpInto(files, ansi, u"D:\\", u"E:\\mine\\"));
  EXPECT_EQ(files.Get(u"E:\\mine\\jotlets.ini"), kData);
  EXPECT_EQ(files.Get(u"E:\\mine\\other.txt"), "kept");
  for (const TextView refused : {TextView(u""), TextView(u"mine"), TextView(u"d:\\"), TextView(u"D:\\.")})
    EXPECT_FALSE(BackUpInto(files, ansi, u"D:\\", refused)) << ToUtf8(refused);
  for (const Text& path : files.Paths()) EXPECT_FALSE(path.ends_with(u"probe")) << ToUtf8(path);
  files.unchangeable.insert(u"e:\\mine\\jotlets.ini");
  EXPECT_FALSE(BackUpInto(files, ansi, u"D:\\", u"E:\\mine"));
}

TEST_F(BackupFolder, IsPrunedFromTheOldest) {
  for (const TextView name : {u"202611170000", u"202611180000", u"202611190000", u"202611200000", u"old"}) {
    PutBackup(name);
  }
  PutBackup(u"202611010000", "unreadable");
  PutBackup(u"202611160000.partial");
  PutBackup(u"mine.partial");
  Prune(3, u"202611200000");
  EXPECT_EQ(Folders(), u"202611010000 202611180000 202611190000 202611200000 mine.partial old ");
  EXPECT_EQ(log.lines, std::vector<Text>{u"Removing backup directory:202611170000"});
  Prune(2, u"202611180000");
  EXPECT_EQ(Backups(), u"202611180000 202611200000 ") << "what was just taken stays, whatever its name";
  Prune(-4, u"202611180000");
  EXPECT_EQ(Backups(), u"202611180000 ");
}

TEST_F(BackupFolder, ThatCannotBeRemovedIsLoggedAndCostsNoOther) {
  for (const TextView name : {u"202611170000", u"202611180000", u"202611190000"}) PutBackup(name);
  files.unchangeable.insert(u"d:\\backups\\202611170000");
  Prune(2, u"202611190000");
  EXPECT_EQ(Backups(), u"202611170000 202611180000 202611190000 ");
  EXPECT_TRUE(log.Holds(u"Unable to remove backup 202611170000"));
}

TEST_F(BackupFolder, IsPutBackContentsFirst) {
  EXPECT_EQ(Job().Finish(), Job::State::kDone);
  for (const TextView name :
       {u"friends.ini", u"store.mdb", u"categories.png", u"default.rtf", u"default.png", u"borders.png"})
    files.Put(Text(u"D:\\backups\\202611210905\\").append(name), "backup");
  files.Put(u"D:\\jotlets.ini", "damaged");
  files.Put(u"D:\\rtf\\A.rtf", "changed");
  files.Put(u"D:\\rtf\\new.rtf", "new");
  files.Put(u"D:\\images\\new.png", "new");
  files.Put(u"D:\\activity.log", "log");
  files.Remove(u"D:\\rtf\\B.rtf");
  Text order;
  files.onCopy = [&](TextView to) {
    if (!to.starts_with(kBackups)) order.append(to.substr(3)).push_back(u' ');
  };
  EXPECT_EQ(Restoring(u"202611210905").Finish(), Job::State::kDone);
  EXPECT_EQ(order,
            u"images\\C.png rtf\\A.rtf rtf\\B.rtf store.mdb categories.png options.ini friends.ini "
            u"default.rtf default.png borders.png ");
  EXPECT_EQ(files.Get(u"D:\\jotlets.ini"), kData);
  EXPECT_EQ(files.Get(u"D:\\rtf\\A.rtf") + files.Get(u"D:\\rtf\\B.rtf"), "abb");
  EXPECT_FALSE(files.Exists(u"D:\\rtf\\new.rtf") || files.Exists(u"D:\\images\\new.png"));
  EXPECT_TRUE(files.Exists(u"D:\\activity.log"));
}

TEST_F(BackupFolder, ThatCannotBeReadIsRefusedBeforeAnythingIsTouched) {
  PutBackup(u"202611170000", "[Jotlets]\n<ID>A");
  const std::vector<Text> before = files.Paths();
  files.changesUntilFailure = 0;
  EXPECT_EQ(Restoring(u"202611170000").Finish(), Job::State::kFailed);
  EXPECT_EQ(files.changesUntilFailure, 0);
  EXPECT_EQ(files.Paths(), before);
}

class Keeper : public BackupFolder {
 protected:
  BackupKeeper keeper{files, ansi, clock, log, options};
  int saves = 0;

  // What the program does every minute.
  Job::State Minute() {
    keeper.BeginIfDue([this] { ++saves; });
    while (keeper.IsRunning()) {
      if (const auto state = keeper.Step(2); state != Job::State::kRunning) return state;
    }
    return Job::State::kRunning;
  }
  void Minutes(int count) {
    for (; count > 0; --count, clock.Move(60)) Minute();
  }
};

TEST_F(Keeper, TakesOneBackupADayForAWeek) {
  options.keepBackups = 3;
  keeper.Open(u"D:\\");
  Minutes(1);
  EXPECT_EQ(Backups(), u"202611210905 ");
  EXPECT_EQ(log.lines, std::vector<Text>{u"Taking an automated backup"});
  Minutes(24 * 60 - 1);
  EXPECT_EQ(Backups(), u"202611210905 ");
  Minutes(2);
  EXPECT_EQ(Backups(), u"202611210905 202611220906 ");
  Minutes(5 * 24 * 60 + 10);
  EXPECT_EQ(Backups(), u"202611250909 202611260910 202611270911 ");
  EXPECT_EQ(saves, 7);
  EXPECT_TRUE(log.Holds(u"Removing backup directory:202611210905"));
  options.takeBackups = false;
  Minutes(3 * 24 * 60);
  EXPECT_EQ(saves, 7);
}

TEST_F(Keeper, KnowsTheLastBackupAfterAStart) {
  PutBackup(u"202611202000");
  PutBackup(u"202611210900", "half");
  keeper.Open(u"D:\\");
  keeper.LogNewest();
  EXPECT_EQ(log.lines, std::vector<Text>{u"Most recent backup is: 202611210900"}) << "whatever is in it";
  clock.now.utc = clock.ToUtc({2026, 11, 21, 20, 0, 0});
  EXPECT_EQ(Minute(), Job::State::kRunning);
  clock.Move(1);
  EXPECT_EQ(Minute(), Job::State::kDone);
  options.backupDir = u"E:\\";
  keeper.FollowOptions();
  EXPECT_FALSE(keeper.HasAny());
}

TEST_F(Keeper, IsNotHeldUpByAClockThatWasSetBack) {
  options.keepBackups = 2;
  keeper.Open(u"D:\\");
  Minutes(3 * 24 * 60);
  clock.Move(-365 * 24 * kHour);
  Minutes(2 * 24 * 60);
  EXPECT_EQ(Backups(), u"202511250906 202611230907 ");
  // A failure just before the clock is set back must not wait until its old time comes again.
  clock.Move(24 * kHour);
  files.changesUntilFailure = 4;
  EXPECT_EQ(Minute(), Job::State::kFailed);
  clock.Move(-365 * 24 * kHour);
  EXPECT_EQ(Minute(), Job::State::kDone);
}

TEST_F(Keeper, TriesAgainAnHourAfterAFailure) {
  keeper.Open(u"D:\\");
  files.changesUntilFailure = 3;
  EXPECT_EQ(Minute(), Job::State::kFailed);
  EXPECT_TRUE(log.Holds(u"The backup failed: "));
  EXPECT_EQ(Folders(), u"");
  clock.Move(kHour - 1);
  EXPECT_EQ(Minute(), Job::State::kRunning);
  clock.Move(1);
  EXPECT_EQ(Minute(), Job::State::kDone);
}

TEST_F(Keeper, GoesWhereTheOptionSaysAndCanBeGivenUp) {
  options.backupDir = u"E:\\kept";
  keeper.Open(u"D:\\");
  EXPECT_TRUE(keeper.BeginIfDue([] {}));
  EXPECT_FALSE(keeper.BeginIfDue([] {}));
  keeper.Step(2);
  keeper.Abandon();
  EXPECT_FALSE(keeper.IsRunning());
  EXPECT_EQ(Joined(files.ListFolders(u"E:\\kept\\")), u"");
  EXPECT_EQ(keeper.ManualBackup(u"E:\\kept\\").Finish(), Job::State::kDone);
  EXPECT_EQ(keeper.ManualBackup(u"E:\\kept\\").Finish(), Job::State::kDone);
  ASSERT_EQ(keeper.Describe().size(), 2u);
  EXPECT_EQ(keeper.Describe()[0].name, u"202611210906");
}

TEST_F(Keeper, FindsARelativeFolderInTheDataFolder) {
  for (const auto& [option, folder] : std::map<Text, Text>{{u"", u"D:\\backups\\"},
                                                           {u"kept/here", u"D:\\kept/here\\"},
                                                           {u"E:/kept", u"E:/kept\\"},
                                                           {u"\\\\server\\kept", u"\\\\server\\kept\\"}}) {
    options.backupDir = option;
    keeper.Open(u"D:\\");
    EXPECT_EQ(keeper.BackupsFolder(), folder);
  }
}

TEST_F(Keeper, RestoresSoThatItCanBeUndone) {
  keeper.Open(u"D:\\");
  EXPECT_EQ(keeper.ManualBackup(kBackups).Finish(), Job::State::kDone);
  files.Put(u"D:\\rtf\\A.rtf", "newer");
  files.Put(u"D:\\store.mdb", "knows A");
  files.Put(u"D:\\store.mdb-journal", "half a change");
  EXPECT_EQ(keeper.Restore(u"202611210905").Finish(), Job::State::kDone);
  EXPECT_EQ(files.Get(u"D:\\rtf\\A.rtf"), "a");
  EXPECT_FALSE(files.Exists(u"D:\\store.mdb") || files.Exists(u"D:\\store.mdb-journal"))
      << "the backup had no store";
  EXPECT_EQ(keeper.Restore(u"202611210906").Finish(), Job::State::kDone);
  EXPECT_EQ(files.Get(u"D:\\rtf\\A.rtf"), "newer");
  EXPECT_EQ(files.Get(u"D:\\store.mdb"), "knows A");
  EXPECT_EQ(keeper.Restore(u"202611210101").Finish(), Job::State::kFailed);
  EXPECT_EQ(files.Get(u"D:\\rtf\\A.rtf"), "newer");
}

TEST_F(Keeper, PutsThePresentBackWhenARestoreFailsHalfWay) {
  keeper.Open(u"D:\\");
  EXPECT_EQ(keeper.ManualBackup(kBackups).Finish(), Job::State::kDone);
  files.Put(u"D:\\rtf\\A.rtf", "newer");
  bool ended = false;
  for (int step = 0; !ended && step < 60; ++step) {
    files.changesUntilFailure = step;
    ended = keeper.Restore(u"202611210905").Finish() == Job::State::kDone;
    files.changesUntilFailure = -1;
    const std::string texts = files.Get(u"D:\\rtf\\A.rtf") + files.Get(u"D:\\rtf\\B.rtf");
    EXPECT_EQ(texts, ended ? "abb" : "newerbb") << step;
  }
  EXPECT_TRUE(ended);
}

TEST_F(Keeper, FinishesARestoreThatWasKilledAtAnyMoment) {
  keeper.Open(u"D:\\");
  EXPECT_EQ(keeper.ManualBackup(kBackups).Finish(), Job::State::kDone);
  const auto texts = [this] { return files.Get(u"D:\\rtf\\A.rtf") + files.Get(u"D:\\rtf\\B.rtf"); };
  int finished = 0;
  bool ended = false;
  for (int kill = 1; !ended && kill < 60; ++kill) {
    files.Put(u"D:\\rtf\\A.rtf", "newer");
    RestoreJob job = keeper.Restore(u"202611210905");
    for (int step = 0; step < kill && !ended; ++step) ended = job.Step(1) == Job::State::kDone;
    if (std::optional<RestoreJob> rest = keeper.InterruptedRestore()) {
      ++finished;
      EXPECT_EQ(rest->Finish(), Job::State::kDone) << kill;
      EXPECT_EQ(texts(), "abb") << kill;
    }
    EXPECT_EQ(texts(), ended || finished > 0 ? "abb" : "newerbb") << kill;
    EXPECT_FALSE(keeper.InterruptedRestore()) << kill;
  }
  EXPECT_TRUE(ended);
  EXPECT_GE(finished, 7);  // three removals, five copies, all but the last
}

TEST_F(Keeper, LeavesARestoreWhoseBackupIsGone) {
  keeper.Open(u"D:\\");
  files.Put(u"D:\\restore.ini", "E:\\unplugged\\202611210905\\");
  EXPECT_EQ(keeper.InterruptedRestore()->Finish(), Job::State::kFailed);
  EXPECT_EQ(files.Get(u"D:\\rtf\\A.rtf"), "a");
  EXPECT_FALSE(keeper.InterruptedRestore()) << "it is told once";
}

TEST_F(Keeper, RestoresOverADamagedDataFileAndKeepsWhatWasLeft) {
  keeper.Open(u"D:\\");
  EXPECT_EQ(keeper.ManualBackup(kBackups).Finish(), Job::State::kDone);
  files.Put(u"D:\\jotlets.ini", "[Jotlets]\n<ID>A");
  EXPECT_EQ(keeper.Restore(u"202611210905").Finish(), Job::State::kDone);
  EXPECT_EQ(files.Get(u"D:\\jotlets.ini"), kData);
  EXPECT_TRUE(files.Keeps("[Jotlets]\n<ID>A"));
  EXPECT_EQ(keeper.Describe().size(), 1u) << "what cannot be read is no backup";
}

}  // namespace
}  // namespace jotlets
