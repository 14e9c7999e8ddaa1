#include "skin/skin_layout.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "skin/skin_scaling.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

SkinView ViewOf(Size window, bool rolled = false, bool focus = false, bool mouseOver = false) {
  SkinView view;
  view.window = window, view.rolled = rolled, view.focus = focus, view.mouseOver = mouseOver;
  return view;
}

bool Shows(TextView keys, const SkinView& view) {
  return IsShown(ParseSkin(Text(u"[button]\n").append(keys)).elements[0], view);
}

TEST(IsShown, AsksForTheStatesThatAnElementNames) {
  struct Row {
    TextView keys;
    bool plain, rolled, focus, mouseOver;
  };
  const Row rows[] = {
      {u"", true, true, true, true},
      {u"normal=0", false, true, false, false},
      {u"rolled=0", true, false, true, true},
      {u"normal=1\nrolled=1", true, true, true, true},
      {u"focus=0", true, true, false, true},
      {u"focus=1", false, false, true, false},
      {u"mouseover=0", true, true, true, false},
      {u"mouseover=1", false, false, false, true},
  };
  const Size window{200, 100};
  for (const Row& row : rows) {
    EXPECT_EQ(Shows(row.keys, ViewOf(window)), row.plain) << ToUtf8(row.keys);
    EXPECT_EQ(Shows(row.keys, ViewOf(window, true)), row.rolled) << ToUtf8(row.keys);
    EXPECT_EQ(Shows(row.keys, ViewOf(window, false, true)), row.focus) << ToUtf8(row.keys);
    EXPECT_EQ(Shows(row.keys, ViewOf(window, false, false, true)), row.mouseOver) << ToUtf8(row.keys);
  }
  EXPECT_FALSE(Shows(u"focus=1\nmouseover=1", ViewOf(window, false, true)));
}

TEST(IsShown, AsksForTheValueOfACondition) {
  SkinView view = ViewOf({200, 100});
  // The first, one in between and the last, so that names and states cannot drift apart.
  view.states.Set(SkinState::kOnTop, true);
  view.states.Set(SkinState::kGhost, true);
  view.states.Set(SkinState::kHighlight, true);
  for (const TextView name : {u"condition=ontop\n", u"condition=GHOST\n", u"condition= Highlight\n"}) {
    EXPECT_TRUE(Shows(Text(name).append(u"conditionvalue=1"), view)) << ToUtf8(name);
    EXPECT_FALSE(Shows(Text(name).append(u"conditionvalue=0"), view)) << ToUtf8(name);
    EXPECT_FALSE(Shows(name, view)) << "no value is 0: " << ToUtf8(name);
  }
  for (const TextView name : {u"condition=instack\n", u"condition=user3\n", u"condition=moonlight\n"}) {
    EXPECT_TRUE(Shows(name, view)) << ToUtf8(name);
    EXPECT_FALSE(Shows(Text(name).append(u"conditionvalue=1"), view)) << ToUtf8(name);
  }
  view.states.Set(SkinState::kGhost, false);
  EXPECT_TRUE(Shows(u"condition=ghost", view));
  EXPECT_TRUE(Shows(u"condition=\nconditionvalue=1", view));
}

TEST(IsShown, KeepsWithinTheDrawBounds) {
  const TextView keys =
      u"drawwidthminimum=100\ndrawwidthmaximum=200\ndrawheightminimum=50\ndrawheightmaximum=60";
  for (const Size inside : {Size{100, 50}, Size{200, 60}}) EXPECT_TRUE(Shows(keys, ViewOf(inside)));
  for (const Size outside : {Size{99, 55}, Size{201, 55}, Size{150, 49}, Size{150, 61}})
    EXPECT_FALSE(Shows(keys, ViewOf(outside))) << outside.width << " x " << outside.height;
  EXPECT_TRUE(Shows(u"drawwidthmaximum=-1", ViewOf({kLongestLength, 1})));
}

TEST(ButtonAt, TakesTheUppermostThatShows) {
  const SkinData skin = ParseSkin(
      u"[button]\nplace=0,0\nsize=50x50\n"
      u"[button]\nplace=-30,0\nsize=30x50\n"
      u"[button]\nplace=10,10\nsize=20x20\n"
      u"[button]\nplace=10,10\nsize=20x20\ncondition=instack\nconditionvalue=1\n"
      u"[text]\nplace=0,0\nextent=100%,100%\n");
  SkinView view = ViewOf({200, 100});
  EXPECT_EQ(ButtonAt(skin, view, {9, 10}), 0u);
  EXPECT_EQ(ButtonAt(skin, view, {10, 10}), 2u);
  EXPECT_EQ(ButtonAt(skin, view, {30, 10}), 0u);
  EXPECT_EQ(ButtonAt(skin, view, {170, 49}), 1u);
  for (const Point beside : {Point{169, 10}, Point{200, 10}, Point{170, 50}, Point{-1, 0}})
    EXPECT_EQ(ButtonAt(skin, view, beside), kNoElement) << beside.x << "," << beside.y;
  view.states.Set(SkinState::kInStack, true);
  EXPECT_EQ(ButtonAt(skin, view, {10, 10}), 3u);
}

TEST(Layout, GivesRectangles) {
  const auto rect = [](TextView keys) {
    return ElementRect(ParseSkin(Text(u"[tilearea]\nplace=5,6\nextent=7,8\n").append(keys)).elements[0],
                       ViewOf({200, 100}));
  };
  EXPECT_EQ(rect(u"topleft=1,2\nbottomright=-1,-1"), (Rect{1, 2, 200, 100}));
  for (const TextView lesser : {u"topleft=1,2", u"size=2x2"}) EXPECT_EQ(rect(lesser), (Rect{5, 6, 12, 14}));
  const SkinData skin = ParseSkin(u"top=20\nbottom=12\nleft=10\nright=11");
  EXPECT_EQ(TextArea(skin, ViewOf({200, 100})), (Rect{10, 20, 189, 88}));
  EXPECT_EQ(TextArea(skin, ViewOf({15, 25})), (Rect{10, 20, 10, 20}));
  EXPECT_EQ(TextArea(skin, ViewOf({200, 100}, true)), Rect{});
  const SkinData framed =
      ParseSkin(u"top=20\nbottom=12\nleft=10\nright=11\ntitlebar=0,0,-1,15\npictureframe=1");
  SkinView picture = ViewOf({200, 100});
  EXPECT_EQ(TextArea(framed, picture), (Rect{10, 20, 189, 88}));
  picture.states.Set(SkinState::kImage, true);
  EXPECT_EQ(TextArea(framed, picture), (Rect{1, 16, 199, 99}));
  EXPECT_EQ(TextArea(skin, picture), (Rect{10, 20, 189, 88}));
}

TEST(TagLine, TellsOneThingWhereThereIsRoomForIt) {
  const SkinData skin = ParseSkin(u"top=20\nbottom=12\nleft=10\nright=11\nformatbar=36\ntagline=26");
  SkinView view = ViewOf({200, 100});
  EXPECT_EQ(TagOf(skin, view), std::nullopt);
  view.states.Set(SkinState::kInStack, true);
  EXPECT_EQ(TagOf(skin, view), SkinState::kTagInStack);
  view.states.Set(SkinState::kAttached, true);
  EXPECT_EQ(TagOf(skin, view), SkinState::kTagAttached);
  view.states.Set(SkinState::kAlarm, true);
  EXPECT_EQ(TagOf(skin, view), SkinState::kTagAlarm);
  view.states.Set(SkinState::kTagLine, true);
  EXPECT_EQ(TextArea(skin, view), (Rect{10, 20, 189, 74}));
  view.window.height = 97;
  EXPECT_EQ(TagOf(skin, view), std::nullopt) << "the text goes first";
  view.window.height = 100;
  for (const SkinState instead : {SkinState::kFormatBar, SkinState::kImage}) {
    SkinView other = view;
    other.states.Set(instead, true);
    EXPECT_EQ(TagOf(skin, other), std::nullopt);
  }
}

TEST(FormatBar, TakesItsRoomFromTheTextWhileItIsThere) {
  const SkinData skin =
      ParseSkin(u"top=20\nbottom=12\nleft=10\nright=11\nformatbar=36\nformatbardrawheightminimum=120");
  SkinView view = ViewOf({200, 120});
  EXPECT_TRUE(HasRoomForFormatBar(skin, view));
  EXPECT_EQ(FormatBarArea(skin, view), Rect{});
  view.states.Set(SkinState::kFormatBar, true);
  EXPECT_EQ(FormatBarArea(skin, view), (Rect{0, 84, 200, 120}));
  EXPECT_EQ(TextArea(skin, view), (Rect{10, 20, 189, 72}));
  LoadedSkin loaded;
  loaded.data = skin;
  const SkinData twice = ScaledSkin(loaded, 192).data;
  EXPECT_FALSE(HasRoomForFormatBar(twice, ViewOf({400, 239})));
  view.window = {400, 240};
  EXPECT_EQ(FormatBarArea(twice, view), (Rect{0, 168, 400, 240}));
  for (const SkinView& none : {ViewOf({200, 119}), ViewOf({200, 120}, true)}) {
    view.window = none.window, view.rolled = none.rolled;
    EXPECT_FALSE(HasRoomForFormatBar(skin, view));
    EXPECT_EQ(FormatBarArea(skin, view), Rect{});
  }
  EXPECT_FALSE(HasRoomForFormatBar(ParseSkin(u"formatbar=-5"), ViewOf({200, 200})));
  // A bar as high as a file can say leaves a text without height, and nothing runs over.
  view = ViewOf({200, 120});
  view.states.Set(SkinState::kFormatBar, true);
  EXPECT_EQ(TextArea(ParseSkin(u"top=20\nbottom=2147483647\nformatbar=2147483647"), view),
            (Rect{0, 20, 200, 20}));
}

TEST(Scrollbar, IsRequiredWhenTheTextIsHigherThanItsArea) {
  const SkinData skin = ParseSkin(u"usescrollbar=1\nscrollbar=-9,30,-24,7\nscrollbardrawheightminimum=70");
  const SkinView view = ViewOf({200, 100});
  EXPECT_TRUE(IsScrollbarRequired(skin, view, {0, 68, 69}));
  EXPECT_FALSE(IsScrollbarRequired(skin, view, {0, 68, 68}));
  EXPECT_FALSE(IsScrollbarRequired(skin, view, {0, 0, 69}));
  EXPECT_FALSE(IsScrollbarRequired(skin, ViewOf({200, 69}), {0, 37, 69}));
  EXPECT_FALSE(IsScrollbarRequired(skin, ViewOf({200, 100}, true), {0, 68, 69}));
  for (const TextView part : {u"usescrollbar=1", u"scrollbar=-9,30,-24,7"})
    EXPECT_FALSE(IsScrollbarRequired(ParseSkin(part), view, {0, 68, 69})) << ToUtf8(part);
  EXPECT_EQ(ScrollTrack(skin, {200, 100}), (Rect{191, 30, 198, 77}));
  EXPECT_EQ(ScrollTrack(SkinData(), {200, 100}), Rect{});
}

TEST(Scrollbar, HasAThumbInProportion) {
  const Rect track{190, 30, 197, 130};
  EXPECT_EQ(ScrollThumb(track, 15, {0, 50, 200}), (Rect{190, 30, 197, 55}));
  EXPECT_EQ(ScrollThumb(track, 15, {75, 50, 200}), (Rect{190, 68, 197, 93}));
  EXPECT_EQ(ScrollThumb(track, 15, {150, 50, 200}), (Rect{190, 105, 197, 130}));
  EXPECT_EQ(ScrollThumb(track, 15, {9'950, 50, 10'000}), (Rect{190, 115, 197, 130}));
  EXPECT_EQ(ScrollThumb(track, 500, {10, 50, 200}), track);
  for (const std::int32_t beyond : {-5, 155})
    EXPECT_EQ(ScrollThumb(track, 15, {beyond, 50, 200}).top, beyond < 0 ? 30 : 105);
}

TEST(Scrollbar, FollowsItsThumb) {
  const Rect track{190, 30, 197, 130};
  for (const ScrollState text : {ScrollState{0, 50, 200}, ScrollState{0, 68, 99}, ScrollState{0, 68, 71},
                                 ScrollState{0, 80, 1'000'000}}) {
    const std::int32_t last = track.bottom - ScrollThumb(track, 15, text).Height();
    EXPECT_EQ(ScrollPositionAt(-1'000, track, 15, text), 0);
    EXPECT_EQ(ScrollPositionAt(last + 1'000, track, 15, text), text.range - text.page);
    for (std::int32_t top = track.top; top <= last; ++top) {
      ScrollState scrolled = text;
      scrolled.position = ScrollPositionAt(top, track, 15, text);
      const std::int32_t off = std::abs(ScrollThumb(track, 15, scrolled).top - top);
      // No neighbouring position brings the thumb closer.
      for (const std::int32_t beside : {scrolled.position - 1, scrolled.position + 1}) {
        scrolled.position = beside;
        EXPECT_LE(off, std::abs(ScrollThumb(track, 15, scrolled).top - top)) << text.range << " at " << top;
      }
    }
  }
  EXPECT_EQ(ScrollPositionAt(60, track, 500, {0, 50, 200}), 0);
}

TEST(Scrollbar, StaysOnItsTrackWhateverItIsTold) {
  const Rect far{0, -kFarthestCoordinate, 7, kFarthestCoordinate};
  for (const Rect& track : {Rect{190, 30, 197, 130}, Rect{5, 9, 5, 9}, far}) {
    for (const std::int32_t position : {kMin, 0, kMax}) {
      for (const std::int32_t page : {kMin, -1, 0, 1, kMax}) {
        for (const std::int32_t range : {kMin, -1, 0, 1, kMax}) {
          const ScrollState scroll{position, page, range};
          const Rect thumb = ScrollThumb(track, 15, scroll);
          EXPECT_TRUE(thumb.top >= track.top && thumb.bottom <= track.bottom && thumb.top <= thumb.bottom);
          EXPECT_EQ(thumb.Height() == track.Height(), page >= range || track.Height() <= 15)
              << page << " of " << range;
          EXPECT_GE(ScrollPositionAt(position, track, 15, scroll), 0);
        }
      }
    }
  }
}

}  // namespace
}  // namespace jotlets
