// The choice of a colour for a note or a stack: the papers, the colours that the user took of late, and any
// other.
#pragma once

#include <windows.h>

#include <optional>

#include "data/options.h"
#include "ui/resources.h"
#include "ui/swatch_row.h"

namespace jotlets {

/// The papers as swatches, and what stands for all other colours behind them.
std::vector<Swatch> PaperSwatches(const Resources& resources);

/// Shows the colours at a point of the screen and waits; nothing when they were left. `current` is the one
/// that holds now.
std::optional<Colour> ChooseColour(const Resources& resources, const Options& options, HWND owner, Point at,
                                   Colour current);

/// Keeps a colour of one's own, the latest first; whether that changed the options.
bool RememberColour(Options& options, Colour colour);

}  // namespace jotlets
