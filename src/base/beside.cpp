#include "base/beside.h"

#include <algorithm>

namespace jotlets {
namespace {

// What is too large for its room begins where that begins.
std::int32_t Within(std::int32_t at, std::int32_t length, std::int32_t from, std::int32_t to) {
  return std::max(std::min(at, to - length), from);
}

}  // namespace

Point PlaceBeside(Size size, const Rect& other, const Rect& area, std::int32_t gap) {
  const std::int32_t right = other.right + gap;
  const std::int32_t left = other.left - gap - size.width;
  std::int32_t x = other.left + (other.Width() - size.width) / 2;
  if (right >= area.left && right + size.width <= area.right) {
    x = right;
  } else if (left >= area.left && left + size.width <= area.right) {
    x = left;
  }
  return PlaceWithin({x, other.top}, size, area);
}

std::int32_t RoomGivenBy(const Rect& list, std::span<const Rect> others, std::int32_t wanted,
                         std::int32_t minimum) {
  std::int32_t given = std::min(wanted, list.Height() - minimum);
  for (const Rect& stays : others) {
    const bool shrinks = stays.top <= list.top && stays.bottom >= list.bottom;
    if (shrinks || stays.top >= list.bottom || Overlap(stays, list)) continue;
    for (const Rect& moves : others) {
      const bool apart = moves.left >= stays.right || moves.right <= stays.left;
      if (moves.top >= list.bottom && !apart) given = std::min(given, moves.top - stays.bottom);
    }
  }
  return std::max(given, 0);
}

Point PlaceWithin(Point at, Size size, const Rect& area) {
  return {Within(at.x, size.width, area.left, area.right), Within(at.y, size.height, area.top, area.bottom)};
}

}  // namespace jotlets
