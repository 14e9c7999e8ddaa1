#include "note/placement.h"

#include <set>
#include <utility>

#include "data/jotlet_data.h"

namespace jotlets {
namespace {

constexpr std::int32_t kStep = 16;
// No screen reaches here; it ends the search before positions from a damaged file overflow.
constexpr std::int32_t kFarthest = 1 << 30;
constexpr std::int32_t kNearMargin = 8;
constexpr std::int32_t kFarMargin = 128;

// Each half is rounded by itself, as the positions of older notes were.
Point Centred(Size note, Size screen) {
  return {screen.width / 2 - note.width / 2, screen.height / 2 - note.height / 2};
}

std::int32_t Rescued(std::int32_t at, std::int32_t from, std::int32_t to) {
  if (at < from) return from + kNearMargin;
  return at > to ? to - kFarMargin : at;
}

}  // namespace

Placed PlaceNewJotlet(Point requested, Size size, const PlacementSettings& settings,
                      std::span<const Point> corners) {
  if (requested.x != kNotSet && requested.y != kNotSet) return {requested, size};
  Placed placed{requested, settings.newSize};
  switch (settings.appear) {
    case static_cast<int>(Appear::kPrimaryMonitor):
      placed.position = Centred(placed.size, settings.primaryScreen);
      break;
    case static_cast<int>(Appear::kVirtualScreen):
      placed.position = Centred(placed.size, settings.virtualScreen);
      break;
    case static_cast<int>(Appear::kAtCoords): placed.position = settings.coords; break;
    default: break;
  }
  if (!settings.preventOverlap) return placed;
  std::set<std::pair<std::int32_t, std::int32_t>> taken;
  for (const Point corner : corners) taken.emplace(corner.x, corner.y);
  while (taken.contains({placed.position.x, placed.position.y}) && placed.position.x < kFarthest &&
         placed.position.y < kFarthest) {
    placed.position.x += kStep;
    placed.position.y += kStep;
  }
  return placed;
}

Point RescuedPosition(Point position, const Rect& screen) {
  return {Rescued(position.x, screen.left, screen.right), Rescued(position.y, screen.top, screen.bottom)};
}

}  // namespace jotlets
