#include "data/stack_record.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

TEST(StackLine, HasAllTagsInOrder) {
  StackRecord stack{-5, 6, 7, 8, 9, 0xB4FFFF, u"a<b", true, false, true};
  EXPECT_EQ(MakeStackLine(stack), u"<X>-5<Y>6<W>7<H>8<ID>9<COL>11862015<TITLE>a<b<UNP>1<ONTOP>0<KEEPCOL>1");
  EXPECT_EQ(MakeStackLine({}), u"<X>100<Y>100<W>280<H>65<ID>0<COL>11862015<TITLE><UNP>0<ONTOP>0<KEEPCOL>0");
}

TEST(StackLine, ReadsBackSaveForATitleThatHoldsATag) {
  StackRecord stack{-5, 6, 7, 8, 9, -1, u"a>b & c", true, true, false};
  EXPECT_TRUE(ParseStackLine(MakeStackLine(stack), 3) == stack);
  stack.title = u"a<b";
  EXPECT_EQ(ParseStackLine(MakeStackLine(stack), 3).title, u"a");
  stack.title = u"a\r\nb\nc";
  EXPECT_EQ(ParseStackLine(MakeStackLine(stack), 3).title, u"a b c");
}

TEST(StackLine, WhatIsMissingOrUnreadableIsTheDefault) {
  StackRecord expected;
  expected.number = 3;
  for (const TextView line :
       {u"", u"X<X>5", u"<", u"<X", u"<NEW>1", u"<ID>x", u"<ID>0", u"<ID>-1", u"<UNP>2<ONTOP>x<KEEPCOL>11"}) {
    EXPECT_TRUE(ParseStackLine(line, 3) == expected) << ToUtf8(line);
  }
  expected.x = 5, expected.title = u"Work";
  EXPECT_TRUE(ParseStackLine(u"<x>5<title>Work", 3) == expected);
  expected.unp = expected.onTop = true, expected.width = 12, expected.height = 0;
  EXPECT_TRUE(ParseStackLine(u"<X>5px<UNP>01<ONTOP>1x<W>12px<H><TITLE>Work", 3) == expected);
}

}  // namespace
}  // namespace jotlets
