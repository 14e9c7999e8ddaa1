// What windows and menus look like, light, dark and in high contrast.
#include "looks/window_colours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "data/jotlet_data.h"
#include "fakes.h"
#include "looks/icon.h"
#include "looks/ink.h"
#include "looks/recolouring.h"
#include "note/papers.h"
#include "picture/bmp_picture.h"

namespace jotlets {
namespace {

constexpr ContrastColours kContrast{{0, 0, 0}, {255, 255, 255}, {26, 235, 255}, {0, 0, 0}, {255, 255, 0}};

TEST(Looks, FollowTheSystemUnlessToldOtherwiseAndHighContrastAlways) {
  const SystemLook darkSystem{true, std::nullopt, true};
  EXPECT_TRUE(AppearanceFor(kAsTheSystem, darkSystem).dark);
  EXPECT_FALSE(AppearanceFor(kAlwaysLight, darkSystem).dark);
  EXPECT_FALSE(AppearanceFor(kAsTheSystem, {}).dark);
  EXPECT_TRUE(AppearanceFor(kAlwaysDark, {}).dark);
  for (const std::int32_t choice : {kAsTheSystem, kAlwaysLight, kAlwaysDark}) {
    const Appearance look = AppearanceFor(choice, {true, kContrast, false});
    EXPECT_TRUE(!look.dark && look.contrast == kContrast && !look.moves);
  }
}

TEST(Looks, OfWindowsCanBeReadInEveryMode) {
  for (const Appearance& look :
       {Appearance{}, Appearance{true, {}, true}, Appearance{false, kContrast, true}}) {
    const WindowColours c = ColoursOf(look);
    for (const Colour ground : {c.surface, c.foot, c.views, c.field, c.button, c.menu})
      for (const Colour ink : {c.text, c.quiet, c.fixed, c.fault})
        EXPECT_GE(Contrast(ink, ground), 4.5) << look.dark;
    for (const Colour ground : {c.hover, c.chosen, c.match, c.menuHover})
      EXPECT_GE(Contrast(c.chosenText, ground), 4.5) << look.dark;
    EXPECT_GE(Contrast(c.accentText, c.accent), 4.5) << look.dark;
    EXPECT_GE(Contrast(c.accent, c.surface), 3) << look.dark;
    EXPECT_GE(Contrast(c.edge, c.surface), 3) << look.dark;
  }
}

TEST(Looks, TurnThePapersDarkAndNoOtherColour) {
  for (const Colour paper : kPapers) EXPECT_TRUE(IsDarkPaper(DarkPaper(paper)));
  EXPECT_EQ(DarkPaper(JotletData().colour), kDarkPapers[0]) << "of an older installation";
  EXPECT_EQ(DarkPaper({0xFF, 0xF4, 0xB9}), (Colour{0xFF, 0xF4, 0xB9}));
}

// A sign that stands in the rows and not in a sheet would be that of another, or none.
TEST(Icons, EverySheetHoldsEverySign) {
  for (const int side : kIconSheets) {
    const std::string path = "../src/res/icons/signs/" + std::to_string(side) + ".bmp";
    const auto sheet = DecodeBmp(FileBytes(path.c_str()));
    ASSERT_TRUE(sheet) << side;
    constexpr int kSigns = static_cast<int>(Icon::kCount) - 1;
    EXPECT_EQ(sheet->size, (Size{side, kSigns * side}));
    for (int sign = 0; sign < kSigns; ++sign) {
      const std::ptrdiff_t bytes = std::ptrdiff_t{4} * side * side;
      const auto first = sheet->pixels.begin() + sign * bytes;
      const auto white = std::count_if(first, first + bytes, [](std::uint8_t part) { return part > 128; });
      EXPECT_GT(white, side * side + side) << side << ": the alphas, and what is drawn of sign " << sign;
    }
  }
}

TEST(Recolouring, ChangesInkAndItsEdgesAndNothingElse) {
  const Colour paper{34, 49, 68};
  const Colour from{0, 0, 255};
  const Colour to{156, 203, 255};
  const auto recoloured = [&](std::vector<Colour> colours) {
    std::vector<std::uint8_t> pixels;
    for (const Colour c : colours) pixels.insert(pixels.end(), {c.b, c.g, c.r, 7});
    const bool changed = Recolour(pixels, paper, from, to);
    for (std::size_t i = 0; i < colours.size(); ++i) {
      colours[i] = {pixels[4 * i + 2], pixels[4 * i + 1], pixels[4 * i]};
      EXPECT_EQ(pixels[4 * i + 3], 7);
    }
    return std::pair(changed, colours);
  };
  const Colour half{17, 25, 162};
  const Colour sharpened{34, 25, 200};  // each channel for itself
  const Colour text{240, 240, 240};
  const Colour textEdge{137, 145, 154};
  EXPECT_EQ(
      recoloured({paper, from, half, sharpened, text, textEdge}),
      std::pair(true, (std::vector<Colour>{paper, to, {95, 124, 162}, {34, 124, 200}, text, textEdge})));
  EXPECT_EQ(recoloured({paper, half}), std::pair(false, (std::vector<Colour>{paper, half})))
      << "nothing is drawn in it";
}

}  // namespace
}  // namespace jotlets
