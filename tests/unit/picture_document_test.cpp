#include "picture/picture_document.h"

#include <gtest/gtest.h>

#include "some_pictures.h"

namespace jotlets {
namespace {

const BlockLetters kLetters;
constexpr Colour kRed{255, 0, 0};

PictureDocument Document(Picture base, int steps = 5) { return {{std::move(base), {}}, kLetters, steps}; }

struct Seen {
  Size size;
  std::vector<std::uint8_t> pixels;
  std::vector<DrawnObject> objects;
  friend bool operator==(const Seen&, const Seen&) = default;
};

Seen Look(const PictureDocument& document) {
  return {document.PictureSize(), document.Composed().pixels, document.Objects()};
}

// Carries out any command; what it was is told by the random numbers.
Rect DoSomething(PictureDocument& document, std::mt19937& random) {
  const Size size = document.PictureSize();
  const Rect area = RandomArea(random, size);
  const auto& objects = document.Objects();
  const ObjectId id = objects.empty() ? 0 : objects[random() % objects.size()].id;
  document.SelectArea(random() % 3 == 0 ? area : Rect{});
  switch (random() % 16) {
    case 0:
      if (const DrawnObject* object = document.Find(id)) {
        DrawnObject changed = *object;
        MoveBy(changed, {3, -2});
        return document.Change(changed);
      }
      return {};
    case 1: return document.Delete(id);
    case 2: return document.Raise(id);
    case 3: return document.Crop(area.Width() > 8 && area.Height() > 8 ? area : Rect{});
    case 4:
      return document.Resize({10 + static_cast<int>(random() % 60), 10 + static_cast<int>(random() % 60)});
    case 5: return document.Resize({size.width * 2 % 90, size.height * 2 % 90});
    case 6: return document.Fill(area.TopLeft(), kRed, 30);
    case 7: return document.Clear(area);
    case 8: return document.Paste(RandomPicture(random, 20), area.TopLeft());
    case 10: return document.Turn(static_cast<Orientation>(1 + random() % 8));
    case 11:
    case 12:
      return document.Apply({static_cast<EffectKind>(random() % 7), static_cast<int>(random() % 5), kRed});
    default: return document.Add(RandomObject(random, size));
  }
}

TEST(PictureDocument, AnswersWhatChangedAndUndoesAndRedoesEverything) {
  std::mt19937 random(9);
  for (int round = 0; round < 60; ++round) {
    PictureDocument document = Document(RandomPicture(random, {40, 30}), 100);
    std::vector<Seen> states{Look(document)};
    for (int step = 0; step < 25; ++step) {
      const Picture before = document.Composed();
      const std::uint64_t version = document.Version();
      const Rect changed = DoSomething(document, random);
      const Picture after = document.Composed();
      ExpectSound(after);
      if (document.Version() == version)
        ASSERT_TRUE(IsEmptyRect(changed) && after.pixels == before.pixels);
      else
        states.push_back(Look(document));
      if (after.size != before.size) {
        ASSERT_EQ(changed, WholeOf(after.size));
      } else {
        for (int y = 0; y < after.size.height; ++y)
          for (int x = 0; x < after.size.width; ++x)
            ASSERT_TRUE(changed.Contains({x, y}) || PixelIn(after, x, y) == PixelIn(before, x, y))
                << round << ' ' << step;
      }
    }
    for (std::size_t at = states.size() - 1; at > 0; --at) {
      ASSERT_TRUE(document.CanUndo());
      document.Undo();
      ASSERT_EQ(Look(document), states[at - 1]) << round << ' ' << at;
    }
    ASSERT_TRUE(IsEmptyRect(document.Undo()));
    for (std::size_t at = 1; at < states.size(); ++at) {
      document.Redo();
      ASSERT_EQ(Look(document), states[at]) << round << ' ' << at;
    }
    ASSERT_TRUE(IsEmptyRect(document.Redo()));
  }
}

TEST(PictureDocument, KeepsItsStepsWithinTheirNumberAndMemory) {
  PictureDocument few = Document(WhitePicture({10, 10}), 3);
  for (int i = 0; i < 9; ++i) few.Add(ObjectOf(ObjectKind::kLine, {{1, 1}, {9.0, i + 0.5}}));
  int undone = 0;
  for (; few.CanUndo(); ++undone) few.Undo();
  EXPECT_EQ(undone, 3);
  EXPECT_EQ(few.Objects().size(), 6u);
  few.Add(ObjectOf(ObjectKind::kLine, {{1, 1}, {9, 9}}));
  EXPECT_FALSE(few.CanRedo());

  // 16 MB a step: four fit but for what they need beside the pixels.
  PictureDocument large = Document(WhitePicture({2048, 2048}), 100);
  for (int i = 0; i < 6; ++i) large.Apply({EffectKind::kNegative});
  EXPECT_LE(large.UndoBytes(), PictureSteps::kMaxBytes);
  undone = 0;
  for (; large.CanUndo(); ++undone) large.Undo();
  EXPECT_EQ(undone, 3);
  EXPECT_LE(large.UndoBytes(), PictureSteps::kMaxBytes);

  // Little is kept of a small change of a large picture, and nothing of pixels when all of it is turned.
  PictureDocument spot = Document(WhitePicture({2048, 2048}));
  spot.SelectArea({100, 100, 140, 140});
  spot.Apply({EffectKind::kNegative});
  spot.SelectArea({});
  spot.Turn(Orientation::kTurnedRight);
  EXPECT_LT(spot.UndoBytes(), 100'000u);
}

TEST(PictureDocument, LeavesObjectsAsTheyAreWherePixelsDoNotChange) {
  PictureDocument document = Document(WhitePicture({100, 100}));
  document.Add(ObjectOf(ObjectKind::kLine, {{10, 10}, {40, 10}}));        // 1: below what is met
  document.Add(ObjectOf(ObjectKind::kLine, {{30, 5}, {30, 60}}));         // 2: met
  document.Add(ObjectOf(ObjectKind::kLine, {{5, 90}, {20, 90}}));         // 3: apart
  document.Add(ObjectOf(ObjectKind::kLine, {{10, 12}, {40, 12}}, kRed));  // 4: above what is met
  document.SelectArea({20, 40, 60, 80});
  const Picture before = document.Composed();
  document.Apply({EffectKind::kNegative});
  ASSERT_EQ(document.Objects().size(), 2u);
  EXPECT_EQ(document.Objects()[0].id, 3u);
  EXPECT_EQ(document.Objects()[1].id, 4u);
  EXPECT_EQ(PartOf(document.Composed(), {0, 0, 100, 40}).pixels, PartOf(before, {0, 0, 100, 40}).pixels);
  document.SelectArea({});
  document.Turn(Orientation::kMirrored);
  EXPECT_EQ(document.Find(3)->points[0].place, (Spot{95, 90}));
  document.Crop({50, 0, 100, 100});
  EXPECT_EQ(document.Find(3)->points[0].place, (Spot{45, 90}));
  document.Resize({100, 200});
  EXPECT_EQ(document.Find(3)->width, 6);
  document.Resize({100, 100});
  EXPECT_TRUE(document.Objects().empty());
}

TEST(PictureDocument, FillsUpToTheObjectsThatAreSeen) {
  PictureDocument document = Document(WhitePicture({40, 40}));
  document.Add(ObjectOf(ObjectKind::kRectangle, {{10, 10}, {30, 30}}));
  EXPECT_EQ(document.Fill({20, 20}, kRed, 0), (Rect{12, 12, 28, 28}));
  EXPECT_EQ(document.Objects().size(), 1u);
  EXPECT_EQ(PixelIn(document.Composed(), 20, 20), 0xFFFF0000);
  EXPECT_EQ(PixelIn(document.Composed(), 5, 5), 0xFFFFFFFF);
  document.Fill({10, 20}, kRed, 0);
  EXPECT_TRUE(document.Objects().empty());
  EXPECT_EQ(PixelIn(document.Composed(), 10, 20), 0xFFFF0000);
}

TEST(PictureDocument, SavesNothingOfWhatARedactionHides) {
  PictureDocument document = Document(WhitePicture({60, 40}));
  document.Paste(Picture(Premultiplied({{4, 1}, std::vector<std::uint8_t>(16, 77)})), {20, 20});
  DrawnObject words = ObjectOf(ObjectKind::kText, {{5, 18}, {5, 18}});
  words.text = u"secret";
  document.Add(words);
  document.Add(ObjectOf(ObjectKind::kRedaction, {{4, 10}, {55.5, 30}}));
  document.Add(ObjectOf(ObjectKind::kLine, {{0, 20}, {60, 20}}, kRed));
  const PictureParts saved = document.PartsToSave();
  ASSERT_EQ(saved.objects.size(), 1u);
  EXPECT_EQ(saved.objects[0].kind, ObjectKind::kLine);
  for (int y = 10; y < 30; ++y)
    for (int x = 4; x < 56; ++x) ASSERT_EQ(PixelIn(saved.base, x, y), 0xFF000000);
  EXPECT_EQ(PictureDocument(saved, kLetters, 5).Composed().pixels, document.Composed().pixels);
  EXPECT_EQ(document.Objects().size(), 3u);
}

TEST(PictureDocument, PreviewsInThePlaceOfTheObject) {
  PictureDocument document = Document(WhitePicture({20, 20}));
  document.Add(ObjectOf(ObjectKind::kRedaction, {{0, 0}, {10, 10}}));
  document.Add(ObjectOf(ObjectKind::kRedaction, {{5, 5}, {15, 15}}, kRed));
  DrawnObject moved = *document.Find(1);
  MoveBy(moved, {4, 4});
  const Picture shown = document.Composed({4, 4, 16, 16}, &moved);
  EXPECT_EQ(PixelIn(shown, 2, 2), 0xFFFF0000);
  EXPECT_EQ(PixelIn(shown, 0, 0), 0xFF000000);
  moved.id = 0;
  EXPECT_EQ(PixelIn(document.Composed({4, 4, 16, 16}, &moved), 2, 2), 0xFF000000);
  EXPECT_TRUE(IsEmptyRect(document.Add(ObjectOf(ObjectKind::kLine, {{1, 1}}))));
}

}  // namespace
}  // namespace jotlets
