#include "looks/window_colours.h"

namespace jotlets {
namespace {

constexpr WindowColours kLight{.surface = {0xFF, 0xFF, 0xFF},
                               .foot = {0xF3, 0xF3, 0xF3},
                               .views = {0xF6, 0xF6, 0xF6},
                               .text = {0x1B, 0x1B, 0x1B},
                               .quiet = {0x5C, 0x5C, 0x5C},
                               .grey = {0x8A, 0x8A, 0x8A},
                               .line = {0xE5, 0xE5, 0xE5},
                               .edge = {0x86, 0x86, 0x86},
                               .field = {0xFF, 0xFF, 0xFF},
                               .button = {0xFB, 0xFB, 0xFB},
                               .hover = {0xF0, 0xF0, 0xF0},
                               .chosen = {0xE3, 0xEE, 0xF8},
                               .chosenText = {0x1B, 0x1B, 0x1B},
                               .accent = {0x00, 0x67, 0xC0},
                               .accentText = {0xFF, 0xFF, 0xFF},
                               .match = {0xFF, 0xE5, 0x8A},
                               .fixed = {0x8A, 0x5A, 0x00},
                               .fault = {0xB0, 0x20, 0x20},
                               .menu = {0xFB, 0xFB, 0xFB},
                               .menuHover = {0xED, 0xED, 0xED}};

constexpr WindowColours kDark{.surface = {0x20, 0x20, 0x20},
                              .foot = {0x2A, 0x2A, 0x2A},
                              .views = {0x1B, 0x1B, 0x1B},
                              .text = {0xF3, 0xF3, 0xF3},
                              .quiet = {0xB8, 0xB8, 0xB8},
                              .grey = {0x80, 0x80, 0x80},
                              .line = {0x3A, 0x3A, 0x3A},
                              .edge = {0x8A, 0x8A, 0x8A},
                              .field = {0x2B, 0x2B, 0x2B},
                              .button = {0x33, 0x33, 0x33},
                              .hover = {0x2E, 0x2E, 0x2E},
                              .chosen = {0x24, 0x38, 0x4A},
                              .chosenText = {0xF3, 0xF3, 0xF3},
                              .accent = {0x4C, 0xC2, 0xFF},
                              .accentText = {0x00, 0x1E, 0x33},
                              .match = {0x6B, 0x57, 0x14},
                              .fixed = {0xFF, 0xD9, 0x8A},
                              .fault = {0xFF, 0xA9, 0x4D},
                              .menu = {0x2B, 0x2B, 0x2B},
                              .menuHover = {0x3A, 0x3A, 0x3A}};

WindowColours OfContrast(const ContrastColours& system) {
  WindowColours colours;
  for (Colour* ground :
       {&colours.surface, &colours.foot, &colours.views, &colours.field, &colours.button, &colours.menu})
    *ground = system.paper;
  for (Colour* ink : {&colours.text, &colours.quiet, &colours.grey, &colours.line, &colours.edge,
                      &colours.fixed, &colours.fault})
    *ink = system.ink;
  for (Colour* chosen :
       {&colours.hover, &colours.chosen, &colours.accent, &colours.match, &colours.menuHover})
    *chosen = system.chosen;
  colours.chosenText = colours.accentText = system.chosenInk;
  return colours;
}

}  // namespace

WindowColours ColoursOf(const Appearance& appearance) {
  if (appearance.contrast) return OfContrast(*appearance.contrast);
  return appearance.dark ? kDark : kLight;
}

}  // namespace jotlets
