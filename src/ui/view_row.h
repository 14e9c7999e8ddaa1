// The rows of the list of pages or views that stands at the left of a window.
#pragma once

#include <windows.h>

#include <optional>

#include "looks/icon.h"
#include "looks/window_colours.h"

namespace jotlets {

/// Draws the ground and the sign of a row, and sets the ink of its words; where these go. `indent` moves both
/// to the right, in pixels at 96 dots per inch. The sign stands on a tile of the colour `mark`, if there is
/// one.
RECT DrawViewRow(const DRAWITEMSTRUCT& item, Icon icon, const WindowColours& colours, int indent = 0,
                 std::optional<Colour> mark = std::nullopt);

}  // namespace jotlets
