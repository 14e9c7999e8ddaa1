// Skins on monitors of other scales: every length and place multiplied, and pictures of the right size.
#pragma once

#include "skin/skin_loading.h"

namespace jotlets {

/// The bounds of the dots per inch that are believed.
inline constexpr std::int32_t kMinDpi = 48;
inline constexpr std::int32_t kMaxDpi = 960;

/// The text of a skin as if it had been written for so many dots per inch. Percentages stay.
SkinData ScaledSkinData(const SkinData& skin, std::int32_t dpi);

/// The skin for so many dots per inch. Its sheet is the smallest of those that it carries for this scale or a
/// larger one, made smaller as it must be; without any, its usual sheet made larger.
LoadedSkin ScaledSkin(const LoadedSkin& skin, std::int32_t dpi);

/// A picture made larger or smaller. Between the pixels of the source colours are mixed, unless `hard`: then
/// each is one of the source.
Picture Resized(const Picture& picture, Size size, bool hard);

}  // namespace jotlets
