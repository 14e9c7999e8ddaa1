// Picture notes: pictures come in, are drawn on with mouse and keys, and are kept.
#include <algorithm>
#include <filesystem>

#include "base/win/wide.h"
#include "picture/picture.h"
#include "window_test.h"

namespace jotlets {
namespace {

constexpr Size kSheet{180, 100};

class PicturesTest : public WindowTest {
 protected:
  // A note with a white picture, its text area at the note's lower left corner.
  void StartWithSheet() {
    WriteFlatSkin();
    Picture white = BlankPicture(kSheet);
    std::ranges::fill(white.pixels, std::uint8_t{255});
    JotletData record = NoteRecord(u"AA01", {200, 200}, u"Sheet");
    record.isImage = 1;
    ASSERT_TRUE(StartProgramWith({}, u"Skin=flat"));
    Write(scratch_ + u"sheet.png", EncodePng(white));
    id_ = Value(u"do new imagejotlet " + scratch_ + u"sheet.png", u"000 OK created: ");
    ASSERT_EQ(Reply(u"set desktop " + id_ + u" title Sheet"), u"000 OK title set");
    ASSERT_EQ(Reply(u"set desktop " + id_ + u" position 300,200"), u"000 OK position set");
    note_ = NoteTitled(u"Sheet");
    ASSERT_NE(note_, nullptr);
  }
  void TakeHold() {
    ASSERT_TRUE(ClickUntil([&] { return HasKeyboard(note_); }, Title(note_)));
  }
  std::optional<Picture> Kept() { return DecodePng(Read(folder_ + u"images\\" + id_ + u".png")); }
  // How many pixels of what is kept are not white.
  std::ptrdiff_t Drawn() {
    const auto picture = Kept();
    if (!picture) return -1;
    std::ptrdiff_t count = 0;
    for (std::size_t at = 0; at < picture->pixels.size(); at += 4)
      count += picture->pixels[at] != 255 ? 1 : 0;
    return count;
  }
  Point OnSheet(Point offset) const {
    const Rect bounds = BoundsOf(note_);
    return {bounds.left + 30 + offset.x, bounds.top + 40 + offset.y};
  }

  Text id_;
  HWND note_ = nullptr;
};

TEST_F(PicturesTest, WhatIsDrawnIsUndoneAndOutlivesAKill) {
  StartWithSheet();
  TakeHold();
  PressKeys({'R'});
  const Rect before = BoundsOf(note_);
  ASSERT_TRUE(Drag(note_, OnSheet({}), {60, 30}));
  EXPECT_EQ(BoundsOf(note_), before) << "a tool in hand does not move the note";
  PressKeys({'N'});
  ASSERT_TRUE(Drag(note_, OnSheet({90, 10}), {1, 1}));
  // A frame of three pixels is less than this, with the number it is more.
  constexpr std::ptrdiff_t kBetween = 900;
  const auto drawn = [&] { return Reply(u"do saveini") == u"000 OK saved" ? Drawn() : -1; };
  ASSERT_TRUE(WaitUntil([&] { return drawn() > kBetween; }));
  PressKeys({VK_CONTROL, 'Z'});
  ASSERT_TRUE(WaitUntil([&] { return drawn() < kBetween; }));
  const std::ptrdiff_t frame = Drawn();
  EXPECT_GT(frame, 200);

  PressKeys({VK_CONTROL, 'Y'});
  program_->Kill();
  ASSERT_TRUE(StartProgram());
  EXPECT_GE(Drawn(), frame) << "what was saved is there at the least";
  note_ = NoteTitled(u"Sheet");
  TakeHold();
  // Without a tool the mouse moves the note again.
  PressKeys({'V'});
  PressKeys({VK_ESCAPE});
  PressKeys({VK_ESCAPE});
  ASSERT_TRUE(Drag(note_, OnSheet({}), {40, 0}));
  EXPECT_TRUE(WaitUntil([&] { return BoundsOf(note_).left == before.left + 40; }));
}

TEST_F(PicturesTest, OfACameraStandUprightAndWhatIsNoneIsRefused) {
  ASSERT_TRUE(StartProgramWith({}));
  const auto made = [&](const Text& path) { return Reply(u"do new imagejotlet " + path); };
  const Text camera = std::filesystem::absolute("windows/pictures/camera.jpg").u16string();
  id_ = Value(u"do new imagejotlet " + camera, u"000 OK created: ");
  const auto upright = Kept();
  ASSERT_TRUE(upright);
  EXPECT_EQ(upright->size, (Size{8, 16})) << "16 by 8, turned";
  std::string bytes = Read(camera);
  Write(scratch_ + u"cut.jpg", bytes.substr(0, 200));
  EXPECT_EQ(made(scratch_ + u"cut.jpg"), u"997 unable to load file");
  // It says that it is 65,000 pixels high and wide.
  const std::size_t size = bytes.find("\xFF\xC0") + 5;
  bytes.replace(size, 4, "\xFD\xE8\xFD\xE8");
  Write(scratch_ + u"huge.jpg", bytes);
  EXPECT_EQ(made(scratch_ + u"huge.jpg"), u"997 unable to load file");
}

}  // namespace
}  // namespace jotlets
