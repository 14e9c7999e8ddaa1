// A text as a picture of itself.
#pragma once

#include <optional>

#include "editor/win/edit.h"
#include "picture/pixels.h"

namespace jotlets {

/// The whole text as it looks on its paper, as wide as its editor, with a margin all around; of a text that
/// is higher than a picture may be, its beginning. Nothing when the system has no room for it.
std::optional<Picture> PictureOfText(const BEdit& edit);

}  // namespace jotlets
