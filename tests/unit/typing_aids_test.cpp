#include "editor/typing_aids.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

using Does = TypingAid::Does;

Does Typed(TextView text, Bullets bullets = Bullets::kNoBullets) {
  return AidAfterTyping(text, text.size(), bullets).does;
}

TEST(TypingAids, BeginOnlyAtTheBeginningOfAParagraphThatIsNoItem) {
  EXPECT_EQ(Typed(u"1. "), Does::kNumberList);
  EXPECT_EQ(Typed(u"a - "), Does::kNothing);
  EXPECT_EQ(Typed(u"11. "), Does::kNothing);
  EXPECT_EQ(Typed(u"- ", Bullets::kNumbers), Does::kNothing);
  EXPECT_EQ(AidAfterTyping(u"- milk", 2, Bullets::kNoBullets), (TypingAid{Does::kBulletList, 0, 2, {}}));
  EXPECT_EQ(AidAfterTyping(u"- milk", 6, Bullets::kNoBullets), TypingAid());
  EXPECT_EQ(AidAfterTyping(u"[ ] x", 4, Bullets::kNoBullets), (TypingAid{Does::kReplaces, 0, 4, u"\u2610 "}));
}

TEST(TypingAids, BoldIsWhatStandsCloseBetweenTwoPairs) {
  EXPECT_EQ(AidAfterTyping(u"a **b c** d", 9, Bullets::kNormal), (TypingAid{Does::kBold, 2, 9, u"b c"}));
  for (const TextView text :
       {u"****", u"*****", u"** a**", u"**a **", u"2 ** 3 **", u"***a**", u"**a*b**", u"a**", u"**"})
    EXPECT_EQ(Typed(text), Does::kNothing) << ToUtf8(text);
  EXPECT_EQ(AidAfterTyping(u"x **a** **b**", 13, Bullets::kNoBullets).first, 8u);
}

TEST(TypingAids, EnterEndsAnEmptyItemAndGoesOnBehindABox) {
  EXPECT_EQ(AidForEnter(u"", Bullets::kNormal).does, Does::kEndList);
  EXPECT_EQ(AidForEnter(u"", Bullets::kNoBullets).does, Does::kNothing);
  EXPECT_EQ(AidForEnter(u"a", Bullets::kNormal).does, Does::kNothing);
  EXPECT_EQ(AidForEnter(u"\u2611 ", Bullets::kNoBullets), (TypingAid{Does::kReplaces, 0, 2, {}}));
  EXPECT_TRUE(BoxAfterEnter(u"\u2611 a", 2));
  EXPECT_FALSE(BoxAfterEnter(u"\u2611 a", 0)) << "the item itself moves down";
  EXPECT_FALSE(BoxAfterEnter(u"\u2611a", 2));
}

}  // namespace
}  // namespace jotlets
