// The ink of text that has no colour of its own, in rich text. Editors draw such text black; on dark paper
// they are given it in another ink, which is not to get into files.
#pragma once

#include <string>
#include <string_view>

#include "base/geometry.h"

namespace jotlets {

/// The rich text with all that has no colour of its own in this ink, as far as it says so itself.
std::string WithInk(std::string_view rtf, Colour ink);

/// The rich text with what is in this ink without a colour of its own again.
std::string WithoutInk(std::string_view rtf, Colour ink);

}  // namespace jotlets
