#include "picture/drawn_object.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "some_pictures.h"

namespace jotlets {
namespace {

const BlockLetters kLetters;
constexpr Colour kBlack{};

Picture Drawn(const DrawnObject& object, Size size) {
  Picture picture = WhitePicture(size);
  Draw(object, kLetters, picture);
  return picture;
}

// How many pixels are covered, parts of them counted as such.
double Area(const Picture& picture) {
  double sum = 0;
  for (std::size_t at = 0; at < picture.pixels.size(); at += 4) sum += (255 - picture.pixels[at]) / 255.0;
  return sum;
}

std::string Art(const Picture& picture) {
  std::string art;
  for (int y = 0; y < picture.size.height; ++y) {
    for (int x = 0; x < picture.size.width; ++x) art += "#+-."[PixelPlace(picture, x, y)[0] * 3 / 255];
    art += '\n';
  }
  return art;
}

TEST(ObjectDrawing, PutsShapesOnTheirPixels) {
  EXPECT_EQ(Art(Drawn(ObjectOf(ObjectKind::kLine, {{1.5, 1.5}, {5.5, 1.5}}, kBlack, 1), {7, 3})),
            ".......\n"
            ".#####.\n"
            ".......\n");
  EXPECT_EQ(Art(Drawn(ObjectOf(ObjectKind::kRectangle, {{5.5, 4.5}, {1.5, 1.5}}, kBlack, 1), {7, 6})),
            ".......\n"
            ".#####.\n"
            ".#...#.\n"
            ".#...#.\n"
            ".#####.\n"
            ".......\n");
  DrawnObject disc = ObjectOf(ObjectKind::kEllipse, {{0, 0}, {6, 6}});
  disc.filled = true;
  EXPECT_EQ(Art(Drawn(disc, {6, 6})),
            "-+##+-\n"
            "+####+\n"
            "######\n"
            "######\n"
            "+####+\n"
            "-+##+-\n");
  EXPECT_EQ(Art(Drawn(ObjectOf(ObjectKind::kArrow, {{0, 4.5}, {15, 4.5}}, kBlack, 1), {15, 9})),
            "......#-.......\n"
            "......###-.....\n"
            "......#####-...\n"
            "......#######-.\n"
            "##############+\n"
            "......#######-.\n"
            "......#####-...\n"
            "......###-.....\n"
            "......#-.......\n");
  // A redaction covers every pixel that it touches.
  EXPECT_EQ(Art(Drawn(ObjectOf(ObjectKind::kRedaction, {{1.9, 1.1}, {2.1, 1.2}}), {4, 3})),
            "....\n"
            ".##.\n"
            "....\n");
}

TEST(ObjectDrawing, CoversAsMuchAsTheShapesMeasure) {
  constexpr Size kSize{120, 120};
  constexpr double kPi = std::numbers::pi;
  for (const double angle : {0.0, 0.3, 1.0, 2.0, 4.0}) {
    const Spot from{60.3, 59.8};
    const Spot to{from.x + 40 * std::cos(angle), from.y + 40 * std::sin(angle)};
    for (const double width : {1.0, 3.0, 21.0}) {
      const double expected = 40 * width + kPi * width * width / 4;
      // Going there and back again covers nothing twice.
      EXPECT_NEAR(Area(Drawn(ObjectOf(ObjectKind::kLine, {from, to}, kBlack, width), kSize)), expected,
                  expected / 50);
      EXPECT_NEAR(Area(Drawn(ObjectOf(ObjectKind::kPen, {from, to, from, to}, kBlack, width), kSize)),
                  expected, expected / 50 + 4);
    }
  }
  DrawnObject ellipse = ObjectOf(ObjectKind::kEllipse, {{10.4, 20.3}, {90.4, 70.3}}, kBlack, 5);
  EXPECT_NEAR(Area(Drawn(ellipse, kSize)), kPi * (42.5 * 27.5 - 37.5 * 22.5), 16);
  ellipse.filled = true;
  EXPECT_NEAR(Area(Drawn(ellipse, kSize)), kPi * 40 * 25, 8);
  DrawnObject soft = ObjectOf(ObjectKind::kPen, {{20, 60}, {60, 60}, {100, 60}}, kBlack, 20);
  for (StrokePoint& point : soft.points) point.pressure = 0.5;
  EXPECT_NEAR(Area(Drawn(soft, kSize)), 80 * 10 + kPi * 25, 8);
}

TEST(ObjectDrawing, OfEraserAndHighlighterChangeWhatIsThere) {
  Picture picture = WhitePicture({9, 3});
  StorePixel(PixelPlace(picture, 4, 1), 0xFF000000);
  StorePixel(PixelPlace(picture, 5, 1), 0);
  Draw(ObjectOf(ObjectKind::kHighlighter, {{-9, 1.5}, {19, 1.5}}, {255, 255, 0}, 1), kLetters, picture);
  EXPECT_EQ(PixelIn(picture, 3, 1), 0xFFFFFF00);
  EXPECT_EQ(PixelIn(picture, 4, 1), 0xFF000000);
  EXPECT_EQ(PixelIn(picture, 5, 1), 0x80808000);
  EXPECT_EQ(PixelIn(picture, 3, 0), 0xFFFFFFFF);
  Draw(ObjectOf(ObjectKind::kEraser, {{-9, 2}, {19, 2}}, {}, 1), kLetters, picture);
  EXPECT_EQ(PixelIn(picture, 3, 1), 0x7F7F7F00);
  EXPECT_EQ(PixelIn(picture, 3, 2), 0x7F7F7F7F);
}

TEST(ObjectDrawing, StaysInItsBoundsAndIsTheSameInParts) {
  std::mt19937 random(6);
  for (int round = 0; round < 1500; ++round) {
    const Picture before = RandomPicture(random, {50, 40});
    DrawnObject object = RandomObject(random, before.size);
    FitLetters(object, kLetters);
    Picture whole = before;
    Draw(object, kLetters, whole);
    ExpectSound(whole);
    const Rect bounds = BoundsOf(object);
    for (int y = 0; y < 40; ++y)
      for (int x = 0; x < 50; ++x)
        ASSERT_TRUE(bounds.Contains({x, y}) || PixelIn(whole, x, y) == PixelIn(before, x, y))
            << static_cast<int>(object.kind);
    const Rect area = CommonPart(RandomArea(random, before.size), WholeOf(before.size));
    Picture part = PartOf(before, area);
    Draw(object, kLetters, part, area.TopLeft());
    ASSERT_EQ(part.pixels, PartOf(whole, area).pixels) << static_cast<int>(object.kind);
    // A place is hit where something opaque is drawn.
    for (int i = 0; i < 20; ++i) {
      const int x = static_cast<int>(random() % 50), y = static_cast<int>(random() % 40);
      if (object.kind != ObjectKind::kArrow && object.kind != ObjectKind::kText &&
          object.kind != ObjectKind::kStep && PixelIn(whole, x, y) != PixelIn(before, x, y)) {
        ASSERT_TRUE(IsHit(object, {x + 0.5, y + 0.5}, object.width + 1)) << static_cast<int>(object.kind);
      }
    }
    ASSERT_FALSE(IsHit(object, {bounds.left - 60.0, bounds.top - 60.0}, 10));
  }
}

TEST(ObjectDrawing, OfWhatCannotBeDrawnDoesNothing) {
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double bad : {infinite, -infinite, std::nan(""), 1e30}) {
    for (std::size_t kind = 0; kind < kObjectKinds; ++kind) {
      const auto object = ObjectOf(static_cast<ObjectKind>(kind), {{bad, 1}, {3, 2}});
      EXPECT_EQ(Area(Drawn(object, {9, 9})), 0);
      EXPECT_FALSE(IsDrawable(object));
    }
  }
  const auto far = ObjectOf(ObjectKind::kLine, {{-9e6, 4.5}, {9e6, 4.5}}, kBlack, 1);
  EXPECT_EQ(Art(Drawn(far, {3, 6})), "...\n...\n...\n...\n###\n...\n");
}

TEST(Objects, AreTurnedAndScaledAsThePicture) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    const Size size{50, 40};
    DrawnObject object = RandomObject(random, size);
    FitLetters(object, kLetters);
    const auto orientation = static_cast<Orientation>(1 + random() % 8);
    const Picture before = Drawn(object, size);
    DrawnObject turned = object;
    Orient(turned, size, orientation);
    const Picture expected = Oriented(before, orientation);
    const Picture after = Drawn(turned, expected.size);
    int different = 0;
    // Letters stand on whole pixels, and lines are looked at in rows.
    for (std::size_t at = 0; at < after.pixels.size(); ++at)
      different += std::abs(after.pixels[at] - expected.pixels[at]) > 40;
    if (object.kind != ObjectKind::kText && object.kind != ObjectKind::kStep) {
      ASSERT_EQ(different, 0) << static_cast<int>(object.kind);
    }
    Orient(turned, expected.size, Inverse(orientation));
    ASSERT_EQ(turned, object);
    Scale(object, 2);
    ASSERT_LE(BoundsOf(object).right, 2 * BoundsOf(turned).right + 2);
  }
}

TEST(Objects, AreResizedByTheirHandles) {
  DrawnObject box = ObjectOf(ObjectKind::kRectangle, {{10, 10}, {30, 50}});
  EXPECT_EQ(HandleAt(box, {31, 49}, 3), Handle::kBottomRight);
  EXPECT_EQ(HandleAt(box, {20, 11}, 3), Handle::kTop);
  EXPECT_EQ(HandleAt(box, {20, 30}, 3), std::nullopt);
  DragHandle(box, Handle::kBottomRight, {5, 70});
  EXPECT_EQ(box.points[1].place, (Spot{5, 70}));
  DragHandle(box, Handle::kTop, {99, 0});
  EXPECT_EQ(BoxOf(box).top, 0);
  EXPECT_EQ(BoxOf(box).left, 5);
  DrawnObject arrow = ObjectOf(ObjectKind::kArrow, {{0, 0}, {10, 10}});
  EXPECT_EQ(HandleAt(arrow, {10, 10}, 2), Handle::kLeft);
  DragHandle(arrow, Handle::kLeft, {20, 5});
  EXPECT_EQ(arrow, ObjectOf(ObjectKind::kArrow, {{0, 0}, {20, 5}}));
  DrawnObject pen = ObjectOf(ObjectKind::kPen, {{0, 0}, {5, 10}, {10, 20}});
  DragHandle(pen, Handle::kRight, {20, 0});
  EXPECT_EQ(pen.points[1].place, (Spot{10, 10}));
  DrawnObject flat = ObjectOf(ObjectKind::kPen, {{0, 7}, {5, 7}, {10, 7}});
  DragHandle(flat, Handle::kBottom, {0, 20});
  EXPECT_EQ(flat.points[2].place.x, 10);
  EXPECT_FALSE(HandleAt(ObjectOf(ObjectKind::kText, {{0, 0}, {9, 9}}), {0, 0}, 5));
}

TEST(Strokes, AreSmoothedFromTheLastPointsOnOnly) {
  std::vector<StrokePoint> points;
  std::vector<StrokePoint> before;
  std::mt19937 random(8);
  for (int i = 0; i < 50; ++i) {
    points.push_back({{static_cast<double>(random() % 100), static_cast<double>(random() % 100)}});
    const auto smooth = Smoothed(points);
    ASSERT_EQ(smooth.front(), points.front());
    ASSERT_EQ(smooth.back(), points.back());
    // Up to the middle of the last two pieces of before, all stays.
    std::size_t same = 0;
    while (same < std::min(before.size(), smooth.size()) && before[same] == smooth[same]) ++same;
    ASSERT_GE(same + 49, before.size());
    before = smooth;
  }
}

}  // namespace
}  // namespace jotlets
