// The colours of a rich text on another paper than it was written on. Editors draw text that has no colour of
// its own black; on dark paper it is given another ink, and colours that could not be read there a lighter
// shade. Neither is to get into files.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/geometry.h"

namespace jotlets {

/// What stands for the ink of text without a colour of its own where it is marked with a light colour.
inline constexpr Colour kInkOnMarks{0, 0, 1};

/// Colours as they are shown, each with the one of the text that it stands for.
using ShownColours = std::vector<std::pair<Colour, Colour>>;

/// A colour as it can be read on the paper; the same when it can.
using LegibleColour = std::function<Colour(Colour)>;

/// The rich text with all that has no colour of its own in this ink, as far as it says so itself, and with
/// other colours as they are `legible`, unless they stand on a light mark. `shown` becomes what that changed.
std::string WithInk(std::string_view rtf, Colour ink, const LegibleColour& legible, ShownColours& shown);

/// The rich text with its own colours again, and none where it had none.
std::string WithoutInk(std::string_view rtf, Colour ink, const ShownColours& shown);

}  // namespace jotlets
