#include "picture/grab_area.h"

#include <algorithm>
#include <cstdlib>

namespace jotlets {
namespace {

constexpr std::int32_t kClick = 3;  // pixels that a hand moves in a click

}  // namespace

Rect GrabbedArea(Point from, Point to, std::span<const Rect> windows, std::span<const Rect> monitors,
                 const Rect& screen) {
  const bool isDrag = std::abs(to.x - from.x) > kClick || std::abs(to.y - from.y) > kClick;
  if (isDrag) {
    const Rect dragged{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
                       std::max(from.y, to.y) + 1};
    return CommonPart(dragged, screen);
  }
  for (const std::span<const Rect> areas : {windows, monitors}) {
    const auto under = std::ranges::find_if(areas, [&](const Rect& area) { return area.Contains(to); });
    if (under != areas.end()) return CommonPart(*under, screen);
  }
  return screen;
}

Point PlaceBesidePointer(Point pointer, Size size, std::int32_t gap, const Rect& area) {
  Point at{pointer.x + gap, pointer.y + gap};
  if (at.x + size.width > area.right) at.x = pointer.x - gap - size.width;
  if (at.y + size.height > area.bottom) at.y = pointer.y - gap - size.height;
  return {std::max(at.x, area.left), std::max(at.y, area.top)};
}

}  // namespace jotlets
