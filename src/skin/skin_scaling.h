// Skins on monitors of other scales: every length and place multiplied, and pictures of the right size.
#pragma once

#include "skin/skin_loading.h"

namespace jotlets {

/// The bounds of the dots per inch that are believed.
inline constexpr std::int32_t kMinDpi = 48;
inline constexpr std::int32_t kMaxDpi = 960;

/// The skin for so many dots per inch. Its sheet is the smallest of those that it carries for this scale or a
/// larger one, made smaller as it must be; without any, its usual sheet made larger.
LoadedSkin ScaledSkin(const LoadedSkin& skin, std::int32_t dpi);

}  // namespace jotlets
