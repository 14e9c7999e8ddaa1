#include "picture/picture_tool.h"

#include <gtest/gtest.h>

#include <cmath>

#include "some_pictures.h"

namespace jotlets {
namespace {

constexpr std::uint16_t kEsc = 0x1B;

class PictureTools : public ::testing::Test {
 protected:
  ToolAnswer Drag(Spot from, Spot to, Pointer held = {}) {
    held.place = from;
    tool.Down(held);
    held.place = {(from.x + to.x) / 2, (from.y + to.y) / 2};
    tool.Move(held);
    held.place = to;
    tool.Move(held);
    return tool.Up(held);
  }
  const DrawnObject& Last() const { return document.Objects().back(); }
  Box LastBox() const { return BoxOf(Last()); }

  BlockLetters letters;
  PictureDocument document{{WhitePicture({100, 80}), {}}, letters, 50};
  PictureTool tool{document};
};

bool Near(Spot a, Spot b) { return std::hypot(a.x - b.x, a.y - b.y) < 1e-6; }

TEST_F(PictureTools, DrawWhatIsDraggedWithShiftAndCtrl) {
  tool.Choose(Tool::kRectangle);
  Drag({10, 10}, {30, 20});
  EXPECT_EQ(Last().points[1].place, (Spot{30, 20}));
  Drag({50, 40}, {40, 36}, {{}, 1, true});
  EXPECT_EQ(Last().points[1].place, (Spot{40, 30}));
  Drag({50, 40}, {60, 45}, {{}, 1, false, true});
  EXPECT_EQ(Last().points[0].place, (Spot{40, 35}));
  Drag({50, 40}, {60, 45}, {{}, 1, true, true});
  EXPECT_EQ(LastBox().top, 30);
  tool.Choose(Tool::kArrow);
  Drag({10, 10}, {30, 11}, {{}, 1, true});
  EXPECT_NEAR(Last().points[1].place.y, 10, 1e-9);
  Drag({10, 10}, {30, 27}, {{}, 1, true});
  EXPECT_NEAR(Last().points[1].place.x - 10, Last().points[1].place.y - 10, 1e-9);
  const std::size_t count = document.Objects().size();
  Drag({10, 10}, {10, 10});
  EXPECT_EQ(document.Objects().size(), count);
  tool.Choose(Tool::kPen);
  Drag({10, 10}, {10, 10}, {{}, 0.5});
  ASSERT_EQ(document.Objects().size(), count + 1);
  EXPECT_EQ(Last().points, (std::vector<StrokePoint>{{{10, 10}, 0.5}}));
}

TEST_F(PictureTools, AnswerAllThatLooksDifferent) {
  std::mt19937 random(10);
  Picture shown = document.Composed();
  const auto place = [&] {
    return Spot{static_cast<double>(random() % 100), static_cast<double>(random() % 80)};
  };
  for (int i = 0; i < 800; ++i) {
    ToolAnswer answer;
    Pointer pointer{place(), 0.5, random() % 3 == 0, random() % 3 == 0};
    constexpr std::uint16_t kKeys[] = {kLeftKey, kDownKey, kEnterKey, kEsc};
    switch (random() % 9) {
      case 0: answer = tool.Choose(static_cast<Tool>(random() % 14)); break;
      case 1:
      case 2: answer = tool.Down(pointer); break;
      case 3: answer = tool.Up(pointer); break;
      case 4: answer = tool.Press(kKeys[random() % 4], random() % 2 == 0); break;
      case 5: answer = random() % 4 == 0 ? tool.Cancel() : tool.Move(pointer); break;
      default: answer = tool.Move(pointer); break;
    }
    const Picture now = document.Composed(WholeOf(document.PictureSize()), tool.Preview());
    if (now.size == shown.size) {
      for (int y = 0; y < now.size.height; ++y)
        for (int x = 0; x < now.size.width; ++x)
          ASSERT_TRUE(answer.changed.Contains({x, y}) || PixelIn(now, x, y) == PixelIn(shown, x, y)) << i;
    } else {
      ASSERT_EQ(answer.changed, WholeOf(now.size));
    }
    shown = now;
    if (now.size.width < 30 || now.size.height < 30) {
      document.Load(WhitePicture({100, 80}));
      tool.Cancel();
      shown = document.Composed();
    }
  }
}

TEST_F(PictureTools, MoveResizeAndDeleteWhatIsSelected) {
  tool.Choose(Tool::kRectangle);
  Drag({20, 20}, {60, 50});
  tool.Choose(Tool::kSelect);
  Drag({20, 42}, {25, 37});
  EXPECT_EQ(Last().points[0].place, (Spot{25, 15}));
  Drag({65, 45}, {75, 65});
  EXPECT_EQ(Last().points[1].place, (Spot{75, 65}));
  Drag({75, 65}, {70, 60}, {{}, 1, false, true});
  EXPECT_EQ(Last().points[0].place, (Spot{30, 20}));
  EXPECT_TRUE(tool.Press(kRightKey, false).used);
  tool.Press(kUpKey, true);
  EXPECT_EQ(Last().points[0].place, (Spot{31, 10}));
  // Both steps of the keys are one, which ends where something else is done.
  document.Undo();
  EXPECT_EQ(Last().points[0].place, (Spot{30, 20}));
  document.Redo();
  tool.Press(kRightKey, false);
  document.Undo();
  EXPECT_EQ(Last().points[0].place, (Spot{31, 10}));
  tool.Press(kDeleteKey, false);
  EXPECT_TRUE(document.Objects().empty());
  EXPECT_FALSE(tool.Press(kDeleteKey, false).used || tool.Press(kLeftKey, false).used);
  // Beside every object an area is selected; a click selects nothing.
  Drag({10.5, 10.5}, {29.5, 20.2});
  EXPECT_EQ(document.Selection(), (Rect{10, 10, 30, 21}));
  Drag({-20, 70}, {10, 500});
  EXPECT_EQ(document.Selection(), (Rect{0, 70, 10, 80}));
  tool.Press(kDeleteKey, false);
  EXPECT_EQ(PixelIn(document.Composed(), 5, 75), 0u);
  EXPECT_TRUE(tool.Press(kEsc, false).used);
  EXPECT_EQ(document.Selection(), Rect());
  EXPECT_FALSE(tool.Press(kEsc, false).used);
}

TEST_F(PictureTools, GiveUpADragThatLostItsPicture) {
  tool.Choose(Tool::kLine);
  Drag({10, 10}, {40, 10});
  tool.Choose(Tool::kSelect);
  const std::vector<DrawnObject> before = document.Objects();
  tool.Down({{20, 10}});
  tool.Move({{20, 30}});
  ASSERT_TRUE(tool.Preview());
  EXPECT_TRUE(tool.Press(kEsc, false).used);
  EXPECT_FALSE(tool.Preview() || tool.IsDragging());
  EXPECT_TRUE(IsEmptyRect(tool.Up({{20, 30}}).changed));
  EXPECT_EQ(document.Objects(), before);

  tool.Down({{20, 10}});
  tool.Move({{20, 30}});
  document.Undo();
  tool.Move({{20, 40}});
  EXPECT_FALSE(tool.Preview() || tool.IsDragging());
  document.Redo();
  EXPECT_EQ(document.Objects(), before);
  tool.Choose(Tool::kPen);
  tool.Down({{20, 10}});
  document.Load(WhitePicture({5, 5}));
  tool.Up({{20, 40}});
  EXPECT_TRUE(document.Objects().empty());
}

TEST_F(PictureTools, CropAfterTheFrameWasMovedAndResized) {
  tool.Choose(Tool::kCrop);
  Drag({20, 20}, {21, 21});
  EXPECT_TRUE(IsEmptyRect(tool.Frame())) << "a click is no frame";
  Drag({10, 10}, {50, 40});
  EXPECT_EQ(tool.Frame(), (Rect{10, 10, 50, 40}));
  Drag({50, 40}, {60, 70});
  EXPECT_EQ(tool.Frame(), (Rect{10, 10, 60, 70}));
  Drag({30, 30}, {0, 35});
  EXPECT_EQ(tool.Frame(), (Rect{0, 15, 50, 75}));
  tool.Down({{20, 20}});
  tool.Move({{90, 20}});
  tool.Press(kEsc, false);
  EXPECT_EQ(tool.Frame(), (Rect{0, 15, 50, 75}));
  EXPECT_TRUE(tool.Press(kEnterKey, false).used);
  EXPECT_EQ(document.PictureSize(), (Size{50, 60}));
  EXPECT_FALSE(tool.Press(kEnterKey, false).used);
  Drag({5, 5}, {20, 20});
  tool.Press(kEsc, false);
  EXPECT_TRUE(IsEmptyRect(tool.Frame()));
}

TEST_F(PictureTools, WriteCountPickAndFill) {
  tool.Choose(Tool::kText);
  auto asked = tool.Down({{30, 30}}).write;
  ASSERT_TRUE(asked);
  asked->text = u"abc";
  tool.PutText(*asked);
  EXPECT_EQ(LastBox().right, 60);
  asked = tool.Down({{40, 40}}).write;
  ASSERT_TRUE(asked && asked->text == u"abc");
  EXPECT_EQ(tool.Press(kEnterKey, false).write, asked);
  asked->text.clear();
  tool.PutText(*asked);
  EXPECT_TRUE(document.Objects().empty());
  tool.Choose(Tool::kStep);
  for (int i = 1; i <= 3; ++i) {
    Drag({20.0 * i, 20}, {20.0 * i, 20});
    EXPECT_EQ(Last().number, i);
    EXPECT_TRUE(Near({(LastBox().left + LastBox().right) / 2, (LastBox().top + LastBox().bottom) / 2},
                     {20.0 * i, 20}));
  }
  ToolSettings settings;
  settings.colour = {0, 0, 200};
  tool.Set(settings);
  tool.Choose(Tool::kFill);
  tool.Down({{90, 70}});
  tool.Choose(Tool::kDropper);
  EXPECT_EQ(tool.Down({{90, 75}}).picked, settings.colour);
  EXPECT_FALSE(tool.Move({{90, 800}}).picked);
  document.Load(WhitePicture({2049, 1025}));
  tool.Choose(Tool::kFill);
  const ToolAnswer large = tool.Down({{7.5, 9.5}});
  EXPECT_TRUE(IsEmptyRect(large.changed) && large.flood == (Point{7, 9}));
  EXPECT_EQ(document.Fill(FloodedPixels(document.Composed(), *large.flood, 0), *large.flood, settings.colour),
            (Rect{0, 0, 2049, 1025}));
}

}  // namespace
}  // namespace jotlets
