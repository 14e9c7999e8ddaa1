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

Point PlaceWithin(Point at, Size size, const Rect& area) {
  return {Within(at.x, size.width, area.left, area.right), Within(at.y, size.height, area.top, area.bottom)};
}

}  // namespace jotlets
