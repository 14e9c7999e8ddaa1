#include "data/options_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>

#include "data/loading.h"
#include "data/options_keeper.h"
#include "data/saving.h"
#include "data/text_file.h"
#include "fakes.h"

namespace jotlets {
namespace {

Options Read(TextView text) {
  Options options;
  LoadOptions(options, text);
  return options;
}

// One line for every option and none at its default, as the writer orders and forms them.
Text EveryKey() { return FromUtf8(FileBytes("fuzz/corpus/options/every-key")); }

std::vector<Text> Lines(TextView text) {
  std::vector<Text> lines;
  LineReader reader(text);
  for (TextView line; reader.Next(line);) lines.emplace_back(line);
  return lines;
}

TEST(Options, HaveTheirKeysOrderAndForms) {
  const Options options = Read(EveryKey());
  EXPECT_EQ(ToUtf8(ComposeOptions(options)), ToUtf8(EveryKey()));
  EXPECT_TRUE(options.others.empty());
  EXPECT_TRUE(Read(ComposeOptions(Options())) == Options());  // whose values are in the documents
  EXPECT_EQ(Lines(EveryKey()).size(), 1u + 114u + 3u);        // the heading, the options and three styles
  for (const Text& line : Lines(ComposeOptions(Options()))) {
    EXPECT_TRUE(line == u"[Options]" || EveryKey().find(u"\n" + line + u"\n") == Text::npos) << ToUtf8(line);
  }
}

TEST(Options, EachOnItsOwnChangesItsOwnLineOnly) {
  const std::vector<Text> plain = Lines(ComposeOptions(Options()));
  for (const Text& line : Lines(EveryKey())) {
    if (line == u"[Options]" || line.starts_with(u"Style")) continue;
    std::vector<Text> changed = Lines(ComposeOptions(Read(line)));
    EXPECT_EQ(std::erase(changed, line), 1u) << ToUtf8(line);
    EXPECT_LE(
        std::count_if(plain.begin(), plain.end(),
                      [&](const Text& l) { return std::count(changed.begin(), changed.end(), l) == 0; }),
        1)
        << ToUtf8(line);
    EXPECT_LE(changed.size(), plain.size()) << ToUtf8(line);
  }
}

TEST(Options, AreReadByTheFormInWhichTheyAreWritten) {
  const Options options = Read(
      u"[Options]\r\n\r\nno "
      u"line\r\nDebug=3x\r\nKeepDeleted=\r\nuser1=1\r\nUser2=1\r\nUser3=0\r\nOpaqueEdit=\r\nNewJotletsCoords="
      u"5,-6,7\r\n"
      u"ImageJotletDefaultSize=9\r\nHook=1010121\r\nHook1=101\r\nDefaultWidth=99999999999\r\n");
  EXPECT_EQ(options.debug, 3);
  EXPECT_EQ(options.keepDeleted, 0);
  EXPECT_TRUE(!options.user1 && options.user2 && !options.user3 && !options.opaqueEdit);
  EXPECT_TRUE(options.NewJotletsCorner() == (Point{5, -6}));
  EXPECT_TRUE(options.ImageJotletSize() == (Size{9, 0}));
  EXPECT_TRUE(options.hooks[0] == (HotKey{true, false, true, false, 121}));
  EXPECT_TRUE(options.hooks[1] == Options().hooks[1]);
  EXPECT_EQ(options.defaultWidth, 32000);
}

TEST(Options, FlagsAreWhatTheirLineSays) {
  for (const TextView on : {u"1", u" 1x", u"+1"}) {
    EXPECT_TRUE(Read(Text(u"RTL=").append(on)).rtl && Read(Text(u"AttachSTI=").append(on)).attachSti);
  }
  for (const TextView off : {u"0", u"", u"yes", u"-0"}) {
    EXPECT_FALSE(Read(Text(u"RTL=").append(off)).rtl || Read(Text(u"TakeBackups=").append(off)).takeBackups);
  }
}

TEST(Options, OutOfRangeOrMalformedAreHarmless) {
  const Options options = Read(
      u"KeepDeleted=x\nDebug=-1\nNetPort=99999\nUseHooks=7\nKeepBackups=-3\nBackupPeriod=0\nSnap=,,5,6\n"
      u"ManageWindow=\nStatistics=x|-\nAlarm=only\nHilite01=#\nSnoozeMinutes=99999999999999999999\n");
  EXPECT_EQ(
      (std::vector{options.keepDeleted, options.debug, options.netPort, options.useHooks, options.keepBackups,
                   options.backupPeriod, options.hilites[0], options.snoozeMinutes}),
      (std::vector{0, -1, 65535, 1, 1, 0, 0, 100000}));
  EXPECT_EQ(options.snap, (std::array{0, 0, 5}));
  EXPECT_EQ(options.manageWindow, (std::array{0, 0, 0, 0}));
  EXPECT_EQ(options.statistics, (std::array{0, 0}));
  EXPECT_TRUE(options.alarm == (TextAndNumber{u"only", 0}));
}

TEST(Options, ComeBackAsTheyWereWrittenInAnyOrder) {
  Random random(3);
  const std::vector<Text> keys = Lines(EveryKey());
  for (int round = 0; round < 200; ++round) {
    Options options;
    for (std::size_t i = 1; i < keys.size(); ++i) {
      if (random.Below(3) == 0) continue;
      LoadOption(options, SplitAtFirst(keys[i], u'=').head,
                 random.Pick(u"0011234567891,-|= x\u20ac\xD800", 12));
    }
    LoadOption(options, u"Later" + IntText(round % 5), random.Pick(u"=|[]x ", 5));
    std::vector<Text> lines = Lines(ComposeOptions(options));
    for (std::size_t i = lines.size() - 1; i > 0; --i) std::swap(lines[i], lines[random.Below(i + 1)]);
    Text shuffled;
    for (const Text& line : lines) shuffled.append(line).append(u"\r\n\r\n");
    EXPECT_TRUE(Read(shuffled) == options) << round;
  }
}

TEST(Options, StylesAreKeptByTheirNumber) {
  Options options = Read(u"Style02=c\nStyle00=a\nStyle2=no\nStyle100=no\nStylexx=no\nstyle01=no\n");
  EXPECT_EQ(options.styles, (std::vector<Text>{u"a", u"", u"c"}));
  EXPECT_EQ(options.others.size(), 4u);
  options.styles.resize(11, u"t");
  EXPECT_NE(ComposeOptions(options).find(u"\nStyle09=t\nStyle10=t\n"), Text::npos);
  EXPECT_EQ(Read(u"Style99=z").styles.size(), 100u);
}

TEST(Options, OfAHugeForeignFileAreReadInBoundedTime) {
  Text text;
  for (int i = 0; i < 300'000; ++i) text.append(u"key" + IntText(i) + u"=\n");
  EXPECT_LE(Read(text).others.size(), 1000u);
}

TEST(Options, UnknownOnesAreKeptOnceAndCannotBreakTheirLine) {
  Options options = Read(u"[Options]\nZ=1\nDebug=2\nA=x=y\nZ=2\nz=3\n");
  EXPECT_EQ(options.others, (std::vector<std::pair<Text, Text>>{{u"Z", u"2"}, {u"A", u"x=y"}, {u"z", u"3"}}));
  options.others = {{u"Greeting", u"Ann\r\nDebug=3"}};
  EXPECT_EQ(Read(ComposeOptions(options)).debug, 2);
}

TEST(OptionsFile, IsReadInAnyEncodingAndKeptWhenASaveFails) {
  FakeFiles files;
  Options options;
  EXPECT_FALSE(LoadOptionsFile(files, Latin1(), u"o", options));
  files.Put(u"o", "[Options]\r\nDebug=3\r\nGreeting=\xFC\r\n");
  EXPECT_TRUE(LoadOptionsFile(files, Latin1(), u"o", options));
  EXPECT_EQ(options.debug, 3);
  EXPECT_EQ(options.others[0].second, u"\u00fc");
  files.changesUntilFailure = 0;
  EXPECT_FALSE(SaveOptionsFile(files, u"o", Options()));
  EXPECT_EQ(files.Get(u"o").front(), '[');
  EXPECT_TRUE(SaveOptionsFile(files, u"p", options));
  Options saved;
  EXPECT_TRUE(LoadOptionsFile(files, Latin1(), u"p", saved) && saved == options);
}

TEST(OptionsFile, IsKeptBesideWhenItIsDamagedAndIsToBeReplaced) {
  FakeFiles files;
  FakeLog log;
  Options options;
  const auto mayReplace = [&] {
    return LoadOptionsToReplace(files, Latin1(), log, LocalTime{2026, 11, 21, 9, 5, 0}, u"o", options);
  };
  EXPECT_TRUE(mayReplace()) << "there is none";
  const std::string half("[Options]\nDebug=3\n\0\0\0", 21);
  files.Put(u"o", half);
  EXPECT_TRUE(mayReplace());
  EXPECT_EQ(options.debug, 3);
  EXPECT_EQ(files.Get(u"o.damaged-202611210905"), half);
  files.changesUntilFailure = 0;
  EXPECT_FALSE(mayReplace()) << "it could not be kept";
  std::string foreign;
  for (int line = 0; line <= 1000; ++line) foreign += "key" + std::to_string(line) + "=\n";
  files.changesUntilFailure = -1;
  files.Put(u"o", foreign);
  EXPECT_TRUE(mayReplace());
  EXPECT_TRUE(files.Keeps(foreign) && files.Paths().size() == 3);
  files.unreadable.insert(u"o");
  EXPECT_FALSE(mayReplace());
}

TEST(OptionsKeeper, WritesOnlyWhatHasChangedAndNeverOverAFileItCouldNotRead) {
  FakeFiles files;
  FakeLog log;
  FakeClock clock;
  OptionsKeeper keeper(files, Latin1(), clock, log);
  keeper.Load(u"d\\");
  keeper.SaveIfDirty();
  EXPECT_TRUE(files.Paths().empty());
  keeper.Current().debug = 3;
  keeper.SetDirty();
  keeper.SaveIfDirty();
  EXPECT_EQ(files.Get(u"d\\options.ini"), EncodeTextFile(ComposeOptions(keeper.Current())));
  files.unreadable.insert(u"d\\options.ini");
  const std::string there = files.Get(u"d\\options.ini");
  keeper.Load(u"d\\");
  keeper.Current().debug = 1;
  keeper.Save();
  EXPECT_EQ(files.Get(u"d\\options.ini"), there);
  EXPECT_EQ(keeper.Current().keepDeleted, std::numeric_limits<std::int32_t>::max());
}

}  // namespace
}  // namespace jotlets
