#include "skin/coordinate.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

namespace jotlets {
namespace {

constexpr CoordinateSpace kSpace{{200, 100}, {181, 40, 190, 70}};

CoordinatePoint At(TextView x, TextView y) { return {ParseCoordinate(x), ParseCoordinate(y)}; }

TEST(Coordinate, IsCountedFromWhatItsMarkerSays) {
  const struct {
    TextView text;
    Point resolved;  // the same text as x and as y
  } kCases[] = {{u"19", {19, 19}},      {u"-19", {181, 81}}, {u"-1", {199, 99}},   {u"0", {0, 0}},
                {u"50%", {100, 50}},    {u"-7%", {-14, -7}}, {u"1%", {2, 1}},      {u"m-10", {90, 40}},
                {u"M", {100, 50}},      {u"tl1", {182, 41}}, {u"TL-1", {180, 39}}, {u"br0", {190, 70}},
                {u"Br+2", {192, 72}},   {u"sc0", {185, 55}}, {u"sC3", {188, 58}},  {u" m5 ", {105, 55}},
                {u"m50%", {0, 0}},      {u"tl10%", {0, 0}},  {u"t5", {0, 0}},      {u"", {0, 0}},
                {u"12pixels", {12, 12}}};
  for (const auto& c : kCases)
    EXPECT_EQ(ResolvePoint(At(c.text, c.text), kSpace), c.resolved) << ToUtf8(c.text);
}

TEST(Coordinate, OfAPlaceTakesVerticalPercentOfTheWidth) {
  EXPECT_EQ(ResolvePlaceAndSize(At(u"-19", u"1"), {18, 18}, kSpace), (Rect{181, 1, 199, 19}));
  EXPECT_EQ(ResolvePlaceAndSize(At(u"m-10", u"50%"), {5, 6}, kSpace), (Rect{90, 100, 95, 106}));
  EXPECT_EQ(ResolvePlaceAndExtent(At(u"50%", u"10%"), At(u"5", u"30%"), kSpace), (Rect{100, 20, 105, 30}));
  EXPECT_EQ(ResolveCorners({At(u"0", u"10%"), At(u"0", u"50%")}, kSpace), (Rect{0, 10, 1, 51}));
}

TEST(Coordinate, OfAnExtentIsALengthOrTheEdgeOutside) {
  const struct {
    CoordinatePoint place, extent;
    Rect resolved;
  } kCases[] = {{At(u"1", u"0"), At(u"-3", u"18"), {1, 0, 197, 18}},
                {At(u"tl1", u"tl0"), At(u"6", u"br0"), {182, 40, 188, 70}},
                {At(u"0", u"0"), At(u"4000", u"-15"), {0, 0, 4000, 85}},
                {At(u"-1", u"0"), At(u"1", u"-1"), {199, 0, 200, 99}},
                {At(u"10", u"10"), At(u"50%", u"m0"), {10, 10, 100, 50}},
                {At(u"-300", u"0"), At(u"0", u"1"), {-100, 0, -100, 1}},
                // without room: the far edge lies before the place
                {At(u"-7", u"90"), At(u"-30", u"50%"), {193, 90, 193, 90}}};
  for (const auto& c : kCases) EXPECT_EQ(ResolvePlaceAndExtent(c.place, c.extent, kSpace), c.resolved);
}

TEST(Coordinate, OfTwoCornersAndOfATrackIncludesTheFarOne) {
  EXPECT_EQ(ResolveCorners({At(u"21", u"1"), At(u"-20", u"17")}, kSpace), (Rect{21, 1, 181, 18}));
  EXPECT_EQ(ResolveCorners({At(u"50", u"9"), At(u"9", u"9")}, kSpace), (Rect{50, 9, 50, 10}));
  const CoordinateTrack track{ParseCoordinate(u"-9"), ParseCoordinate(u"30"), ParseCoordinate(u"-24"), 7};
  EXPECT_EQ(ResolveTrack(track, kSpace), (Rect{191, 30, 198, 77}));
}

TEST(Coordinate, NeverOverflows) {
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  constexpr CoordinateSpace kHuge{{kMax, kMax}, {-kMax, -kMax, kMax, kMax}};
  for (const TextView text : {u"99999999999", u"99999999999%", u"-99999999999%", u"m99999999999",
                              u"tl-99999999999", u"br99999999999", u"sc99999999999"}) {
    const CoordinatePoint point = At(text, text);
    EXPECT_EQ(std::abs(ResolvePoint(point, kHuge).x), kFarthestCoordinate) << ToUtf8(text);
    for (const Rect& rect :
         {ResolvePlaceAndExtent(point, point, kHuge), ResolvePlaceAndSize(point, {kMax, kMax}, kHuge),
          ResolveCorners({At(u"-99999999999%", u"0"), point}, kHuge),
          ResolveTrack({point.x, point.y, point.y, kMax}, kHuge)}) {
      EXPECT_GE(rect.Width(), 0);
      EXPECT_GE(rect.Height(), 0);
    }
  }
}

}  // namespace
}  // namespace jotlets
