#include "note/actions.h"

#include <gtest/gtest.h>

#include <set>

namespace jotlets {
namespace {

TEST(Actions, HaveOneCodeEachFrom1To169) {
  std::set<Text> names;
  for (std::int32_t code = 1; code <= 169; ++code) {
    names.insert(ActionName(code));
    EXPECT_EQ(ActionFromName(ActionName(code)), code);
  }
  EXPECT_EQ(names.size(), 169u);
  for (const std::int32_t code : {-1, 0, 170}) EXPECT_EQ(ActionName(code), u"");
}

// One of each stretch of the table: a name too many, missing or misplaced shifts the next of these.
TEST(Actions, KeepTheirCodes) {
  const std::pair<TextView, std::int32_t> kPlaces[] = {{u"print", 10},
                                                       {u"newjotlet", 20},
                                                       {u"rescue", 30},
                                                       {u"undo", 37},
                                                       {u"center", 46},
                                                       {u"save", 54},
                                                       {u"scrolldown", 59},
                                                       {u"bulletsnone", 61},
                                                       {u"user1", 65},
                                                       {u"lock", 69},
                                                       {u"sendtoff9", 83},
                                                       {u"applystyle0", 84},
                                                       {u"pendropper", 97},
                                                       {u"findtext", 109},
                                                       {u"penwidth1", 115},
                                                       {u"penwidth21", 125},
                                                       {u"hilitenone", 131},
                                                       {u"hiliteblue", 136},
                                                       {u"transparentopaque", 137},
                                                       {u"stang", 150},
                                                       {u"solo", 153},
                                                       {u"negative", 160},
                                                       {u"floodfill", 165},
                                                       {u"orphancheck", 169}};
  for (const auto& [name, code] : kPlaces) EXPECT_EQ(ActionFromName(name), code) << ToUtf8(name);
}

TEST(Actions, OfOpacityCountDown) {
  for (std::int32_t percent = 10; percent <= 90; percent += 10)
    EXPECT_EQ(ActionFromName(u"transparent" + IntText(percent) + u"pc"), 147 - percent / 10);
}

TEST(Actions, AreFoundWithoutRegardToCaseAndOnlyWhole) {
  for (const TextView name : {u"close", u"Close", u"CLOSE"}) EXPECT_EQ(ActionFromName(name), kActionClose);
  for (const TextView name : {u"closed", u"clos", u"", u" close", u"penwidth2", u"sendtoff10"})
    EXPECT_EQ(ActionFromName(name), kActionNone) << ToUtf8(name);
}

}  // namespace
}  // namespace jotlets
