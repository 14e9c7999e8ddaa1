#include "picture/effects.h"

#include <gtest/gtest.h>

#include <cmath>

#include "picture/flood_fill.h"
#include "picture/orientation.h"
#include "picture/picture_sizing.h"
#include "picture/resizing.h"
#include "some_pictures.h"

namespace jotlets {
namespace {

using Channels = std::array<int, 4>;

Channels At(const Picture& picture, int x, int y) {
  const std::uint8_t* pixel = PixelPlace(picture, x, y);
  return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

// One mean along a direction, one pixel after the other.
Picture SlowMean(const Picture& from, const Rect& area, int radius, Point direction) {
  Picture to = from;
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      Channels sums{};
      for (int i = -radius; i <= radius; ++i) {
        const Channels one = At(from, std::clamp(x + i * direction.x, area.left, area.right - 1),
                                std::clamp(y + i * direction.y, area.top, area.bottom - 1));
        for (std::size_t c = 0; c < 4; ++c) sums[c] += one[c];
      }
      for (std::size_t c = 0; c < 4; ++c)
        PixelPlace(to, x, y)[c] = static_cast<std::uint8_t>((sums[c] + radius) / (2 * radius + 1));
    }
  }
  return to;
}

Picture SlowBlur(Picture picture, const Rect& area, int radius) {
  for (const Point direction : {Point{1, 0}, Point{0, 1}})
    for (int i = 0; i < 3; ++i) picture = SlowMean(picture, area, (radius + i) / 3, direction);
  return picture;
}

Channels SlowPixel(const Picture& from, const Rect& area, const Effect& effect, int x, int y) {
  const Channels own = At(from, x, y);
  switch (effect.kind) {
    case EffectKind::kMirror: return At(from, area.left + area.right - 1 - x, y);
    case EffectKind::kFlip: return At(from, x, area.top + area.bottom - 1 - y);
    case EffectKind::kNegative: return {own[3] - own[0], own[3] - own[1], own[3] - own[2], own[3]};
    case EffectKind::kGrey: {
      const int grey = static_cast<int>(std::floor((29 * own[0] + 150 * own[1] + 77 * own[2]) / 256.0 + 0.5));
      return {grey, grey, grey, own[3]};
    }
    default: break;
  }
  const int inside =
      std::min(std::min(x - area.left, area.right - 1 - x), std::min(y - area.top, area.bottom - 1 - y));
  return inside < effect.strength ? Channels{effect.colour.b, effect.colour.g, effect.colour.r, 255} : own;
}

TEST(Effects, AreThoseOfASlowLoop) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    const Picture before = RandomPicture(random);
    const Rect wanted = RandomArea(random, before.size);
    const Rect area = CommonPart(wanted, WholeOf(before.size));
    const Effect effect{static_cast<EffectKind>(random() % 6), static_cast<int>(random() % 9), {10, 20, 30}};
    Picture after = before;
    ASSERT_TRUE(ApplyEffect(after, wanted, effect));
    ExpectSound(after);
    Picture slow = before;
    if (effect.kind == EffectKind::kBlur && !IsEmptyRect(area)) {
      slow = SlowBlur(slow, area, effect.strength);
    } else {
      for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
          for (std::size_t c = 0; c < 4; ++c)
            PixelPlace(slow, x, y)[c] = static_cast<std::uint8_t>(SlowPixel(before, area, effect, x, y)[c]);
    }
    ASSERT_EQ(after.pixels, slow.pixels) << round << ' ' << static_cast<int>(effect.kind);
  }
}

TEST(Effects, BlurReachesAsFarAsItsRadiusAndNoFarther) {
  for (const int radius : {1, 2, 5, 30, 1000}) {
    Picture picture = WhitePicture({101, 1});
    StorePixel(PixelPlace(picture, 50, 0), 0xFF000000);
    ApplyEffect(picture, WholeOf(picture.size), {EffectKind::kBlur, radius});
    int first = 0;
    while (first < 50 && PixelIn(picture, first, 0) == 0xFFFFFFFF) ++first;
    // A black pixel that is spread over very many shows nowhere.
    if (radius > 20)
      EXPECT_GT(PixelIn(picture, 50, 0), 0xFFF00000);
    else
      EXPECT_EQ(first, 50 - radius);
  }
}

TEST(Effects, JitterFetchesFromNearbyTheSameForTheSameSeed) {
  Picture places = BlankPicture({90, 70});
  for (int y = 0; y < 70; ++y)
    for (int x = 0; x < 90; ++x)
      StorePixel(PixelPlace(places, x, y), 0xFF000000 | static_cast<Pixel>(y << 8 | x));
  const Rect area{10, 10, 80, 60};
  const auto jittered = [&](std::uint32_t seed) {
    Picture picture = places;
    ApplyEffect(picture, area, {EffectKind::kJitter, 3, {}, seed});
    return picture;
  };
  const Picture one = jittered(1);
  int moved = 0;
  Point greatest;
  for (int y = 0; y < 70; ++y) {
    for (int x = 0; x < 90; ++x) {
      const Channels from = At(one, x, y);
      const Point by{std::abs(from[0] - x), std::abs(from[1] - y)};
      moved += by != Point{};
      greatest = {std::max(greatest.x, by.x), std::max(greatest.y, by.y)};
      ASSERT_TRUE(area.Contains({x, y}) ? area.Contains({from[0], from[1]}) : by == Point{});
    }
  }
  EXPECT_EQ(greatest, (Point{3, 3}));
  EXPECT_GT(moved, 50 * 70 * 9 / 10);
  EXPECT_EQ(jittered(1).pixels, one.pixels);
  EXPECT_NE(jittered(2).pixels, one.pixels);
}

TEST(Effects, EndWhenTheyAreCancelled) {
  Picture picture = WhitePicture({200, 200});
  int asked = 0;
  const auto cancelled = [&] { return ++asked == 2; };
  EXPECT_FALSE(ApplyEffect(picture, WholeOf(picture.size), {EffectKind::kBlur, 5}, cancelled));
  EXPECT_EQ(asked, 2);
  EXPECT_FALSE(ApplyEffect(picture, WholeOf(picture.size), {EffectKind::kJitter, 5}, [] { return true; }));
  EXPECT_TRUE(Resized(picture, {50, 50}, [] { return true; }).pixels.empty());
  EXPECT_TRUE(FloodedPixels(picture, {3, 3}, 0, [] { return true; }).members.empty());
}

TEST(Orientations, MoveEveryPixelToItsPlaceAndMakeAGroup) {
  std::mt19937 random(2);
  for (int first = 1; first <= 8; ++first) {
    const auto one = static_cast<Orientation>(first);
    const Picture picture = RandomPicture(random, {37, 70});
    const Picture turned = Oriented(picture, one);
    ASSERT_EQ(turned.size, Oriented(picture.size, one));
    for (int y = 0; y < 70; ++y) {
      for (int x = 0; x < 37; ++x) {
        const Spot spot = Oriented(Spot{x + 0.5, y + 0.5}, picture.size, one);
        ASSERT_EQ(PixelIn(turned, static_cast<int>(spot.x), static_cast<int>(spot.y)),
                  PixelIn(picture, x, y));
      }
    }
    EXPECT_EQ(Oriented(turned, Inverse(one)).pixels, picture.pixels);
    EXPECT_EQ(PartOf(turned, Oriented(Rect{3, 5, 20, 30}, picture.size, one)).pixels,
              Oriented(PartOf(picture, {3, 5, 20, 30}), one).pixels);
    for (int second = 1; second <= 8; ++second) {
      const auto other = static_cast<Orientation>(second);
      EXPECT_EQ(Oriented(turned, other).pixels, Oriented(picture, Combined(one, other)).pixels);
    }
  }
  // The corner at the top left of a photograph that was taken with the camera turned left gets to the top
  // right.
  EXPECT_EQ(Oriented(Spot{0, 0}, {4, 2}, Orientation::kTurnedRight), (Spot{2, 0}));
}

TEST(Resizing, KeepsPlainColoursMeansAndThePlaceOfThings) {
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    Picture picture = RandomPicture(random);
    const Size size = RandomPicture(random).size;
    const Picture resized = Resized(picture, size);
    ASSERT_EQ(resized.size, size);
    ExpectSound(resized);
    for (std::size_t at = 0; at < picture.pixels.size(); ++at) picture.pixels[at] = at % 4 == 3 ? 200 : 100;
    for (const std::uint8_t byte : Resized(picture, size).pixels) ASSERT_TRUE(byte == 200 || byte == 100);
  }
  Picture halves = WhitePicture({60, 60});
  FillArea(halves, {0, 0, 30, 60}, {0, 0, 0});
  for (const Size size : {Size{20, 20}, {180, 180}, {7, 90}}) {
    const Picture resized = Resized(halves, size);
    double sum = 0;
    for (int x = 0; x < size.width; ++x) sum += At(resized, x, 3)[0] / 255.0;
    EXPECT_NEAR(sum, size.width / 2.0, 0.02 * size.width);
    EXPECT_EQ(PixelIn(resized, size.width - 1, 0), 0xFFFFFFFF);
    EXPECT_EQ(PixelIn(resized, 0, 0), 0xFF000000);
  }
  EXPECT_TRUE(Resized(halves, {0, 5}).pixels.empty());
  EXPECT_TRUE(Resized(halves, {100'000, 100'000}).pixels.empty());
}

TEST(FloodFill, ReachesWhatASlowSearchReaches) {
  std::mt19937 random(4);
  for (int round = 0; round < 200; ++round) {
    Picture picture = RandomPicture(random, 24);
    for (std::uint8_t& byte : picture.pixels) byte = byte < 140 ? 100 : byte < 200 ? 110 : 255;
    const Size size = picture.size;
    const Point start{static_cast<int>(random() % static_cast<unsigned>(size.width)),
                      static_cast<int>(random() % static_cast<unsigned>(size.height))};
    const int tolerance = random() % 2 == 0 ? 0 : 10;
    const Channels wanted = At(picture, start.x, start.y);
    std::vector<bool> reached(picture.pixels.size() / 4);
    std::vector<Point> open{start};
    while (!open.empty()) {
      const Point at = open.back();
      open.pop_back();
      if (!WholeOf(size).Contains(at)) continue;
      const auto index = static_cast<std::size_t>(at.y * size.width + at.x);
      const Channels here = At(picture, at.x, at.y);
      bool near = !reached[index];
      for (std::size_t c = 0; c < 4; ++c) near = near && std::abs(here[c] - wanted[c]) <= tolerance;
      if (!near) continue;
      reached[index] = true;
      open.insert(open.end(), {{at.x + 1, at.y}, {at.x - 1, at.y}, {at.x, at.y + 1}, {at.x, at.y - 1}});
    }
    const PixelSet flooded = FloodedPixels(picture, start, tolerance);
    ASSERT_EQ(flooded.members, reached) << round;
    FillPixels(picture, flooded, {1, 2, 3});
    for (std::size_t i = 0; i < reached.size(); ++i)
      ASSERT_EQ(reached[i], LoadPixel(picture.pixels.data() + i * 4) == 0xFF010203);
  }
  EXPECT_TRUE(FloodedPixels(WhitePicture({3, 3}), {3, 0}, 0).members.empty());
}

TEST(Pixels, ChangeTheirFormAndPlaceWithoutLoss) {
  StraightPicture straight{{256, 2}, BlankPicture({256, 2}).pixels};
  for (std::size_t i = 0; i < 512; ++i)
    StorePixel(straight.pixels.data() + i * 4,
               static_cast<Pixel>(i < 256 ? 0xFF000000 | i * 0x010101 : 0x80000000 | i));
  const StraightPicture back = Straight(Premultiplied(straight));
  for (std::size_t i = 0; i < straight.pixels.size(); ++i)
    ASSERT_LE(std::abs(back.pixels[i] - straight.pixels[i]), i < 1024 ? 0 : 1);
  for (const Size size :
       {Size{0, 1}, {1, 0}, {-5, -5}, {100'000, 100'000}, {8192, 8193}, {2147483647, 2147483647}})
    EXPECT_TRUE(BlankPicture(size).pixels.empty());
  std::mt19937 random(5);
  for (int round = 0; round < 100; ++round) {
    const Picture picture = RandomPicture(random);
    const Rect area = RandomArea(random, picture.size);
    Picture cleared = picture;
    ClearArea(cleared, area);
    const Rect part = CommonPart(area, WholeOf(picture.size));
    PutPart(cleared, part.TopLeft(), PartOf(picture, area));
    ASSERT_EQ(cleared.pixels, picture.pixels);
    for (std::uint32_t under : {0xFF00FF80U, 0x80402010U, 0U})
      for (std::uint32_t coverage = 0; coverage < 256; coverage += 51) {
        const Pixel over = PremultipliedPixel({255, 100, 3}, static_cast<std::uint8_t>(random()));
        const Pixel blended = Blended(under, over, coverage);
        for (int shift = 0; shift < 32; shift += 8) {
          const double part255 = ((over >> shift) & 255) * coverage / 255.0;
          const double keep = 1 - (over >> 24) * coverage / 255.0 / 255.0;
          ASSERT_NEAR((blended >> shift) & 255, part255 + ((under >> shift) & 255) * keep, 1.1);
        }
      }
  }
  EXPECT_EQ(ColourAt(WhitePicture({2, 2}), {1, 1}), (Colour{255, 255, 255}));
  EXPECT_FALSE(ColourAt(WhitePicture({2, 2}), {2, 1}) || ColourAt(BlankPicture({2, 2}), {1, 1}));
}

TEST(PictureSizing, LetsOneNumberFollowTheOtherInPixelsAndPercent) {
  PictureSizing sizing({400, 300}, SizeUnit::kPixels, true);
  sizing.SetWidth(200);
  EXPECT_EQ(sizing.Height(), 150);
  sizing.SetUnit(SizeUnit::kPercent);
  EXPECT_EQ(sizing.Width(), 50);
  sizing.SetHeight(33);
  EXPECT_EQ(sizing.Wanted(), (Size{132, 99}));
  EXPECT_EQ(sizing.Width(), 33);
  sizing.SetKeepsAspect(false);
  sizing.SetHeight(200);
  EXPECT_EQ(sizing.Wanted(), (Size{132, 600}));
  sizing.SetKeepsAspect(true);
  EXPECT_EQ(sizing.Wanted(), (Size{132, 99}));
  PictureSizing narrow({1, 20000}, SizeUnit::kPixels, true);
  narrow.SetHeight(10);
  EXPECT_EQ(narrow.Wanted(), (Size{1, 10})) << "never less than a pixel";
  narrow.SetWidth(2);
  EXPECT_EQ(narrow.Wanted(), std::nullopt) << "too high";
  for (const std::int32_t none : {0, -5, 2'000'000'000}) {
    sizing.SetUnit(SizeUnit::kPercent);
    sizing.SetWidth(none);
    EXPECT_EQ(sizing.Wanted(), std::nullopt) << none;
  }
}

}  // namespace
}  // namespace jotlets
