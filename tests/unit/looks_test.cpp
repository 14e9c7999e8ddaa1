// What windows and menus look like, light, dark and in high contrast.
#include "looks/window_colours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "data/jotlet_data.h"
#include "fakes.h"
#include "looks/icon.h"
#include "looks/ink.h"
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

}  // namespace
}  // namespace jotlets
