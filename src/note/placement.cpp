#include "note/placement.h"

#include <algorithm>
#include <vector>

#include "data/jotlet_data.h"

namespace jotlets {
namespace {

constexpr std::int32_t kStep = 16;
constexpr std::int32_t kNearMargin = 8;
constexpr std::int32_t kFarMargin = 128;

// Of a note that covers all monitors, nothing could be reached.
Size NoLargerThan(Size screen, Size note, std::int32_t dpi) {
  const auto limited = [dpi](std::int32_t length, std::int32_t most) {
    return most > 0 ? Saturated(std::min<std::int64_t>(length, std::int64_t{most} * kUsualDpi / dpi))
                    : length;
  };
  return {limited(note.width, screen.width), limited(note.height, screen.height)};
}

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

// The places from edge to edge, both included, among which one coordinate of a note goes round.
struct Lane {
  std::int64_t from;
  std::int64_t to;
  std::int64_t Along(std::int64_t start, std::int64_t way) const {
    return from + (start - from + way) % (to - from + 1);
  }
};

// The lane that leaves a note of this length on its screen. A note that begins outside, or is larger, may be
// there.
Lane LaneOf(std::int32_t start, std::int32_t length, std::int32_t low, std::int32_t high) {
  return {std::min(low, start), std::max<std::int64_t>(std::int64_t{high} - length, start)};
}

// The first place down the diagonal from `from` where no corner is, which walking the notes anew after every
// step would find too. The first one when all are taken.
Point FreeCorner(Point from, Size size, const MonitorList& monitors, std::span<const Point> corners) {
  constexpr std::int64_t kEndless = std::int64_t{1} << 40;
  Lane across{from.x, kEndless};
  Lane down{from.y, kEndless};
  if (!monitors.Rects().empty()) {
    const Rect area = WorkAreaAt(monitors, RectAt(from, size));
    across = LaneOf(from.x, size.width, area.left, area.right);
    down = LaneOf(from.y, size.height, area.top, area.bottom);
  }
  const auto before = [](Point a, Point b) { return a.x != b.x ? a.x < b.x : a.y < b.y; };
  std::vector<Point> taken(corners.begin(), corners.end());
  std::sort(taken.begin(), taken.end(), before);
  for (std::size_t step = 0; step <= taken.size(); ++step) {
    const auto way = static_cast<std::int64_t>(step) * kStep;
    const Point tried{Saturated(across.Along(from.x, way)), Saturated(down.Along(from.y, way))};
    if (!std::binary_search(taken.begin(), taken.end(), tried, before)) return tried;
  }
  return from;
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
  Placed placed{requested, NoLargerThan(settings.virtualScreen, settings.newSize, settings.dpi)};
  const Size shown{ScaledLength(placed.size.width, settings.dpi),
                   ScaledLength(placed.size.height, settings.dpi)};
  switch (settings.appear) {
    case static_cast<int>(Appear::kPrimaryMonitor):
      placed.position = Centred(shown, settings.primaryScreen);
      break;
    case static_cast<int>(Appear::kVirtualScreen):
      placed.position = Centred(shown, settings.virtualScreen);
      break;
    case static_cast<int>(Appear::kAtCoords): placed.position = settings.coords; break;
    default: break;
  }
  if (settings.preventOverlap)
    placed.position = FreeCorner(placed.position, shown, settings.monitors, corners);
  return placed;
}

Point RescuedPosition(Point position, const Rect& screen) {
  return {Rescued(position.x, screen.left, screen.right), Rescued(position.y, screen.top, screen.bottom)};
}

}  // namespace jotlets
