#include "picture/grab_area.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

constexpr Rect kScreen{0, 0, 200, 100};
constexpr Rect kWindows[] = {{-20, 10, 60, 50}, {40, 40, 90, 90}};
constexpr Rect kMonitors[] = {{0, 0, 120, 100}, {120, 0, 200, 80}};

Rect Grabbed(Point from, Point to) { return GrabbedArea(from, to, kWindows, kMonitors, kScreen); }

TEST(GrabbedArea, IsWhatIsDraggedEitherWayAndAClickTakesWhatLiesThere) {
  EXPECT_EQ(Grabbed({10, 20}, {30, 60}), (Rect{10, 20, 31, 61}));
  EXPECT_EQ(Grabbed({30, 60}, {10, 20}), (Rect{10, 20, 31, 61}));
  EXPECT_EQ(Grabbed({10, 20}, {10, 60}), (Rect{10, 20, 11, 61})) << "a column of pixels";
  EXPECT_EQ(Grabbed({190, 90}, {500, 500}), (Rect{190, 90, 200, 100}));
  EXPECT_EQ(Grabbed({50, 45}, {51, 44}), (Rect{0, 10, 60, 50})) << "the topmost, and no more than is seen";
  EXPECT_EQ(Grabbed({80, 80}, {80, 80}), kWindows[1]);
  EXPECT_EQ(Grabbed({150, 20}, {150, 20}), kMonitors[1]);
  EXPECT_EQ(Grabbed({150, 90}, {150, 90}), kScreen) << "where there is no monitor";
}

TEST(PlaceBesidePointer, StaysInTheAreaAndOffThePointer) {
  const auto place = [](Point pointer) { return PlaceBesidePointer(pointer, {30, 30}, 10, kScreen); };
  EXPECT_EQ(place({20, 20}), (Point{30, 30}));
  EXPECT_EQ(place({195, 20}), (Point{155, 30}));
  EXPECT_EQ(place({195, 95}), (Point{155, 55}));
}

}  // namespace
}  // namespace jotlets
