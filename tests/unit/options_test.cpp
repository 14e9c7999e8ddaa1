#include "data/options.h"

#include <gtest/gtest.h>

#include "data/saving.h"
#include "fakes.h"

namespace jotlets {
namespace {

Options Read(TextView text) {
  Options options;
  LoadOptions(options, text);
  return options;
}

TEST(Options, AreWrittenWithTheirDefaultsAndFlagsOnlyWhenOn) {
  const Text text = ComposeOptions(Options());
  for (const TextView line : {u"Debug=0", u"KeepDeleted=32", u"MakeAllVisible=1", u"UseHooks=1",
                              u"PreventOverlap=1", u"NewJotletsAppear=0", u"NewJotletsCoords=0,0",
                              u"Hidden=0", u"DefaultWidth=232", u"DefaultHeight=405"}) {
    EXPECT_NE(text.find(Text(u"\n").append(line).append(u"\n")), Text::npos) << ToUtf8(line);
  }
  for (const TextView flag : {u"SingleClickCreates", u"OpaqueEdit", u"User", u"DefaultImage", u"RolledHas"}) {
    EXPECT_EQ(text.find(flag), Text::npos) << ToUtf8(flag);
  }
  EXPECT_TRUE(Read(text) == Options());
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
  EXPECT_TRUE(options.newJotletsCoords == (Point{5, -6}));
  EXPECT_TRUE(options.imageJotletDefaultSize == (Size{9, 0}));
  EXPECT_TRUE(options.hooks[0] == (HotKey{true, false, true, false, 121}));
  EXPECT_TRUE(options.hooks[1] == Options().hooks[1]);
  EXPECT_EQ(options.defaultWidth, 0x7FFFFFFF);
}

TEST(Options, ComeBackAsTheyWereWritten) {
  Options options;
  options.debug = 3, options.keepDeleted = 5, options.makeAllVisible = 0, options.useHooks = 0;
  for (std::size_t i = 0; i < options.hooks.size(); ++i) {
    options.hooks[i] = {(i & 1) != 0, (i & 2) != 0, (i & 4) != 0, i == 3, static_cast<std::int32_t>(100 + i)};
  }
  options.preventOverlap = 0, options.newJotletsAppear = 2, options.newJotletsCoords = {-1, 2};
  options.singleClickCreates = options.opaqueEdit = options.user1 = options.user2 = options.user3 = true;
  options.defaultImage = options.rolledHasAltPosition = true;
  options.hidden = 1, options.defaultWidth = 11, options.defaultHeight = 12,
  options.imageJotletDefaultSize = {13, 14};
  options.others = {
      {u"Signature", u"a=b \u20ac"}, {u"TakeBackups", u"0"}, {u"Confirm closure", u"1"}, {u"Empty", u""}};
  EXPECT_TRUE(Read(ComposeOptions(options)) == options);
}

TEST(Options, UnknownOnesAreKeptOnceAndCannotBreakTheirLine) {
  Options options = Read(u"[Options]\nZ=1\nDebug=2\nA=x=y\nZ=2\nz=3\n");
  EXPECT_EQ(options.others, (std::vector<std::pair<Text, Text>>{{u"Z", u"2"}, {u"A", u"x=y"}, {u"z", u"3"}}));
  options.others = {{u"Signature", u"Ann\r\nDebug=3"}};
  EXPECT_EQ(Read(ComposeOptions(options)).debug, 2);
}

TEST(OptionsFile, IsReadInAnyEncodingAndKeptWhenASaveFails) {
  FakeFiles files;
  Options options;
  EXPECT_FALSE(LoadOptionsFile(files, Latin1(), u"o", options));
  files.Put(u"o", "[Options]\r\nDebug=3\r\nSignature=\xFC\r\n");
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

}  // namespace
}  // namespace jotlets
