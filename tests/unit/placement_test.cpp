#include "note/placement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "base/beside.h"
#include "data/jotlet_data.h"
#include "note/note_place.h"

namespace jotlets {
namespace {

constexpr Point kAnywhere{kNotSet, kNotSet};
constexpr std::int32_t kMax = 0x7FFFFFFF;
constexpr std::int32_t kMin = -kMax - 1;

PlacementSettings Settings(std::int32_t appear) {
  return {appear, {30, 40}, true, {201, 101}, {1920, 1080}, {3840, 1081}};
}

Placed Place(Point requested, const PlacementSettings& settings, const std::vector<Point>& corners = {}) {
  return PlaceNewJotlet(requested, {50, 60}, settings, corners);
}

TEST(Placement, IsAsRequestedInTheMiddleOrAtTheCoordinates) {
  EXPECT_EQ(Place(kAnywhere, Settings(0)).position, (Point{960 - 100, 540 - 50}));
  // Whatever the origin of the virtual screen.
  EXPECT_EQ(Place(kAnywhere, {1, {}, true, {200, 200}, {9, 9}, {3840, 1080}}).position, (Point{1820, 440}));
  EXPECT_EQ(Place({kNotSet, 5}, Settings(3)).position, (Point{kNotSet, 5}));
  for (const Point half : {Point{kNotSet, 5}, Point{5, kNotSet}}) {
    const Placed automatic = Place(half, Settings(2));
    EXPECT_TRUE(automatic.position == (Point{30, 40}) && automatic.size == (Size{201, 101}));
  }
  PlacementSettings wild = Settings(2);
  wild.newSize = {kMax, kMax}, wild.dpi = 192;
  EXPECT_EQ(Place(kAnywhere, wild).size, (Size{1920, 540})) << "none can be reached behind it";
  const Placed asked = Place({7, 8}, Settings(0), {{7, 8}});
  EXPECT_TRUE(asked.position == (Point{7, 8}) && asked.size == (Size{50, 60}));
}

TEST(Placement, StepsOffIdenticalCornersOnly) {
  PlacementSettings settings = Settings(0);
  std::vector<Point> notes = {
      {860 + 5, 490}, {860 + 8, 490 + 8}, {860 - 32, 490 - 32}, {860, 490 + 16}, {860 + 160, 490 + 160}};
  for (const std::int32_t step : {0, 16, 32}) {
    notes.insert(notes.begin(), Place(kAnywhere, settings, notes).position);
    EXPECT_EQ(notes.front(), (Point{860 + step, 490 + step}));
  }
  settings.preventOverlap = false;
  EXPECT_EQ(Place(kAnywhere, settings, notes).position, (Point{860, 490}));
  settings = Settings(2), settings.coords = {kMax, kMax - 20};
  EXPECT_EQ(Place(kAnywhere, settings, {settings.coords}).position, (Point{kMax, kMax - 4}));
  notes.assign(10000, Point{30, 40});
  for (std::int32_t i = 10000; i > 0; --i) notes.push_back({30 + 16 * i, 40 + 16 * i});
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Place(kAnywhere, Settings(2), notes).position, (Point{30 + 160016, 40 + 160016}));
  // It takes 4 ms; walking the notes again for each step takes seconds.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
}

TEST(Placement, StaysInTheWorkAreaAndScalesWithIt) {
  PlacementSettings settings = Settings(0);
  const Rect area{0, 40, 1280, 760};
  settings.monitors.Add(area, {0, 0, 1280, 800});
  settings.primaryScreen = {1280, 800};
  settings.newSize = {280, 280};
  for (const std::int32_t dpi : {96, 192}) {
    settings.dpi = dpi;
    const Size shown{280 * dpi / 96, 280 * dpi / 96};
    std::vector<Point> notes;
    for (int i = 0; i < 300; ++i) {
      const Placed placed = Place(kAnywhere, settings, notes);
      const Rect at = RectAt(placed.position, shown);
      ASSERT_TRUE(at.left >= area.left && at.top >= area.top && at.right <= area.right &&
                  at.bottom <= area.bottom)
          << i << ": " << at.left << "," << at.top;
      ASSERT_EQ(std::count(notes.begin(), notes.end(), placed.position), 0) << i;
      EXPECT_EQ(placed.size, settings.newSize) << "the size for the usual scale is what is stored";
      notes.push_back(placed.position);
    }
    EXPECT_EQ(notes.front(), (Point{640 - shown.width / 2, 400 - shown.height / 2}));
    EXPECT_EQ(notes[1], (Point{notes[0].x + 16, notes[0].y + 16}));
  }
  // A note that begins outside, or has no room, goes on from there as well.
  settings.appear = 2, settings.coords = {1270, -50}, settings.newSize = {5000, 100};
  EXPECT_EQ(Place(kAnywhere, settings).position, settings.coords);
  EXPECT_EQ(Place(kAnywhere, settings, {settings.coords}).position.y, -34);
}

TEST(Placement, OfNotesFromFriendsHasOptionsOfItsOwn) {
  Options options;
  options.newJotletsAppearNetwork = 2, options.newJotletsCoordsNetwork = {-7, 9};
  options.preventOverlapNetwork = 0;
  const PlacementSettings own = PlacementFrom(options, NoteOrigin::kUser, false, {1, 2}, {3, 4});
  EXPECT_TRUE(own.appear == 0 && own.coords == Point{} && own.preventOverlap);
  EXPECT_TRUE(own.newSize == (Size{232, 405}) && own.virtualScreen == (Size{3, 4}));
  const PlacementSettings sent = PlacementFrom(options, NoteOrigin::kFriend, true, {1, 2}, {3, 4});
  EXPECT_TRUE(sent.appear == 2 && sent.coords == (Point{-7, 9}) && !sent.preventOverlap);
}

TEST(Rescue, MovesWhatLiesBeyondTheScreenAndNothingElse) {
  const Rect screen{-1920, -10, 1920, 1080};
  EXPECT_EQ(RescuedPosition({-5000, 0}, screen), (Point{-1912, 0}));
  EXPECT_EQ(RescuedPosition({1921, -11}, screen), (Point{1792, -2}));
  EXPECT_EQ(RescuedPosition({0, kMax}, screen), (Point{0, 952}));
  for (const Point in : {screen.TopLeft(), Point{1920, 1080}}) EXPECT_EQ(RescuedPosition(in, screen), in);
  // What the near edge has moved past the far one is moved again.
  EXPECT_EQ(RescuedPosition({-1, 0}, {0, 0, 5, 5}), (Point{5 - 128, 0}));
  EXPECT_EQ(RescuedPosition({kMin, kMax}, {kMax, kMin, kMax, kMin}), (Point{kMax, kMin}));
}

// The second monitor is to the right, lower by 200 and less high.
MonitorSetup Screens(int monitors) {
  MonitorSetup screens{{0, 0, monitors == 2 ? 3200 : 1920, 1080}, {}};
  screens.monitors.Add({0, 0, 1920, 1040}, {0, 0, 1920, 1080});
  if (monitors == 2) screens.monitors.Add({1920, 200, 3200, 960}, {1920, 200, 3200, 1000});
  return screens;
}

TEST(Monitors, AreThirtyThreeAtMostWithTwoRectanglesEach) {
  MonitorList monitors;
  for (std::int32_t i = 0; i < 33; ++i) EXPECT_TRUE(monitors.Add({i, 0, i, 1}, {i, 0, i, 2}));
  EXPECT_FALSE(monitors.Add({}, {}));
  ASSERT_EQ(monitors.Rects().size(), 66u);
  EXPECT_TRUE(monitors.Rects()[64] == (Rect{32, 0, 32, 1}) && monitors.Rects()[65] == (Rect{32, 0, 32, 2}));
}

TEST(ShownPlace, IsTheChosenOneWhileItsCornerIsOnAMonitor) {
  const auto shown = [](Point at) { return ShownPlace(RectAt(at, {300, 200}), Screens(2)).TopLeft(); };
  for (const Point on : {Point{1919, 1079}, Point{3199, 999}, Point{0, 1050}}) EXPECT_EQ(shown(on), on);
  EXPECT_EQ(shown({-5, 1090}), (Point{8, 952}));
  // No monitor is there, but a part of the note can be seen and taken hold of.
  EXPECT_EQ(shown({2500, 50}), (Point{2500, 50}));
  // In the virtual screen, but on no monitor: above the second one, below it, at its very edge.
  EXPECT_EQ(shown({2500, 0}), (Point{2500, 208}));
  EXPECT_EQ(shown({2500, 1010}), (Point{2500, 999 - 128}));
  EXPECT_EQ(shown({3200, 300}), (Point{3199 - 128, 300}));
  EXPECT_EQ(ShownPlace({kMin, kMin, kMax, kMax}, Screens(1)).TopLeft(), (Point{8, 8}));
  const MonitorSetup inDoubt{{0, 0, 5, 5}, Screens(1).monitors};  // then the monitors are believed
  EXPECT_EQ(ShownPlace({90, 90, 99, 99}, inDoubt), (Rect{90, 90, 99, 99}));
  EXPECT_EQ(ShownPlace({kMax, kMax, kMax, kMax}, {}).TopLeft(), (Point{-128, -128}));
}

TEST(NotePlace, NotesReturnWithTheirMonitor) {
  const Rect chosen = RectAt({2500, 300}, {300, 200});
  NotePlace place(chosen);
  EXPECT_FALSE(place.MonitorsChanged(Screens(2)));
  EXPECT_TRUE(place.MonitorsChanged(Screens(1)));
  EXPECT_TRUE(place.Shown() == RectAt({1920 - 128, 300}, {300, 200}) && place.Chosen() == chosen);
  // Saved now and loaded again, it is shown on the screen, and goes home all the same.
  NotePlace loaded(place.Chosen());
  loaded.MonitorsChanged(Screens(1));
  EXPECT_TRUE(loaded == place && loaded.MonitorsChanged(Screens(2)));
  EXPECT_TRUE(loaded.Shown() == chosen && loaded.Chosen() == chosen);
  // But not when the user has put it somewhere else in the meantime.
  const Rect dragged = RectAt({50, 60}, {300, 200});
  place.Choose(dragged);
  EXPECT_FALSE(place.MonitorsChanged(Screens(2)));
  EXPECT_TRUE(place.Shown() == dragged && place.Chosen() == dragged);
}

TEST(NotePlace, DoesNotCreepWhenTheScaleChanges) {
  const Size own{333, 77};
  NotePlace place(RectAt({100, 100}, own), 120);
  EXPECT_EQ(place.Shown(), RectAt({100, 100}, {416, 96}));
  for (const std::int32_t dpi : {96, 168, 96, 144, 120}) {
    EXPECT_TRUE(place.ScaleChanged(dpi));
    // Dragging it at every scale does not make the rounded size the user's own.
    place.Choose(RectAt({dpi, 10}, {place.Shown().Width(), place.Shown().Height()}));
    EXPECT_EQ(place.Chosen(), RectAt({dpi, 10}, own)) << "what is stored is the size at the usual scale";
  }
  EXPECT_EQ(place.Shown(), RectAt({120, 10}, {416, 96}));
  // A size that the user gives is the one to start from.
  place.Choose(RectAt({96, 10}, {301, 77}));
  EXPECT_EQ(place.Chosen(), RectAt({96, 10}, {241, 62}));
  place.ScaleChanged(60), place.ScaleChanged(120);
  EXPECT_EQ(place.Shown(), RectAt({96, 10}, {301, 77}));
}

TEST(NotePlace, OfAMonitorThatIsAwayKeepsItsSize) {
  const Rect chosen = RectAt({2500, 300}, {300, 200});
  NotePlace place(chosen, 144);
  place.MonitorsChanged(Screens(1)), place.ScaleChanged(96);
  EXPECT_TRUE(place.Shown() == RectAt({1792, 300}, {300, 200}) && place.Chosen() == chosen);
  place.MonitorsChanged(Screens(2)), place.ScaleChanged(144);
  EXPECT_TRUE(place.Shown() == RectAt({2500, 300}, {450, 300}) && place.Chosen() == chosen);
}

// By its title or by its corner, from the edge between two monitors that lie side by side in either order.
TEST(ResizedOn, StaysUnderTheMouseAndOnTheMonitorThatItHasComeTo) {
  const Rect left{0, 0, 1000, 800};
  const Rect right{1000, 0, 2000, 800};
  EXPECT_EQ(ResizedOn(right, {900, 100, 1180, 300}, {1100, 110}, {560, 400}), RectAt({720, 90}, {560, 400}));
  EXPECT_EQ(ResizedOn(left, {858, 100, 1138, 300}, {858, 100}, {560, 400}), RectAt({719, 100}, {560, 400}))
      << "it would have grown back over the edge";
  EXPECT_EQ(ResizedOn(right, {720, 100, 1282, 300}, {720, 100}, {281, 100}), RectAt({860, 100}, {281, 100}))
      << "nor does it shrink back";
  EXPECT_EQ(ResizedOn({}, {5, 5, 5, 5}, {5, 5}, {0, 0}), Rect{}) << "of nothing";
}

TEST(PlaceBeside, IsRightElseLeftElseOverAndAlwaysOnTheMonitor) {
  const Rect area{-1000, 0, 1000, 700};
  const auto at = [&](Rect other, Size size = {300, 200}) { return PlaceBeside(size, other, area, 8); };
  EXPECT_EQ(at({0, 100, 200, 300}), (Point{208, 100}));
  EXPECT_EQ(at({600, 600, 800, 690}), (Point{292, 500})) << "no room on the right, nor below";
  EXPECT_EQ(at({-900, -50, 900, 600}), (Point{-150, 0})) << "over it";
  EXPECT_EQ(at({980, 100, 1400, 300}), (Point{672, 100})) << "of a note that is half off the monitor";
  EXPECT_EQ(at({3000, 100, 3200, 300}), (Point{700, 100})) << "of one that is elsewhere";
  EXPECT_EQ(at({0, 100, 200, 300}, {5000, 900}), (Point{-1000, 0})) << "its beginning is seen";
}

TEST(RoomGivenBy, EndsWhereTheListIsLowOrWhatMovesMeetsWhatStays) {
  const Rect list{0, 10, 100, 110};
  const auto room = [&](std::vector<Rect> others, std::int32_t wanted = 70) {
    others.push_back(list);
    return RoomGivenBy(list, others, wanted, 40);
  };
  const Rect below{0, 120, 100, 140};
  EXPECT_EQ(room({below}, 50), 50);
  EXPECT_EQ(room({below}), 60) << "the list keeps its least height";
  EXPECT_EQ(room({below, {110, 80, 150, 105}}), 60) << "what stands beside it is in nobody's way";
  EXPECT_EQ(room({{0, 120, 120, 140}, {110, 80, 150, 105}}), 15) << "here it is";
  EXPECT_EQ(room({below, {-5, 5, 105, 115}}), 60) << "a frame around the list becomes lower, too";
  EXPECT_EQ(room({{0, 140, 150, 160}, {110, 0, 150, 130}}), 60) << "so does what is as high beside it";
  EXPECT_EQ(room({below, {20, 40, 80, 70}}), 60) << "words on the list";
  EXPECT_EQ(RoomGivenBy({0, 0, 10, 30}, {}, 5, 40), 0) << "it is low already";
}

}  // namespace
}  // namespace jotlets
