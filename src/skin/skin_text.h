// The text form of a skin: "key=value" lines, skin-wide ones first, then a section for each element.
#pragma once

#include "base/text.h"
#include "skin/skin_data.h"

namespace jotlets {

/// No skin has more elements; what follows is left out. The largest that is known has 60.
inline constexpr std::size_t kMaxElements = 500;

/// No skin has more kinds of letters, and none larger ones: texts beyond that are set as its first text is.
inline constexpr std::size_t kMaxLetters = 24;
inline constexpr std::int32_t kMaxPoint = 300;

/// No skin text is read beyond so many units.
inline constexpr std::size_t kMaxSkinText = 4 * 1024 * 1024;

/// Reads any text. Keys match exactly. Lines that are no known key, and values with fewer parts than their
/// key needs, change nothing; a number that cannot be read is 0. After a section line of an unknown kind,
/// keys are ignored up to the next one.
SkinData ParseSkin(TextView text);

}  // namespace jotlets
