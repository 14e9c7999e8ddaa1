#include "note/frame_layout.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

constexpr Size kWindow{200, 100};

constexpr Rect kText{10, 20, 190, 88};

FramePart Hit(std::int32_t x, std::int32_t y, bool rolled = false) {
  return HitTestFrame({x, y}, kWindow, rolled ? Rect{} : kText, rolled);
}

TEST(Frame, HasEdgesCornersAndContentAndMovesBetween) {
  EXPECT_TRUE(Hit(100, 50) == FramePart::kContent && Hit(100, 20) == FramePart::kContent);
  EXPECT_TRUE(Hit(100, 15) == FramePart::kMove && Hit(100, 90) == FramePart::kMove);
  EXPECT_TRUE(Hit(0, 50) == FramePart::kLeft && Hit(199, 50) == FramePart::kRight);
  EXPECT_TRUE(Hit(100, 0) == FramePart::kTop && Hit(100, 99) == FramePart::kBottom);
  EXPECT_TRUE(Hit(0, 0) == FramePart::kTopLeft && Hit(199, 0) == FramePart::kTopRight);
  EXPECT_TRUE(Hit(0, 99) == FramePart::kBottomLeft && Hit(199, 99) == FramePart::kBottomRight);
  EXPECT_EQ(WithoutSizing(Hit(199, 99)), FramePart::kMove);
  EXPECT_EQ(WithoutSizing(Hit(100, 50)), FramePart::kContent);
}

TEST(Frame, CornersReachAlongTheirEdges) {
  EXPECT_EQ(Hit(kCornerMargin - 1, 0), FramePart::kTopLeft);
  EXPECT_EQ(Hit(199, 100 - kCornerMargin), FramePart::kBottomRight);
  EXPECT_EQ(Hit(kCornerMargin, 0), FramePart::kTop);
  EXPECT_EQ(Hit(kCornerMargin - 1, kResizeMargin), FramePart::kMove);
}

TEST(Frame, IsSizedInItsWidthAloneWhileRolledUp) {
  EXPECT_TRUE(Hit(0, 0, true) == FramePart::kLeft && Hit(199, 99, true) == FramePart::kRight);
  EXPECT_TRUE(Hit(100, 0, true) == FramePart::kMove && Hit(kCornerMargin - 1, 0, true) == FramePart::kMove);
}

TEST(Frame, TextThatReachesTheEdgesGoesBeforeThem) {
  EXPECT_EQ(HitTestFrame({0, 0}, kWindow, {0, 0, 200, 100}, false), FramePart::kContent);
}

TEST(Size, IsNeverBelowTheMinimumNorMoreThanFitsIntoMemory) {
  EXPECT_EQ(SafeSize({10, 500}, {80, 40}), (Size{80, 500}));
  EXPECT_EQ(SafeSize({500, -1}, {80, 40}), (Size{500, 40}));
  EXPECT_EQ(SafeSize({8000, 4000}, {80, 40}), (Size{8000, 4000}));
  EXPECT_EQ(SafeSize({300, INT32_MAX}, {80, 40}), (Size{300, 30000}));
  EXPECT_EQ(SafeSize({INT32_MAX, INT32_MAX}, {80, 40}), (Size{30000, 1118}));
  EXPECT_EQ(SmallestNoteSize({150, 5}, {1280, 800}), (Size{150, 16}));
  EXPECT_EQ(SmallestNoteSize({30000, 30000}, {1280, 800}), (Size{1280, 800}));
}

TEST(ShownTitle, IsTheTitleOrTheFirstLineWithText) {
  EXPECT_EQ(ShownTitle(u"Own\r\ntitle", u"text"), u"Own title");
  EXPECT_EQ(ShownTitle(u"", u"  \r\n\n  first  \rsecond"), u"first");
  EXPECT_EQ(ShownTitle(u"", u"\tthird\tone"), u"third one");
  EXPECT_EQ(ShownTitle(u"", u"\r\n  \n"), u"");
  EXPECT_EQ(ShownTitle(u"", Text(500, u'x')).size(), 80u);
}

}  // namespace
}  // namespace jotlets
