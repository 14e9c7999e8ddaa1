// A picture in another size.
#pragma once

#include "picture/effects.h"

namespace jotlets {

/// The picture in another size. Where it becomes smaller, each pixel is the mean of those that it stands for,
/// parts of them included; where it becomes larger, smooth curves go through its pixels. An empty picture
/// when that size cannot be or it was cancelled.
Picture Resized(const Picture& picture, Size size, const Cancelled& cancelled = {});

}  // namespace jotlets
