#include "note/snapping.h"

#include <gtest/gtest.h>

#include <vector>

namespace jotlets {
namespace {

constexpr SnapSettings kSnap{true, 10, 2};
constexpr Rect kOther{100, 100, 300, 200};
constexpr std::int32_t kMax = 0x7FFFFFFF;

// A window of 120 x 50 pixels dragged to `at`.
Point Move(Point at, const std::vector<Rect>& windows, const std::vector<Rect>& monitors = {},
           bool alt = false, const SnapSettings& settings = kSnap) {
  const Rect moved = SnappedMove(RectAt(at, {120, 50}), settings, alt, {windows, monitors});
  EXPECT_TRUE(moved.Width() == 120 && moved.Height() == 50);
  return moved.TopLeft();
}

TEST(SnappedMove, LeavesTheGapBesideOthersOnEachSide) {
  for (const std::int32_t off : {-9, 0, 7, 9}) {
    EXPECT_EQ(Move({150, 200 + off}, {kOther}), (Point{150, 202}));
    EXPECT_EQ(Move({150, 50 + off}, {kOther}), (Point{150, 48}));
    EXPECT_EQ(Move({300 + off, 130}, {kOther}), (Point{302, 130}));
    EXPECT_EQ(Move({-20 + off, 130}, {kOther}), (Point{-22, 130}));
  }
  for (const Point far : {Point{150, 210}, Point{150, 190}, Point{150, 40}, Point{310, 130}, Point{-30, 130}})
    EXPECT_EQ(Move(far, {kOther}), far);
  // Touching counts as overlapping on the other axis; one pixel more does not.
  EXPECT_EQ(Move({-20, 207}, {kOther}), (Point{-20, 202}));
  EXPECT_EQ(Move({301, 207}, {kOther}), (Point{301, 207}));
}

TEST(SnappedMove, LinesUpWithWhatItLiesBeside) {
  EXPECT_EQ(Move({109, 207}, {kOther}), (Point{100, 202}));
  EXPECT_EQ(Move({171, 57}, {kOther}), (Point{180, 48}));
  EXPECT_EQ(Move({307, 91}, {kOther}), (Point{302, 100}));
  EXPECT_EQ(Move({-25, 159}, {kOther}), (Point{-22, 150}));
  EXPECT_EQ(Move({105, 130}, {kOther}), (Point{105, 130}));  // inside, beside nothing
}

TEST(SnappedMove, TheLastWindowHitStaysAndAltTurnsTheSettingRound) {
  const Rect second{100, 203, 300, 204};
  EXPECT_EQ(Move({150, 207}, {kOther, second}), (Point{150, 206}));
  EXPECT_EQ(Move({150, 207}, {second, kOther}), (Point{150, 202}));
  EXPECT_EQ(Move({150, 207}, {kOther}, {}, true), (Point{150, 207}));
  EXPECT_EQ(Move({150, 207}, {kOther}, {}, false, {false, 10, 2}), (Point{150, 207}));
  EXPECT_EQ(Move({150, 207}, {kOther}, {}, true, {false, 10, 2}), (Point{150, 202}));
  Options options;
  options.snap = {0, 4, 5};
  const SnapSettings read = SnapSettingsFrom(options);
  EXPECT_TRUE(!read.enabled && read.distance == 4 && read.gap == 5 && SnapSettingsFrom({}).enabled);
}

TEST(SnappedMove, MonitorsCatchFromInsideWhatNoWindowCaught) {
  const Rect screen{0, 0, 1920, 1080};
  const Rect work{0, 0, 1920, 1040};
  EXPECT_EQ(Move({9, 500}, {}, {screen}), (Point{2, 500}));
  EXPECT_EQ(Move({0, 0}, {}, {screen}), (Point{2, 2}));
  EXPECT_EQ(Move({1791, 1021}, {}, {screen}), (Point{1798, 1028}));
  for (const Point free : {Point{10, 500}, Point{-1, 500}, Point{1790, 500}, Point{1801, 500}, Point{500, -1},
                           Point{500, 1031}, Point{0, 1081}, Point{1921, 0}}) {
    EXPECT_EQ(Move(free, {}, {screen}), free);
  }
  // The first monitor rectangle that catches goes before the next: the other way round than with windows.
  EXPECT_EQ(Move({500, 985}, {}, {work, {0, 0, 1920, 1041}}), (Point{500, 988}));
  EXPECT_EQ(Move({500, 985}, {}, {{0, 0, 1920, 1041}, work}), (Point{500, 989}));
  // What a window caught stays; the other axis is free for the monitor.
  EXPECT_EQ(Move({5, 55}, {{0, 0, 100, 50}}, {{-2, 51, 1920, 1080}}), (Point{0, 52}));
  EXPECT_EQ(Move({5, 55}, {{50, 0, 600, 50}}, {{-2, 51, 1920, 1080}}), (Point{0, 52}));
}

// A window of 200 x 100 at 400, 400, whose dragged edges the mouse has moved there.
Rect Sized(const Rect& dragged, DraggedEdges edges, const std::vector<Rect>& windows,
           const std::vector<Rect>& monitors = {}, bool alt = false) {
  return SnappedSizing(dragged, edges, kSnap, alt, {windows, monitors});
}

TEST(SnappedSizing, MovesOnlyTheDraggedEdges) {
  const Rect dragged{405, 405, 595, 495};
  const std::vector<Rect> around = {
      {300, 300, 400, 600}, {300, 300, 700, 400}, {600, 300, 700, 600}, {300, 500, 700, 600}};
  EXPECT_EQ(Sized(dragged, {-1, 0}, around), (Rect{402, 405, 595, 495}));
  EXPECT_EQ(Sized(dragged, {0, -1}, around), (Rect{405, 402, 595, 495}));
  EXPECT_EQ(Sized(dragged, {1, 1}, around), (Rect{405, 405, 598, 498}));
  EXPECT_EQ(Sized(dragged, {1, 1}, around, {}, true), dragged);
  // Monitors catch from both sides and go last, whatever a window has caught.
  const std::vector<Rect> screen = {{398, 399, 601, 501}};
  EXPECT_EQ(Sized(dragged, {-1, -1}, around, screen), (Rect{400, 401, 595, 495}));
  EXPECT_EQ(Sized(dragged, {1, 1}, around, screen), (Rect{405, 405, 599, 499}));
  EXPECT_EQ(Sized({405, 405, 610, 495}, {1, 0}, {}, screen), (Rect{405, 405, 599, 495}));
}

TEST(SnappedSizing, LinesUpWithWindowsThatAreWithinTheGap) {
  // Far sides of others line up without a gap.
  EXPECT_EQ(Sized({405, 400, 600, 500}, {-1, 0}, {{400, 300, 700, 398}}), (Rect{400, 400, 600, 500}));
  EXPECT_EQ(Sized({405, 400, 600, 500}, {-1, 0}, {{400, 300, 700, 397}}), (Rect{405, 400, 600, 500}));
  EXPECT_EQ(Sized({400, 400, 593, 500}, {1, 0}, {{300, 502, 600, 700}}), (Rect{400, 400, 600, 500}));
  EXPECT_EQ(Sized({400, 400, 593, 500}, {1, 0}, {{300, 503, 600, 700}}), (Rect{400, 400, 593, 500}));
  EXPECT_EQ(Sized({400, 400, 600, 493}, {0, 1}, {{602, 300, 700, 500}}), (Rect{400, 400, 600, 500}));
  // A left edge is tested on from where it has got to: 393, 384, 378, 370, 367. A right one is not.
  const std::vector<Rect> steps = {{384, 300, 999, 600}, {1, 300, 376, 600}, {370, 300, 999, 600}};
  EXPECT_EQ(Sized({393, 400, 600, 500}, {-1, 0}, steps, {{365, 0, 999, 999}}), (Rect{367, 400, 600, 500}));
  const std::vector<Rect> rightSteps = {{1, 300, 602, 600}, {1, 300, 611, 600}, {610, 300, 999, 600}};
  EXPECT_EQ(Sized({400, 400, 593, 500}, {1, 0}, rightSteps, {{0, 0, 610, 999}}), (Rect{400, 400, 602, 500}));
}

TEST(SafeBounds, DraggedEdgesGiveWayToTheMinimum) {
  const auto dragged = [](FramePart part, Point offset) {
    const DraggedEdges edges = EdgesOf(part);
    return SafeBounds(DraggedBounds({0, 0, 100, 100}, edges, offset), edges, {20, 30});
  };
  EXPECT_EQ(dragged(FramePart::kTopLeft, {90, 95}), (Rect{80, 70, 100, 100}));
  EXPECT_EQ(dragged(FramePart::kBottomRight, {-90, 5}), (Rect{0, 0, 20, 105}));
}

TEST(Snapping, EndsAtTheLimitsOfNumbers) {
  const std::vector<Rect> all = {{-kMax - 1, -kMax - 1, kMax, kMax}, {kMax, kMax, -kMax, -kMax}};
  for (const Rect& r : {all[0], all[1], Rect{kMax - 5, kMax - 5, kMax, kMax}}) {
    for (const SnapSettings& settings : {SnapSettings{true, kMax, kMax}, SnapSettings{true, -kMax, 5}}) {
      const SnapTargets targets{all, all};
      SnappedMove(r, settings, false, targets);
      for (const std::int32_t edge : {-1, 1}) SnappedSizing(r, {edge, edge}, settings, false, targets);
    }
  }
  const Rect dragged = DraggedBounds({0, 0, 10, 10}, EdgesOf(FramePart::kBottomRight), {kMax, kMax});
  EXPECT_EQ(dragged, (Rect{0, 0, kMax, kMax}));
  const std::vector<Rect> last = {{kMax - 300, 0, kMax - 1, 10}};
  const SnapTargets atTheEnd{last, {}};
  EXPECT_EQ(SnappedMove({kMax - 5, 0, kMax, 10}, {true, 10, 50}, false, atTheEnd).left, kMax);
}

}  // namespace
}  // namespace jotlets
