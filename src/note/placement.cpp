#include "note/placement.h"

#include <algorithm>
#include <vector>

#include "data/jotlet_data.h"

namespace jotlets {
namespace {

constexpr std::int32_t kStep = 16;
constexpr std::int32_t kNearMargin = 8;
constexpr std::int32_t kFarMargin = 128;

// Each half is rounded by itself, as the positions of older notes were.
Point Centred(Size note, Size screen) {
  return {screen.width / 2 - note.width / 2, screen.height / 2 - note.height / 2};
}

// The far edge is tested second, also for what the near edge has just moved: that matters on a screen
// smaller than the margin.
std::int32_t Rescued(std::int32_t at, std::int32_t from, std::int32_t to) {
  if (at < from) at = Saturated(std::int64_t{from} + kNearMargin);
  if (at > to) at = Saturated(std::int64_t{to} - kFarMargin);
  return at;
}

// The first place down the diagonal from `from` where no corner is, which walking the notes anew after every
// step would find too. Each corner is looked at once: thousands may lie on one another.
Point FreeCorner(Point from, std::span<const Point> corners) {
  std::vector<std::int64_t> taken;
  for (const Point corner : corners) {
    const std::int64_t along = std::int64_t{corner.x} - from.x;
    if (along >= 0 && along % kStep == 0 && along == std::int64_t{corner.y} - from.y) taken.push_back(along);
  }
  std::sort(taken.begin(), taken.end());
  std::int64_t free = 0;
  for (const std::int64_t along : taken) {
    if (along > free) break;
    free = along + kStep;
  }
  return {Saturated(from.x + free), Saturated(from.y + free)};
}

}  // namespace

PlacementSettings PlacementFrom(const Options& options, NoteOrigin origin, bool isImage, Size primaryScreen,
                                Size virtualScreen) {
  const bool fromFriend = origin == NoteOrigin::kFriend;
  const auto& friendCoords = options.newJotletsCoordsNetwork;
  PlacementSettings settings;
  settings.appear = fromFriend ? options.newJotletsAppearNetwork : options.newJotletsAppear;
  settings.coords = fromFriend ? Point{friendCoords[0], friendCoords[1]} : options.NewJotletsCorner();
  settings.preventOverlap = (fromFriend ? options.preventOverlapNetwork : options.preventOverlap) == 1;
  settings.newSize = isImage ? options.ImageJotletSize() : Size{options.defaultWidth, options.defaultHeight};
  settings.primaryScreen = primaryScreen;
  settings.virtualScreen = virtualScreen;
  return settings;
}

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
  if (settings.preventOverlap) placed.position = FreeCorner(placed.position, corners);
  return placed;
}

Point RescuedPosition(Point position, const Rect& screen) {
  return {Rescued(position.x, screen.left, screen.right), Rescued(position.y, screen.top, screen.bottom)};
}

}  // namespace jotlets
