// A picture in another size.
#pragma once

#include <optional>

#include "base/text.h"
#include "picture/effects.h"

namespace jotlets {

/// The picture in another size. Where it becomes smaller, each pixel is the mean of those that it stands for,
/// parts of them included; where it becomes larger, smooth curves go through its pixels. An empty picture
/// when that size cannot be or it was cancelled.
Picture Resized(const Picture& picture, Size size, const Cancelled& cancelled = {});

/// The size that somebody has written, "800 x 600" or "800", which keeps the proportions of `now`; nothing
/// for what is none, or none that a picture can have.
std::optional<Size> PictureSizeFrom(TextView words, Size now);

}  // namespace jotlets
