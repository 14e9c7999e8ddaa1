// Which part of a picture of the screen is taken.
#pragma once

#include <span>

#include "base/geometry.h"

namespace jotlets {

/// What is dragged from one place to another of the screen, both included. A drag of no more than a few
/// pixels is a click: it takes the first of `windows`, the topmost coming first, that lies there; without one
/// all of the monitor there, or of the screen. Never more than `screen`; empty when there is nothing.
Rect GrabbedArea(Point from, Point to, std::span<const Rect> windows, std::span<const Rect> monitors,
                 const Rect& screen);

/// A place for something of this size beside the pointer, away from what is being dragged, inside of `area`.
Point PlaceBesidePointer(Point pointer, Size size, std::int32_t gap, const Rect& area);

}  // namespace jotlets
