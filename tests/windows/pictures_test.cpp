// Picture notes: pictures come in, are drawn on with mouse and keys, and are kept.
#include <shlobj.h>

#include <algorithm>
#include <filesystem>

#include "base/win/unique_handle.h"
#include "base/win/wide.h"
#include "note/win/jotlet.h"
#include "picture/picture.h"
#include "picture/win/picture_clipboard.h"
#include "res/resource.h"
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
  ASSERT_TRUE(WaitUntil([&] { return drawn() > kBetween; }));
  const std::ptrdiff_t both = Drawn();
  program_->Kill();
  ASSERT_TRUE(StartProgram());
  EXPECT_EQ(Drawn(), both);
  note_ = NoteTitled(u"Sheet");
  TakeHold();
  // What was drawn can be changed as before.
  PressKeys({'V'});
  ASSERT_TRUE(Drag(note_, OnSheet({0, 15}), {1, 0}));
  PressKeys({VK_DELETE});
  ASSERT_TRUE(WaitUntil([&] { return drawn() == both - frame; }));
  // Without a tool the mouse moves the note again.
  PressKeys({VK_ESCAPE});
  PressKeys({VK_ESCAPE});
  ASSERT_TRUE(Drag(note_, OnSheet({}), {40, 0}));
  EXPECT_TRUE(WaitUntil([&] { return BoundsOf(note_).left == before.left + 40; }));
}

// As the system tells a window of dropped files: a list of them in the memory of its process.
void DropFile(HWND window, const Text& path) {
  DWORD id = 0;
  GetWindowThreadProcessId(window, &id);
  const UniqueHandle process(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, id));
  const DROPFILES head{sizeof head, {}, FALSE, TRUE};
  const std::size_t length = (path.size() + 2) * sizeof(wchar_t);
  void* list = VirtualAllocEx(process.get(), nullptr, sizeof head + length, MEM_COMMIT, PAGE_READWRITE);
  ASSERT_NE(list, nullptr);
  WriteProcessMemory(process.get(), list, &head, sizeof head, nullptr);
  WriteProcessMemory(process.get(), static_cast<char*>(list) + sizeof head, Wide(path),
                     length - sizeof(wchar_t), nullptr);
  PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(list), 0);
}

TEST_F(PicturesTest, AFileIsDroppedOnOneAndWhatIsSelectedIsCut) {
  StartWithSheet();
  Write(scratch_ + u"small.png", EncodePng(BlankPicture({20, 10})));
  const auto size = [&] {
    const bool saved = Reply(u"do saveini") == u"000 OK saved";
    const auto kept = saved ? Kept() : std::nullopt;
    return kept ? kept->size : Size();
  };
  DropFile(note_, scratch_ + u"small.png");
  ASSERT_TRUE(WaitUntil([&] { return size() == Size{20, 10}; }));
  TakeHold();
  PressKeys({VK_CONTROL, 'Z'});
  ASSERT_TRUE(WaitUntil([&] { return size() == kSheet; }));
  PressKeys({'V'});
  ASSERT_TRUE(Drag(note_, OnSheet({}), {60, 30}));
  PressKeys({VK_CONTROL, 'X'});
  ASSERT_TRUE(WaitUntil([&] { return size() == kSheet && Drawn() > 1500; }));
  EXPECT_LT(Drawn(), 2000) << "60 by 30";
  const auto cut = DecodePng(ClipboardPicture(nullptr));
  ASSERT_TRUE(cut);
  EXPECT_EQ(std::ptrdiff_t{cut->size.width} * cut->size.height, Drawn());
}

TEST_F(PicturesTest, ABorderIsGivenItsStrengthAndWhatIsShownLargerIsDrawnOnFinely) {
  StartWithSheet();
  const auto drawn = [&] { return Reply(u"do saveini") == u"000 OK saved" ? Drawn() : -1; };
  const auto dialog = [] { return FindWindowW(nullptr, L"Border"); };
  const auto ask = [&] {
    TakeHold();
    PressKeys({VK_CONTROL, VK_APPS});
    ASSERT_TRUE(WaitUntil([&] { return MenuIsOpen(); }));
    PressKeys({'E'});
    PressKeys({'O'});
    ASSERT_TRUE(WaitUntil([&] { return dialog() != nullptr && GetForegroundWindow() == dialog(); }));
    PressKeys({'7'});
  };
  ask();
  PressKeys({VK_ESCAPE});
  ASSERT_TRUE(WaitUntil([&] { return dialog() == nullptr; }));
  EXPECT_EQ(drawn(), 0) << "what is only tried is not kept";
  ask();
  PressKeys({VK_RETURN});
  ASSERT_TRUE(WaitUntil([&] { return drawn() == 180 * 100 - 166 * 86; }));
  TakeHold();
  PressKeys({VK_CONTROL, 'Z'});
  ASSERT_TRUE(WaitUntil([&] { return drawn() == 0; }));

  // At 300 %.
  for (int step = 0; step < 4; ++step) PressKeys({VK_OEM_PLUS});
  PressKeys({'R'});
  ASSERT_TRUE(Drag(note_, OnSheet({}), {60, 30}));
  EXPECT_TRUE(WaitUntil([&] { return drawn() > 20; }));
  EXPECT_LT(drawn(), 200);
}

TEST_F(PicturesTest, ATextBecomesAPictureAndIsKeptAmongTheClosed) {
  ASSERT_TRUE(StartProgramWith({}));
  const Text text = Create(u"Some words");
  ASSERT_EQ(Reply(u"set desktop " + text + u" title Words"), u"000 OK title set");
  note_ = NoteTitled(u"Words");
  ASSERT_TRUE(
      ClickUntil([&] { return IsChild(note_, GetFocus()) != 0 || HasKeyboard(note_); }, Title(note_)));
  PressKeys({VK_CONTROL, VK_APPS});
  ASSERT_TRUE(WaitUntil([&] { return MenuIsOpen(); }));
  PressKeys({'F'});
  PressKeys({'K'});
  ASSERT_TRUE(WaitUntil([&] { return List(u"closed") == std::vector{text}; }));
  ASSERT_EQ(List(u"desktop").size(), 1u);
  id_ = List(u"desktop").back();
  EXPECT_EQ(Value(u"get desktop " + id_ + u" title"), u"Words");
  EXPECT_GT(Drawn(), 100);
}

TEST_F(PicturesTest, TheManageWindowShowsThePictureOfAChosenNote) {
  StartWithSheet();
  Picture blue = BlankPicture(kSheet);
  for (std::size_t at = 0; at < blue.pixels.size(); at += 4) blue.pixels[at] = blue.pixels[at + 3] = 255;
  Write(folder_ + u"images\\" + id_ + u".png", EncodePng(blue));
  const auto manage = [] { return FindWindowW(L"#32770", L"Manage Jotlets"); };
  TakeHold();
  PressKeys({VK_CONTROL, 'M'});
  ASSERT_TRUE(WaitUntil([&] { return manage() != nullptr && GetForegroundWindow() == manage(); }));
  TypeText(u"shee");
  PressKeys({VK_RETURN});
  const auto middle = [&] {
    RECT place{};
    GetWindowRect(GetDlgItem(manage(), IDC_MANAGE_PREVIEW_TITLE), &place);
    const HDC screen = GetDC(nullptr);
    const COLORREF seen = GetPixel(screen, (place.left + place.right) / 2, place.top + 80);
    ReleaseDC(nullptr, screen);
    return seen;
  };
  EXPECT_TRUE(WaitUntil([&] { return middle() == RGB(0, 0, 255); }));
}

TEST_F(PicturesTest, AnAreaOfTheScreenBecomesANoteByMouseAndByKeys) {
  StartWithSheet();
  TakeHold();
  const auto grab = [] { return FindWindowW(L"JotletsGrab", nullptr); };
  const auto sizeOfNewest = [this] {
    id_ = List(u"desktop").back();
    const auto kept = Kept();
    return kept ? kept->size : Size();
  };
  const auto open = [&] {
    PressKeys({VK_LWIN, VK_MENU, 'A'});
    return WaitUntil([&] { return GetForegroundWindow() == grab() && grab() != nullptr; });
  };
  // The new note takes the keyboard when it is shown, and a choice ends when another window does.
  const auto isMade = [&](std::size_t notes) {
    return WaitUntil([&] {
      const auto all = WindowsOfClass(kJotletClass);
      return List(u"desktop").size() == notes && std::ranges::find(all, GetForegroundWindow()) != all.end();
    });
  };
  ASSERT_TRUE(open());
  PressKeys({VK_ESCAPE});
  ASSERT_TRUE(WaitUntil([&] { return grab() == nullptr; }));
  EXPECT_EQ(List(u"desktop").size(), 1u);
  ASSERT_TRUE(open());
  ASSERT_TRUE(Drag(grab(), OnSheet({10, 10}), {49, 29}));
  ASSERT_TRUE(isMade(2));
  EXPECT_EQ(sizeOfNewest(), (Size{50, 30}));
  const auto white = Kept();
  ASSERT_TRUE(white);
  EXPECT_TRUE(std::ranges::all_of(white->pixels, [](std::uint8_t byte) { return byte == 255; }))
      << "the sheet lies there, bright and opaque";
  // Both corners by keys.
  ASSERT_TRUE(open());
  PressKeys({VK_RETURN});
  PressKeys({VK_SHIFT, VK_RIGHT});
  PressKeys({VK_DOWN});
  PressKeys({VK_SHIFT, VK_DOWN});
  PressKeys({VK_RETURN});
  ASSERT_TRUE(isMade(3));
  EXPECT_EQ(sizeOfNewest(), (Size{11, 12}));
  // To the clipboard instead, the second time the window under the pointer.
  const auto clipped = [] {
    const auto picture = DecodePng(ClipboardPicture(nullptr));
    return picture ? picture->size : Size();
  };
  ASSERT_TRUE(open());
  PressKeys({VK_RETURN});
  PressKeys({VK_SHIFT, VK_LEFT});
  PressKeys({VK_CONTROL, VK_RETURN});
  ASSERT_TRUE(WaitUntil([&] { return clipped() == Size{11, 1}; }));
  const Rect front = BoundsOf(WindowsOfClass(kJotletClass)[0]);
  SetCursorPos(front.left + 20, front.top + 20);
  ASSERT_TRUE(open());
  PressKeys({VK_CONTROL, VK_SPACE});
  EXPECT_TRUE(WaitUntil([&] { return clipped() == Size{front.Width(), front.Height()}; }));
  EXPECT_EQ(List(u"desktop").size(), 3u);
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
