// What windows and menus look like, light, dark and in high contrast.
#include "looks/window_colours.h"

#include <gtest/gtest.h>

#include "looks/ink.h"
#include "note/papers.h"

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
  EXPECT_EQ(DarkPaper({0xFF, 0xF4, 0xB9}), (Colour{0xFF, 0xF4, 0xB9}));
}

}  // namespace
}  // namespace jotlets
