#include "note/frame_layout.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

constexpr Size kWindow{200, 100};

FramePart Hit(std::int32_t x, std::int32_t y) { return HitTestFrame({x, y}, kWindow, 96); }

TEST(Frame, HasEdgesCornersTitleAndContent) {
  EXPECT_EQ(Hit(100, 50), FramePart::kContent);
  EXPECT_EQ(Hit(100, 15), FramePart::kTitle);
  EXPECT_EQ(Hit(185, 15), FramePart::kClose);
  EXPECT_EQ(Hit(100, kTitleHeight), FramePart::kContent);
  EXPECT_TRUE(Hit(0, 50) == FramePart::kLeft && Hit(199, 50) == FramePart::kRight);
  EXPECT_TRUE(Hit(100, 0) == FramePart::kTop && Hit(100, 99) == FramePart::kBottom);
  EXPECT_TRUE(Hit(0, 0) == FramePart::kTopLeft && Hit(199, 0) == FramePart::kTopRight);
  EXPECT_TRUE(Hit(0, 99) == FramePart::kBottomLeft && Hit(199, 99) == FramePart::kBottomRight);
}

TEST(Frame, CornersReachAlongTheirEdges) {
  EXPECT_EQ(Hit(kCornerMargin - 1, 0), FramePart::kTopLeft);
  EXPECT_EQ(Hit(199, 100 - kCornerMargin), FramePart::kBottomRight);
  EXPECT_EQ(Hit(kCornerMargin, 0), FramePart::kTop);
  EXPECT_EQ(Hit(kCornerMargin - 1, kResizeMargin), FramePart::kTitle);
}

TEST(Frame, GrowsWithTheResolution) {
  EXPECT_EQ(LayOutFrame({400, 200}, 192).title, (Rect{0, 0, 400, 2 * kTitleHeight}));
  EXPECT_EQ(HitTestFrame({2 * kResizeMargin - 1, 100}, {400, 200}, 192), FramePart::kLeft);
  EXPECT_EQ(LayOutFrame(kWindow, 0).title, LayOutFrame(kWindow, 96).title);
}

TEST(Frame, OfAnySizeHasNoNegativePart) {
  for (const Size size : {Size{0, 0}, Size{1, 1}, Size{10, 200}, Size{200, 10}, Size{30, 30}}) {
    for (const std::int32_t dpi : {96, 288}) {
      const FrameLayout layout = LayOutFrame(size, dpi);
      for (const Rect& part : {layout.title, layout.closeButton, layout.content}) {
        EXPECT_TRUE(part.Width() >= 0 && part.Height() >= 0) << size.width << "x" << size.height;
      }
    }
  }
}

TEST(Size, IsNeverBelowTheMinimum) {
  EXPECT_EQ(SafeSize({10, 500}, {80, 40}), (Size{80, 500}));
  EXPECT_EQ(SafeSize({500, -1}, {80, 40}), (Size{500, 40}));
}

TEST(ShownTitle, IsTheTitleOrTheFirstLineWithText) {
  EXPECT_EQ(ShownTitle(u"Own\r\ntitle", u"text"), u"Own title");
  EXPECT_EQ(ShownTitle(u"", u"  \r\n\n  first  \rsecond"), u"first");
  EXPECT_EQ(ShownTitle(u"", u"\r\n  \n"), u"");
  EXPECT_EQ(ShownTitle(u"", Text(500, u'x')).size(), 80u);
}

}  // namespace
}  // namespace jotlets
