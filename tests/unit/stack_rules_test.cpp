#include "schedule/stack_rules.h"

#include <gtest/gtest.h>

#include "fakes.h"
#include "note/monitors.h"

namespace jotlets {
namespace {

constexpr Rect kArea{0, 0, 1000, 800};

TEST(StackRules, TheColourIsTheFirstNotesUnlessItIsKept) {
  StackRecord stack;
  const Colour green{1, 200, 3};
  const std::vector<StackMember> members = {{u"A", u"", green}, {u"B", u"", {9, 9, 9}}};
  EXPECT_EQ(StackColour(stack, members), green);
  EXPECT_EQ(StackColour(stack, {}), (Colour{255, 255, 180}));
  stack.keepColour = true;
  stack.colour = ColourNumber(4, 5, 6);
  EXPECT_EQ(StackColour(stack, members), (Colour{4, 5, 6}));
}

TEST(StackRules, AStackIsRolledWhenItIsNoHigherThanItsRolledForm) {
  EXPECT_TRUE(IsStackRolled(25, 25) && IsStackRolled(-5, 25));
  EXPECT_TRUE(!IsStackRolled(26, 25) && !IsStackRolled(0, 0));
}

TEST(StackRules, RowsAreWhereTheyAreSeen) {
  StackList list{{10, 20, 110, 60}, 15, 4, 0};  // two rows and two thirds of 4
  EXPECT_TRUE(list.RowAt({10, 20}) == 0u && list.RowAt({109, 35}) == 1u && list.RowAt({50, 59}) == 2u);
  EXPECT_TRUE(!list.RowAt({9, 20}) && !list.RowAt({50, 60}) && !list.RowAt({50, 19}));
  list.scroll = list.SafeScroll(1000);
  EXPECT_EQ(list.scroll, 20);
  EXPECT_TRUE(list.RowAt({50, 20}) == 1u && list.RowAt({50, 59}) == 3u && list.SafeScroll(-5) == 0);
  EXPECT_EQ(list.RowRect(3), (Rect{10, 45, 110, 60}));
  list.rows = 1;
  list.scroll = list.SafeScroll(20);
  EXPECT_TRUE(list.scroll == 0 && !list.RowAt({50, 40}));
  list.rows = 1'000'000'000;
  EXPECT_GT(list.SafeScroll(2147483647), 2147480000);
}

TEST(StackRules, NotesAreSpreadOutBesideTheStackWhereThereIsMoreRoom) {
  const Rect stack{100, 50, 300, 200};
  const std::vector<Size> notes = {{300, 200}, {300, 100}, {200, 100}, {900, 100}};
  EXPECT_EQ(SpreadPlaces(stack, notes, kArea, 4),
            (std::vector<Point>{{304, 50}, {608, 50}, {304, 254}, {100, 358}}));
  const Rect right{700, 50, 900, 200};
  EXPECT_EQ(SpreadPlaces(right, std::vector<Size>{{300, 200}, {300, 100}, {300, 50}}, kArea, 4),
            (std::vector<Point>{{396, 50}, {92, 50}, {396, 254}}));
}

TEST(StackRules, OfEverySpreadNoteSomethingIsSeen) {
  Random random(7);
  for (int round = 0; round < 200; ++round) {
    const auto number = [&](unsigned end) { return static_cast<std::int32_t>(random.Below(end)) - 200; };
    const Rect stack = RectAt({number(1400), number(1200)}, {200, 150});
    std::vector<Size> notes;
    for (unsigned count = random.Below(30); count > 0; --count)
      notes.push_back({40 + static_cast<std::int32_t>(random.Below(600)),
                       20 + static_cast<std::int32_t>(random.Below(500))});
    const std::vector<Point> places = SpreadPlaces(stack, notes, kArea, 2);
    ASSERT_EQ(places.size(), notes.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
      EXPECT_TRUE(places[i].x >= 0 && places[i].x < 1000 && places[i].y >= 0 && places[i].y < 800)
          << round << ": " << places[i].x << "," << places[i].y;
    }
    // The first five of a usual size have room without lying on one another.
    const auto five =
        SpreadPlaces(RectAt({number(1) + 210, 10}, {200, 150}), std::vector<Size>(5, {232, 200}), kArea, 2);
    for (std::size_t i = 1; i < five.size(); ++i)
      EXPECT_FALSE(Overlap(RectAt(five[i - 1], {232, 200}), RectAt(five[i], {232, 200})));
  }
  const std::vector<Size> huge(3, {2147483647, 2147483647});
  for (const Point place : SpreadPlaces({-2147483647, -2147483647, 2147483647, 2147483647}, huge, kArea, 2))
    EXPECT_EQ(place.x, 0);
}

TEST(StackRules, NotesAreSpreadOnTheMonitorThatShowsMostOfTheStack) {
  MonitorList monitors;
  monitors.Add({0, 0, 1000, 760}, {0, 0, 1000, 800});
  monitors.Add({1000, 0, 2000, 800}, {1000, 0, 2000, 800});
  EXPECT_EQ(WorkAreaAt(monitors, {850, 770, 1099, 900}), (Rect{0, 0, 1000, 760}));
  EXPECT_EQ(WorkAreaAt(monitors, {850, 0, 1151, 100}).left, 1000);
  EXPECT_EQ(WorkAreaAt(monitors, {5000, 0, 5100, 100}).left, 0);
}

TEST(StackRules, AStackOffTheScreenComesToItsMiddle) {
  const Rect screen{-1000, 0, 1000, 600};
  EXPECT_EQ(RescuedStackPosition(RectAt({1000, 5}, {280, 100}), screen), (Point{-140, 250}));
  EXPECT_EQ(RescuedStackPosition(RectAt({-1001, 5}, {280, 101}), screen), (Point{-140, 250}));
  EXPECT_EQ(RescuedStackPosition(RectAt({-1000, 599}, {280, 100}), screen), std::nullopt);
}

}  // namespace
}  // namespace jotlets
