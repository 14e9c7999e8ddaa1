// Where a window opens that is about another one, and what becomes of one that is higher than there is room.
#pragma once

#include <span>

#include "base/geometry.h"

namespace jotlets {

/// The corner of a window of this size beside another: right of it, else left of it, else over it, and always
/// wholly in `area` as far as it fits there. `gap` is left between the two.
Point PlaceBeside(Size size, const Rect& other, const Rect& area, std::int32_t gap);

/// How much lower a list can be, so that what stands below it moves up by as much: `wanted`, or less, where
/// it would be under `minimum` high or what moves would come to lie on what stays. What is as high as the
/// list or higher shrinks with it, as a frame around it does.
std::int32_t RoomGivenBy(const Rect& list, std::span<const Rect> others, std::int32_t wanted,
                         std::int32_t minimum);

/// The corner nearest to `at` at which a window of this size lies wholly in `area`, as far as it fits there.
Point PlaceWithin(Point at, Size size, const Rect& area);

}  // namespace jotlets
