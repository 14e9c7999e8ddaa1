// The system's own dialog for fonts.
#pragma once

#include <windows.h>

#include <optional>

#include "editor/win/edit_format.h"

namespace jotlets {

/// A font that the user chooses, beginning with `style`; nothing when it was cancelled.
std::optional<FontStyle> ChooseSystemFont(HWND owner, const FontStyle& style);

}  // namespace jotlets
