#include "picture/object_file.h"

#include <gtest/gtest.h>

#include "picture/picture.h"
#include "some_pictures.h"

namespace jotlets {
namespace {

const BlockLetters kLetters;

PictureParts RandomParts(std::mt19937& random) {
  PictureParts parts{RandomPicture(random, {60, 50}), {}};
  for (unsigned i = 0; i < 1 + random() % 5; ++i) {
    DrawnObject object = RandomObject(random, parts.base.size);
    object.orientation = static_cast<Orientation>(1 + random() % 8);
    object.font = u"Segoe UI";
    FitLetters(object, kLetters);
    parts.objects.push_back(object);
  }
  return PictureDocument(parts, kLetters, 5).PartsToSave();
}

TEST(ObjectFile, BringsBackPixelsAndObjectsOfItsOwnPictureOnly) {
  std::mt19937 random(11);
  for (int round = 0; round < 100; ++round) {
    const PictureParts parts = RandomParts(random);
    const PictureFiles files = FilesOf(parts, kLetters);
    ASSERT_EQ(files.objects.empty(), parts.objects.empty());
    const auto read = PartsOf(files.png, files.objects);
    ASSERT_TRUE(read);
    ASSERT_EQ(read->objects, parts.objects);
    ASSERT_EQ(read->base.pixels, parts.base.pixels);
    const PictureDocument document(*read, kLetters, 5);
    ASSERT_EQ(document.Composed().pixels, DecodePng(files.png)->pixels);
    // Beside another picture it counts as none.
    const std::string other = EncodePng(RandomPicture(random, {60, 50}));
    const auto misfit = PartsOf(other, files.objects);
    ASSERT_TRUE(misfit && misfit->objects.empty());
    ASSERT_EQ(misfit->base.pixels, DecodePng(other)->pixels);
  }
  EXPECT_FALSE(PartsOf("no picture", ""));
}

TEST(ObjectFile, CountsAsNoneWhenItIsCutOrChanged) {
  std::mt19937 random(12);
  PictureParts parts = RandomParts(random);
  while (parts.objects.size() < 2) parts = RandomParts(random);
  const PictureFiles files = FilesOf(parts, kLetters);
  const Picture shown = *DecodePng(files.png);
  for (std::size_t length = 0; length < files.objects.size(); ++length) {
    const auto read = PartsOf(files.png, files.objects.substr(0, length));
    ASSERT_TRUE(read && read->objects.empty() && read->base.pixels == shown.pixels) << length;
  }
  for (int round = 0; round < 3000; ++round) {
    std::string changed = files.objects;
    changed[random() % changed.size()] = static_cast<char>(random());
    const auto read = PartsOf(files.png, changed);
    ASSERT_TRUE(read);
    for (const DrawnObject& object : read->objects) ASSERT_TRUE(IsDrawable(object));
    ASSERT_TRUE(!read->objects.empty() || read->base.pixels == shown.pixels);
  }
}

TEST(ObjectFile, HoldsNothingThatARedactionHides) {
  // One colour stands nowhere but below the redaction, with a text and a line that reach out of it.
  Picture base = WhitePicture({64, 64});
  for (int y = 20; y < 40; ++y)
    for (int x = 20; x < 40; ++x) StorePixel(PixelPlace(base, x, y), 0xFF123456);
  DrawnObject words = ObjectOf(ObjectKind::kText, {{22, 24}, {22, 24}});
  words.text = u"hidden words";
  const PictureParts made{base,
                          {words, ObjectOf(ObjectKind::kLine, {{0, 30}, {63, 30}}, {1, 200, 1}),
                           ObjectOf(ObjectKind::kRedaction, {{20, 20}, {40, 40}}),
                           ObjectOf(ObjectKind::kEllipse, {{10, 10}, {50, 50}})}};
  const PictureFiles files = FilesOf(PictureDocument(made, kLetters, 5).PartsToSave(), kLetters);
  const auto read = PartsOf(files.png, files.objects);
  ASSERT_TRUE(read);
  ASSERT_EQ(read->objects.size(), 1u);
  EXPECT_EQ(read->objects[0].kind, ObjectKind::kEllipse);
  for (const Picture& picture : {read->base, *DecodePng(files.png)})
    for (std::size_t at = 0; at < picture.pixels.size(); at += 4)
      ASSERT_NE(LoadPixel(picture.pixels.data() + at), 0xFF123456);
  EXPECT_EQ(files.objects.find(std::string("h\0i\0d\0d", 7)), std::string::npos);
}

}  // namespace
}  // namespace jotlets
