// What docs/skins.md shows is what the program reads.
#include <gtest/gtest.h>

#include <regex>

#include "fakes.h"
#include "skin/skin_layout.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

// The indented lines below the line that begins with `before`.
Text Example(const std::string& guide, const std::string& before) {
  std::string lines;
  std::size_t at = guide.find("\n    ", guide.find("\n" + before));
  for (; at < guide.size() && (guide.compare(at, 5, "\n    ") == 0 || guide[at + 1] == '\n');
       at = guide.find('\n', at + 1)) {
    const std::size_t from = std::min(at + 5, guide.find('\n', at + 1));
    lines += guide.substr(from, guide.find('\n', at + 1) - from) + "\n";
  }
  return FromUtf8(lines);
}

TEST(SkinGuide, ResolvesItsPlacesAsItSays) {
  const std::string guide = FileBytes("../docs/skins.md");
  SkinView view;
  view.window = {200, 100}, view.thumb = {190, 40, 197, 70};
  const std::regex row(R"(\| `([^`]+)` `([^`]+)` \| (-?\d+),(-?\d+),(-?\d+),(-?\d+) \|)");
  int rows = 0;
  for (std::sregex_iterator at(guide.begin(), guide.end(), row), end; at != end; ++at, ++rows) {
    const std::smatch& m = *at;
    const SkinData skin = ParseSkin(FromUtf8("[tilearea]\n" + m.str(1) + "\n" + m.str(2)));
    EXPECT_EQ(ElementRect(skin.elements[0], view),
              (Rect{std::stoi(m[3]), std::stoi(m[4]), std::stoi(m[5]), std::stoi(m[6])}))
        << m.str();
  }
  EXPECT_EQ(rows, 9);
}

TEST(SkinGuide, HasAnExampleThatIsWhatItSays) {
  const SkinData skin = ParseSkin(Example(FileBytes("../docs/skins.md"), "`ribbon.ini` is"));
  SkinView view;
  view.window = {200, 100};
  EXPECT_EQ(skin.skinName, u"Ribbon");
  EXPECT_EQ(TextArea(skin, view), (Rect{6, 24, 186, 94}));
  EXPECT_TRUE(IsScrollbarRequired(skin, view, {0, 70, 71}));
  ASSERT_EQ(skin.elements.size(), 7u);
  EXPECT_EQ(ElementRect(skin.elements[3], view), (Rect{179, 4, 195, 20}));
  const std::size_t pin = ButtonAt(skin, view, {160, 5});
  ASSERT_NE(pin, kNoElement);
  EXPECT_EQ(skin.elements[pin].action, kActionOnTop);
  EXPECT_FALSE(IsShown(skin.elements[6], view));
  view.states.Set(SkinState::kScrollbarRequired, true);
  view.thumb = ScrollThumb(ScrollTrack(skin, view.window), skin.minimumThumbTrackHeight, {0, 70, 140});
  EXPECT_EQ(ElementRect(skin.elements[6], view), (Rect{191, view.thumb.top, 195, view.thumb.bottom}));
}

}  // namespace
}  // namespace jotlets
