#include "data/jotlet_id.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

TEST(NewId, IsTimeInstanceAndCounterInUnpaddedHexadecimal) {
  EXPECT_EQ(IdSource(0xAB0F).Next({2026, 11, 21, 13, 5, 59}), u"D53BAB0F1");
  IdSource ids(1);
  Text last;
  for (int i = 0; i < 10000; ++i) last = ids.Next({});
  EXPECT_EQ(last, u"00012710");
  EXPECT_EQ(ids.Next({}), u"0001A");
  EXPECT_EQ(ids.Next({}), u"0001B");
}

TEST(FileName, IsPlainForEveryIdInUse) {
  for (const TextView name : {u"D53BAB0F1", u"a", u"my note", u"a.b", u"\u00dcbung", u"CONTENT", u"COM10"}) {
    EXPECT_TRUE(IsPlainFileName(name)) << ToUtf8(name);
  }
}

TEST(FileName, IsRefusedWhenItLeavesItsFolderOrNamesADevice) {
  for (const TextView name :
       {u"",    u".",       u"..",   u"..\\x",  u"../x",   u"a\\b",      u"C:x",   u"a:b", u"a*",
        u"a?",  u"a|b",     u"a\"b", u"a>b",    u"a\nb",   u"a ",        u" a",    u"a.",  u"CON",
        u"nul", u"Aux.txt", u"com1", u"LPT9.x", u"prn .x", u"COM\u00b9", u"CONIN$"}) {
    EXPECT_FALSE(IsPlainFileName(name)) << ToUtf8(name);
  }
  EXPECT_FALSE(IsPlainFileName(TextView(u"a\0b", 3)));
  EXPECT_FALSE(IsPlainFileName(Text(300, u'x')));
}

}  // namespace
}  // namespace jotlets
