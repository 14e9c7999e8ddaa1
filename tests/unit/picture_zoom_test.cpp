#include "picture/picture_zoom.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

// What of the picture is at a place of the window, in its pixels.
double PixelAt(std::int32_t at, std::int32_t begin, std::int32_t length, std::int32_t pixels) {
  return (at - begin) * static_cast<double>(pixels) / length;
}

TEST(PictureZoom, KeepsWhatIsUnderTheMouseAndLeavesNoGap) {
  const PictureFrame frame{{1600, 1000}, {10, 30, 330, 230}, 96};
  const Point at{90, 150};
  PictureZoom zoom;
  const Rect fitted = zoom.Place(frame);
  const double x = PixelAt(at.x, fitted.left, fitted.Width(), 1600);
  const double y = PixelAt(at.y, fitted.top, fitted.Height(), 1000);
  std::int32_t width = fitted.Width();
  for (int step = 0; step < 20; ++step) {
    zoom.Step(1, at, frame);
    const Rect place = zoom.Place(frame);
    EXPECT_TRUE(step > 12 || place.Width() > width);
    width = place.Width();
    EXPECT_NEAR(PixelAt(at.x, place.left, place.Width(), 1600), x, 6);
    EXPECT_NEAR(PixelAt(at.y, place.top, place.Height(), 1000), y, 6);
    EXPECT_EQ(CommonPart(place, frame.area), frame.area);
  }
  EXPECT_EQ(zoom.Percent(), 1600);

  EXPECT_TRUE(zoom.Scroll({-1'000'000, 1'000'000}, frame));
  EXPECT_EQ(zoom.Place(frame).left, frame.area.left);
  EXPECT_EQ(zoom.Place(frame).bottom, frame.area.bottom);
  EXPECT_FALSE(zoom.Scroll({-1, 1}, frame));

  // Smaller than the area it stands in the middle, and has nothing to scroll.
  for (int step = 0; step < 30; ++step) zoom.Step(-1, at, frame);
  EXPECT_EQ(zoom.Place(frame), (Rect{130, 105, 210, 155}));
  EXPECT_FALSE(zoom.Scroll({5, 5}, frame));
  zoom.Fit();
  EXPECT_EQ(zoom.Place(frame), fitted);
}

TEST(PictureZoom, FollowsTheScaleAndEverySizeOfPicture) {
  PictureZoom zoom;
  const PictureFrame twice{{300, 200}, {0, 0, 200, 100}, 192};
  zoom.Set(PictureZoom::kWhole, {0, 0}, twice);
  EXPECT_EQ(zoom.Place(twice), (Rect{0, 0, 600, 400}));

  for (const Size size : {Size{1, 1'000'000}, Size{1'000'000, 64}, Size{1, 1}, Size{0, 0}}) {
    const PictureFrame frame{size, {0, 0, 200, 100}, 480};
    for (const std::int32_t steps : {1, 1, 5, 100, -3, -100}) {
      zoom.Step(steps, {150, 99}, frame);
      const Rect seen = PartSeen(size, zoom.Place(frame), frame.area);
      EXPECT_EQ(CommonPart(seen, WholeOf(size)), seen);
    }
  }
}

TEST(PictureZoom, APartThatIsSeenCoversAllThatIsSeen) {
  const Size picture{1600, 1000};
  for (const Rect& place : {Rect{-3000, -100, 13000, 9900}, Rect{7, 9, 87, 59}, Rect{-5, 0, 4795, 3000}}) {
    const Rect seen{0, 0, 64, 48};
    const Rect part = PartSeen(picture, place, seen);
    const Rect shown = PlacedIn(picture, part, place);
    EXPECT_EQ(CommonPart(shown, CommonPart(place, seen)), CommonPart(place, seen));
    EXPECT_LE(shown.Width(), 64 + 3 * (place.Width() / picture.width + 1));
  }
}

}  // namespace
}  // namespace jotlets
