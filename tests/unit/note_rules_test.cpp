#include <gtest/gtest.h>

#include <array>

#include "editor/text_style.h"
#include "fakes.h"
#include "note/animation.h"
#include "note/hover_fade.h"
#include "note/opacity.h"
#include "note/rolled.h"
#include "note/shadow_shape.h"

namespace jotlets {
namespace {

constexpr std::int32_t kMax = 0x7FFFFFFF;

TEST(Opacity, IsWhatRemainsAndNothingMeansAll) {
  EXPECT_TRUE(AlphaOfOpacity(0) == 255 && AlphaOfOpacity(100) == 255 && AlphaOfOpacity(kMax) == 255);
  EXPECT_TRUE(AlphaOfOpacity(10) == 25 && AlphaOfOpacity(30) == 76);
  EXPECT_GT(AlphaOfOpacity(-5), 0);  // a note that cannot be seen cannot be helped
}

TEST(Opacity, FadesInFiftyStepsOfWhichTheLastIsLeftOut) {
  EXPECT_EQ(FadeOpacity(1, 30), 98);
  EXPECT_TRUE(FadeOpacity(49, 30) == 31 && FadeOpacity(49, 50) == 51 && !FadeOpacity(50, 30));
  // As in floating point, for every opacity; never 0, which would be opaque.
  for (std::int32_t target = 1; target <= 100; ++target) {
    for (std::int32_t step = 1; step < kFadeSteps; ++step) {
      EXPECT_EQ(FadeOpacity(step, target), static_cast<std::int32_t>(100 - step * ((100 - target) / 50.0)));
    }
    EXPECT_GT(FadeOpacity(49, target), 0);
  }
}

TEST(Opacity, GivesWayToTheFocus) {
  EXPECT_TRUE(IsOpaqueInFocus(30, true) && !IsOpaqueInFocus(30, false) && !IsOpaqueInFocus(0, true));
  EXPECT_EQ(OnFocusLoss(30, true, false), FocusLoss::kFades);
  EXPECT_EQ(OnFocusLoss(30, true, true), FocusLoss::kReturnsAtOnce);
  for (const std::int32_t percent : {0, 30})
    EXPECT_EQ(OnFocusLoss(percent, percent == 0, false), FocusLoss::kStays);
}

TEST(Animation, FollowsItsTimingCurve) {
  EXPECT_EQ(AnimationProgress(0), 0);
  EXPECT_NEAR(AnimationProgress(1.0 / 30), 0.0021310788990474266, 1e-15);
  EXPECT_NEAR(AnimationProgress(7.0 / 30), 0.11210956483206724, 1e-15);
  EXPECT_NEAR(AnimationProgress(29.0 / 30), 0.9978689211009526, 1e-15);
  Animation move;
  ASSERT_TRUE(move.Start({0, 1000}, {1000, 0}, AnimationKind::kMove));
  EXPECT_FALSE(move.Start({5, 5}, {6, 6}, AnimationKind::kClose));
  for (std::int32_t step = 0; step < 30; ++step) {
    const AnimationFrame frame = move.Tick(30).value();
    EXPECT_FALSE(frame.finished);
    EXPECT_EQ(frame.position.x, static_cast<std::int32_t>(1000 * AnimationProgress(step / 30.0)));
    EXPECT_EQ(frame.position.y, 1000 - frame.position.x);
  }
  EXPECT_EQ(move.Tick(30), (AnimationFrame{{1000, 0}, true}));
  EXPECT_EQ(move.Tick(30), std::nullopt);
}

TEST(Animation, EndsWhereItsKindSays) {
  for (const AnimationKind kind : {AnimationKind::kMove, AnimationKind::kClose, AnimationKind::kDelete}) {
    Animation off;
    off.Start({1, 2}, {30, 40}, kind);
    EXPECT_EQ(off.Tick(0), (AnimationFrame{{30, 40}, true}));
  }
  Animation hide;
  hide.Start({1, 2}, {30, 40}, AnimationKind::kHide);
  hide.Tick(30), hide.Tick(30);
  EXPECT_EQ(hide.FinishNow(), (AnimationFrame{{1, 2}, true}));
  EXPECT_TRUE(hide.FinishNow() == std::nullopt && hide.Start({}, {}, AnimationKind::kMove));
  Animation far;
  far.Start({-kMax - 1, kMax}, {kMax, -kMax - 1}, AnimationKind::kMove);
  int ticks = 0;
  for (; !far.Tick(kMax).value().finished; ++ticks) EXPECT_LT(ticks, kMaxAnimationSteps);
}

constexpr RollSettings kRolls{25, false};
constexpr RollSettings kRollsAside{25, true};

JotletData Note() {
  JotletData note;
  note.x = 10, note.y = 20, note.width = 300, note.height = 400;
  return note;
}

TEST(Rolled, HeightIsTheUnrolledOne) {
  JotletData note = Note();
  EXPECT_EQ(GetJotletHeight(note, 77, kRolls), 77);
  note.rolled = true;
  EXPECT_EQ(GetJotletHeight(note, 25, kRolls), 400);
  EXPECT_EQ(GetJotletHeight(note, 77, {0, false}), 77);  // a skin without a rolled form
  note.height = -1;
  EXPECT_EQ(GetJotletHeight(note, 25, kRolls), std::nullopt);
  EXPECT_EQ(HeightFromContent(100, 12, 22), 134);
  EXPECT_EQ(HeightFromContent(kMax, kMax, kMax), kMax);
}

TEST(Rolled, ItStaysWhereItIsAndKeepsItsHeight) {
  JotletData note = Note();
  StoreBounds(note, {50, 60, 250, 160}, kRolls);
  note.rolled = true;
  EXPECT_EQ(BoundsFor(note, kRolls), (Rect{50, 60, 250, 85}));
  StoreBounds(note, {1, 2, 91, 27}, kRolls);
  EXPECT_EQ(BoundsFor(note, {0, false}), (Rect{1, 2, 91, 102}));
  note.rolled = false;
  EXPECT_EQ(BoundsFor(note, kRolls), (Rect{1, 2, 91, 102}));
  EXPECT_TRUE(note.altX == kNotSet && note.altY == kNotSet && note.altWidth == kNotSet);
}

TEST(Rolled, OrHasAPlaceAndWidthOfItsOwn) {
  JotletData note = Note();
  note.rolled = true;
  EXPECT_EQ(BoundsFor(note, kRollsAside), (Rect{10, 20, 310, 45}));
  StoreBounds(note, {700, 5, 790, 30}, kRollsAside);
  note.rolled = false;
  EXPECT_EQ(BoundsFor(note, kRollsAside), (Rect{10, 20, 310, 420}));
  StoreBounds(note, {11, 21, 311, 421}, kRollsAside);
  note.rolled = true;
  EXPECT_EQ(BoundsFor(note, kRollsAside), (Rect{700, 5, 790, 30}));
  EXPECT_EQ(BoundsFor(note, kRolls), (Rect{11, 21, 311, 46}));
  note.altY = kNotSet, note.altWidth = kNotSet;  // a record that was cut off
  EXPECT_EQ(BoundsFor(note, kRollsAside), (Rect{700, 21, 1000, 46}));
  note.altX = note.altY = kMax;  // a window so far off still has its size
  EXPECT_EQ(BoundsFor(note, kRollsAside), (Rect{kMax - 300, kMax - 25, kMax, kMax}));
}

constexpr TextView kStyle = u"-12|0|0|0|400|0|0|0|0|3|2|1|34|Tahoma|0|0|0|255|0|0";

TEST(TextStyle, HasItsFieldsInTheirOrder) {
  const TextStyle tahoma = ParseTextStyle(kStyle);
  EXPECT_TRUE(tahoma.height == -12 && tahoma.weight == 400 && tahoma.outPrecision == 3);
  EXPECT_TRUE(tahoma.faceName == u"Tahoma" && tahoma.colour == Colour{} && tahoma.others[0] == 255);
  constexpr TextView kEach = u"1|2|3|4|5|6|7|8|9|10|11|12|13|A face|14|15|16|17|18|19";
  for (const TextView text : {kStyle, kEach}) EXPECT_EQ(ComposeTextStyle(ParseTextStyle(text)), text);
  const TextStyle each = ParseTextStyle(kEach);
  EXPECT_TRUE(each.orientation == 4 && each.italic == 6 && each.charSet == 9 && each.pitchAndFamily == 13);
  EXPECT_TRUE(each.colour == (Colour{14, 15, 16}) && each.others == (std::array{17, 18, 19}));
  const Text named = ReplaceAll(u"STYLE|Done & gone|105|66051|2|400|60|20", u"STYLE", kStyle);
  const TextStyle done = ParseTextStyle(named);
  EXPECT_EQ(ComposeTextStyle(done), named);
  EXPECT_TRUE(done.name == u"Done & gone" && done.points10 == 105 && done.back == (Colour{3, 2, 1}));
  EXPECT_EQ(done.paragraphs, (ParagraphStyle{Alignment::kRight, 400, 60, 20}));
  EXPECT_EQ(Points10Of(tahoma), 90);
  EXPECT_EQ(Points10Of(done), 105);
}

TEST(TextStyle, MakesSomethingOfAnyText) {
  EXPECT_TRUE(!ParseTextStyle(u"").IsSet() && ParseTextStyle(u"") == TextStyle());
  const TextStyle odd = ParseTextStyle(u"-9999999999|||x|9999|-1|300|||||||Cour\nier|-5|999|7||1|2|3|4");
  EXPECT_EQ(ComposeTextStyle(odd), u"-32767|0|0|0|1000|0|255|0|0|0|0|0|0|Courier|0|255|7|0|1|2|3|4|||||");
  TextStyle named;
  named.faceName = u"a|b\r" + Text(50, u'x');
  EXPECT_EQ(ParseTextStyle(ComposeTextStyle(named)).faceName, u"ab" + Text(29, u'x'));
  Random random(1);
  for (int i = 0; i < 2000; ++i) {
    const TextStyle style = ParseTextStyle(random.Pick(u"0129-|||x\n", 60));
    EXPECT_EQ(ParseTextStyle(ComposeTextStyle(style)), style);
  }
}

TEST(TextStyle, IsKeptUnderTenNumbers) {
  Options options;
  EXPECT_FALSE(SavedTextStyle(options, 0).IsSet());
  options.styles.resize(10);
  options.styles[9] = kStyle;
  EXPECT_EQ(SavedTextStyle(options, 9), ParseTextStyle(kStyle));
  EXPECT_FALSE(SavedTextStyle(options, 8).IsSet());
  const std::array<Text, 6> names = {u"Heading", u"Small", u"Code", u"Highlight", u"Warning", u"Done"};
  options.styles = FirstTextStyles(names);
  options.styles.resize(8);
  options.styles[7] = kStyle;
  EXPECT_EQ(StyleNames(options)[5], u"Done");
  EXPECT_EQ(StyleNames(options)[6], u"");
  EXPECT_EQ(StyleNames(options)[7], u"Tahoma 9");
  EXPECT_EQ(FindTextStyle(options, u"HEADING"), 0u);
  EXPECT_EQ(FindTextStyle(options, u"style07"), 7u);
  for (const TextView none : {u"Style06", u"Style0x", u"", u"Other"})
    EXPECT_EQ(FindTextStyle(options, none), kTextStyles) << ToUtf8(none);
}

TEST(HoverFade, ComesSoftlyAndGoesAfterARest) {
  HoverFade fade;
  fade.Set(true, true, 1000);
  EXPECT_TRUE(fade.IsShown(1000) && fade.Strength(1000) == 0 && fade.IsMoving(1000));
  EXPECT_EQ(fade.Strength(1060), 127);
  fade.Set(true, true, 1060);
  EXPECT_EQ(fade.Strength(1120), 255);
  EXPECT_FALSE(fade.IsMoving(1120));
  fade.Set(false, true, 2000);
  EXPECT_EQ(fade.Strength(2150), 255) << "a mouse that passes over a neighbour leaves no flicker";
  EXPECT_TRUE(fade.IsShown(2349) && fade.IsMoving(2349));
  EXPECT_FALSE(fade.IsShown(2350) || fade.IsMoving(2350));
  // Back in the middle of its way it goes on from there.
  fade.Set(true, true, 3000);
  fade.Set(false, true, 3120);
  fade.Set(true, true, 3370);
  EXPECT_EQ(fade.Strength(3370), 128);
  fade.Set(false, false, 4000);
  EXPECT_FALSE(fade.IsShown(4000)) << "nothing moves";
}

TEST(ShadowShape, ShowsTheEdgesOfSheetsBelowAndNothingUnderTheWindow) {
  const Colour upper{200, 100, 50};
  const Colour lower{10, 20, 30};
  const ShadowCaster plain{{60, 40}, 4};
  ShadowCaster stack = plain;
  stack.sheets = {upper, lower};
  const Rect bounds = ShadowBounds({0, 0}, plain);
  EXPECT_EQ(ShadowBounds({0, 0}, stack), bounds);
  const auto pixels = ShadowPixels(stack);
  const auto without = ShadowPixels(plain);
  const auto at = [&bounds](const std::vector<std::uint8_t>& of, Point place) {
    const std::size_t first =
        static_cast<std::size_t>((place.y - bounds.top) * bounds.Width() + place.x - bounds.left) * 4;
    return std::array{of[first + 2], of[first + 1], of[first], of[first + 3]};
  };
  using Pixel = std::array<std::uint8_t, 4>;
  EXPECT_EQ(at(pixels, {30, 41}), (Pixel{200, 100, 50, 255}));
  EXPECT_EQ(at(pixels, {30, 47}), (Pixel{10, 20, 30, 255}));
  EXPECT_EQ(at(pixels, {7, 47}), at(without, {7, 47})) << "the lower one is narrower";
  EXPECT_EQ(at(pixels, {30, 51}), at(without, {30, 51}));
  for (std::int32_t y = -8; y < 40; ++y)
    for (std::int32_t x = -8; x < 68; ++x)
      EXPECT_EQ(at(pixels, {x, y}), at(without, {x, y})) << x << "," << y;
}

}  // namespace
}  // namespace jotlets
