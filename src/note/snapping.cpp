#include "note/snapping.h"

#include <optional>

namespace jotlets {
namespace {

using Wide = std::int64_t;

// One axis of a rectangle. Both axes follow the same rules, so that each is written once.
struct Extent {
  Wide low = 0;
  Wide high = 0;

  Wide Length() const { return high - low; }
  bool Overlaps(const Extent& other, Wide within = 0) const {
    return low <= other.high + within && other.low - within <= high;
  }
};

Extent Across(const Rect& r) { return {r.left, r.right}; }
Extent Down(const Rect& r) { return {r.top, r.bottom}; }

struct Catch {
  Wide distance;
  Wide gap;

  explicit Catch(const SnapSettings& settings) : distance(settings.distance), gap(settings.gap) {}
  bool Reaches(Wide a, Wide b) const { return a - b < distance && b - a < distance; }
};

// The low end of the moved window on one axis, once something has caught it.
using Snapped = std::optional<Wide>;

// The window comes to lie beside `other` along one axis, and may line up with it along the other.
void SnapBeside(const Catch& reach, const Extent& along, const Extent& otherAlong, Snapped& snapAlong,
                const Extent& across, const Extent& otherAcross, Snapped& snapAcross) {
  if (!across.Overlaps(otherAcross)) return;
  const auto lineUp = [&] {
    if (reach.Reaches(across.low, otherAcross.low)) snapAcross = otherAcross.low;
    if (reach.Reaches(across.high, otherAcross.high)) snapAcross = otherAcross.high - across.Length();
  };
  if (reach.Reaches(along.low, otherAlong.high)) {
    snapAlong = otherAlong.high + reach.gap;
    lineUp();
  }
  if (reach.Reaches(along.high, otherAlong.low)) {
    snapAlong = otherAlong.low - reach.gap - along.Length();
    lineUp();
  }
}

// A monitor catches from inside only, and only what no window has caught.
void SnapInside(const Catch& reach, const Extent& moved, const Extent& monitor, Snapped& snap) {
  if (!snap && monitor.low <= moved.low && moved.low < monitor.low + reach.distance) {
    snap = monitor.low + reach.gap;
  }
  if (!snap && monitor.high - reach.distance < moved.high && moved.high <= monitor.high) {
    snap = monitor.high - reach.gap - moved.Length();
  }
}

using AxisOf = Extent (*)(const Rect&);

// A low edge is tested where the last hit has put it.
template <AxisOf axis, AxisOf crossAxis>
Wide SnappedLowEdge(const Catch& reach, const Rect& own, const SnapTargets& targets) {
  Wide edge = axis(own).low;
  for (const Rect& other : targets.windows) {
    if (!crossAxis(own).Overlaps(crossAxis(other), reach.gap)) continue;
    if (reach.Reaches(edge, axis(other).high)) edge = axis(other).high + reach.gap;
    if (reach.Reaches(edge, axis(other).low)) edge = axis(other).low;
  }
  for (const Rect& monitor : targets.monitors) {
    if (reach.Reaches(edge, axis(monitor).low)) edge = axis(monitor).low + reach.gap;
  }
  return edge;
}

// A high edge is tested where the mouse has it, since what snaps is the length.
template <AxisOf axis, AxisOf crossAxis>
Wide SnappedHighEdge(const Catch& reach, const Rect& own, const SnapTargets& targets) {
  const Wide edge = axis(own).high;
  Wide snapped = edge;
  for (const Rect& other : targets.windows) {
    if (!crossAxis(own).Overlaps(crossAxis(other), reach.gap)) continue;
    if (reach.Reaches(edge, axis(other).low)) snapped = axis(other).low - reach.gap;
    if (reach.Reaches(edge, axis(other).high)) snapped = axis(other).high;
  }
  for (const Rect& monitor : targets.monitors) {
    if (reach.Reaches(edge, axis(monitor).high)) snapped = axis(monitor).high - reach.gap;
  }
  return snapped;
}

}  // namespace

SnapSettings SnapSettingsFrom(const Options& options, std::int32_t dpi) {
  return {options.snap[0] == 1, ScaledLength(options.snap[1], dpi), ScaledLength(options.snap[2], dpi)};
}

Rect SnappedMove(const Rect& dragged, const SnapSettings& settings, bool alt, const SnapTargets& targets) {
  if (!settings.Snaps(alt)) return dragged;
  const Catch reach(settings);
  const Extent across = Across(dragged);
  const Extent down = Down(dragged);
  Snapped x;
  Snapped y;
  for (const Rect& other : targets.windows) {
    SnapBeside(reach, down, Down(other), y, across, Across(other), x);
    SnapBeside(reach, across, Across(other), x, down, Down(other), y);
  }
  for (const Rect& monitor : targets.monitors) {
    if (down.Overlaps(Down(monitor))) SnapInside(reach, across, Across(monitor), x);
    if (across.Overlaps(Across(monitor))) SnapInside(reach, down, Down(monitor), y);
  }
  const Wide left = x.value_or(across.low);
  const Wide top = y.value_or(down.low);
  return {Saturated(left), Saturated(top), Saturated(left + across.Length()), Saturated(top + down.Length())};
}

Rect SnappedSizing(const Rect& dragged, DraggedEdges edges, const SnapSettings& settings, bool alt,
                   const SnapTargets& targets) {
  if (!settings.Snaps(alt)) return dragged;
  const Catch reach(settings);
  Rect result = dragged;
  if (edges.horizontal < 0) result.left = Saturated(SnappedLowEdge<Across, Down>(reach, dragged, targets));
  if (edges.vertical < 0) result.top = Saturated(SnappedLowEdge<Down, Across>(reach, dragged, targets));
  if (edges.horizontal > 0) result.right = Saturated(SnappedHighEdge<Across, Down>(reach, dragged, targets));
  if (edges.vertical > 0) result.bottom = Saturated(SnappedHighEdge<Down, Across>(reach, dragged, targets));
  return result;
}

}  // namespace jotlets
