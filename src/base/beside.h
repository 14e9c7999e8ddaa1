// Where a window opens that is about another one.
#pragma once

#include "base/geometry.h"

namespace jotlets {

/// The corner of a window of this size beside another: right of it, else left of it, else over it, and always
/// wholly in `area` as far as it fits there. `gap` is left between the two.
Point PlaceBeside(Size size, const Rect& other, const Rect& area, std::int32_t gap);

/// The corner nearest to `at` at which a window of this size lies wholly in `area`, as far as it fits there.
Point PlaceWithin(Point at, Size size, const Rect& area);

}  // namespace jotlets
