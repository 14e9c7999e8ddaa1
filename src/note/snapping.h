// How windows snap to each other and to the edges of the monitors while they are dragged or sized.
#pragma once

#include <cstdint>
#include <span>

#include "base/geometry.h"
#include "data/options.h"
#include "note/frame_layout.h"

namespace jotlets {

struct SnapSettings {
  bool enabled = true;
  std::int32_t distance = 10;  // pixels at which an edge is caught
  std::int32_t gap = 2;        // pixels that are left between two windows, or a window and a monitor's edge

  /// Whether this move snaps: holding Alt turns the setting round.
  bool Snaps(bool alt) const { return enabled != alt; }
};

/// The option, whose pixels are for the usual scale, for windows of so many dots per inch.
SnapSettings SnapSettingsFrom(const Options& options, std::int32_t dpi = kUsualDpi);

/// What there is to snap to. The order counts: of several hits among the windows the last one stays.
struct SnapTargets {
  std::span<const Rect> windows;   // the other notes that are shown, in list order, then the stacks
  std::span<const Rect> monitors;  // as in `MonitorList`; they only catch what lies inside
};

/// The place of a window that the mouse has brought to `dragged`; it keeps its size.
Rect SnappedMove(const Rect& dragged, const SnapSettings& settings, bool alt, const SnapTargets& targets);

/// The window whose `edges` the mouse has brought to `dragged`. Each edge snaps by itself and the others
/// stay, so the result can be smaller than a window may be: see `SafeBounds`.
Rect SnappedSizing(const Rect& dragged, DraggedEdges edges, const SnapSettings& settings, bool alt,
                   const SnapTargets& targets);

}  // namespace jotlets
