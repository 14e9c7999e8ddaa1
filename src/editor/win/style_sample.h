// What a menu shows of a text style beside its name.
#pragma once

#include <windows.h>

#include "editor/text_style.h"
#include "ui/handle.h"
#include "ui/theme.h"

namespace jotlets {

/// Two letters in the look of a style, for an entry of a menu; empty for a style that is not set, or when the
/// system has no room for it.
UniqueBitmap MakeStyleSample(const TextStyle& style, std::int32_t dpi, const Theme& theme);

}  // namespace jotlets
