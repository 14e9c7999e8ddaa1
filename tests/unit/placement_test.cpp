#include "note/placement.h"

#include <gtest/gtest.h>

#include <vector>

#include "data/jotlet_data.h"
#include "note/opacity.h"

namespace jotlets {
namespace {

constexpr Point kAnywhere{kNotSet, kNotSet};

PlacementSettings Settings(std::int32_t appear) {
  return {appear, {30, 40}, true, {201, 101}, {1920, 1080}, {3840, 1081}};
}

Point Place(Point requested, const PlacementSettings& settings, const std::vector<Point>& corners = {}) {
  return PlaceNewJotlet(requested, {50, 60}, settings, corners).position;
}

TEST(Placement, IsInTheMiddleOrAtTheCoordinates) {
  EXPECT_EQ(Place(kAnywhere, Settings(0)), (Point{960 - 100, 540 - 50}));
  EXPECT_EQ(Place(kAnywhere, Settings(1)), (Point{1920 - 100, 540 - 50}));
  EXPECT_EQ(Place(kAnywhere, Settings(2)), (Point{30, 40}));
  EXPECT_EQ(Place({kNotSet, 5}, Settings(3)), (Point{kNotSet, 5}));
}

TEST(Placement, ARequestIsUsedUnchangedWithItsSize) {
  const std::vector<Point> corners = {{7, 8}};
  const Placed placed = PlaceNewJotlet({7, 8}, {50, 60}, Settings(0), corners);
  EXPECT_TRUE(placed.position == (Point{7, 8}) && placed.size == (Size{50, 60}));
  for (const Point half : {Point{kNotSet, 5}, Point{5, kNotSet}}) {
    const Placed automatic = PlaceNewJotlet(half, {50, 60}, Settings(2), {});
    EXPECT_TRUE(automatic.position == (Point{30, 40}) && automatic.size == (Size{201, 101}));
  }
}

TEST(Placement, StepsOffIdenticalCornersOnly) {
  PlacementSettings settings = Settings(2);
  EXPECT_EQ(Place(kAnywhere, settings, {{35, 40}, {30, 41}}), (Point{30, 40}));
  // The note that is in the way after the first step stands earlier in the list.
  EXPECT_EQ(Place(kAnywhere, settings, {{46, 56}, {30, 40}}), (Point{62, 72}));
  settings.preventOverlap = false;
  EXPECT_EQ(Place(kAnywhere, settings, {{30, 40}}), (Point{30, 40}));
  settings.preventOverlap = true, settings.coords = {0x7FFFFFFF, 0x7FFFFFFF};
  EXPECT_EQ(Place(kAnywhere, settings, {settings.coords}), settings.coords);
}

TEST(Rescue, MovesWhatLiesBeyondTheScreenAndNothingElse) {
  const Rect screen{-1920, -10, 1920, 1080};
  EXPECT_EQ(RescuedPosition({-5000, 0}, screen), (Point{-1912, 0}));
  EXPECT_EQ(RescuedPosition({1921, 0}, screen), (Point{1792, 0}));
  EXPECT_EQ(RescuedPosition({0, -11}, screen), (Point{0, -2}));
  EXPECT_EQ(RescuedPosition({0, 0x7FFFFFFF}, screen), (Point{0, 952}));
  for (const Point inside : {Point{-1920, -10}, Point{1920, 1080}, Point{1919, 0}}) {
    EXPECT_EQ(RescuedPosition(inside, screen), inside);
  }
}

TEST(Opacity, IsWhatRemainsAndNothingMeansAll) {
  EXPECT_EQ(AlphaOfOpacity(0), 255);
  EXPECT_EQ(AlphaOfOpacity(10), 25);
  EXPECT_EQ(AlphaOfOpacity(30), 76);
  EXPECT_EQ(AlphaOfOpacity(100), 255);
  EXPECT_EQ(AlphaOfOpacity(0x7FFFFFFF), 255);
  EXPECT_GT(AlphaOfOpacity(-5), 0);  // a note that cannot be seen cannot be helped
}

}  // namespace
}  // namespace jotlets
