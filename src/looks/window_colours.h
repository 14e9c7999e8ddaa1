// The colours of dialogs, menus and lists.
#pragma once

#include "looks/appearance.h"

namespace jotlets {

struct WindowColours {
  Colour surface;
  Colour foot;   // below the buttons of a dialog
  Colour views;  // of a list of pages beside them
  Colour text;
  Colour quiet;  // a second text
  Colour grey;   // what cannot be used now
  Colour line;
  Colour edge;  // of a control
  Colour field;
  Colour button;
  Colour hover;
  Colour chosen;
  Colour chosenText;
  Colour accent;
  Colour accentText;
  Colour match;  // what was looked for
  Colour fixed;  // the ink of what an administrator has settled
  Colour fault;  // and of what cannot be taken
  Colour menu;
  Colour menuHover;
};

WindowColours ColoursOf(const Appearance& appearance);

}  // namespace jotlets
