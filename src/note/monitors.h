// The monitors as the rules about places see them: a list of rectangles, and where a note is shown when the
// monitor that it was put on may be gone.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "base/geometry.h"

namespace jotlets {

/// How many monitors are recorded; further ones are left out.
inline constexpr std::size_t kMaxMonitors = 33;

/// The rectangles of the monitors, two for each in the order of the system: its work area, then all of it.
class MonitorList {
 public:
  /// Records a monitor; false once the list is full.
  bool Add(const Rect& workArea, const Rect& fullArea);
  std::span<const Rect> Rects() const { return {rects_.data(), count_}; }
  friend bool operator==(const MonitorList&, const MonitorList&) = default;

 private:
  std::array<Rect, 2 * kMaxMonitors> rects_{};
  std::size_t count_ = 0;
};

/// All that is known of the screens at one moment. Comparing it with the one of a moment ago tells whether
/// the monitors have changed.
struct MonitorSetup {
  Rect virtualScreen;
  MonitorList monitors;
  friend bool operator==(const MonitorSetup&, const MonitorSetup&) = default;
};

/// The work area of the monitor that shows most of `bounds`; of the first one when none shows any of it.
Rect WorkAreaAt(const MonitorList& monitors, const Rect& bounds);

/// Where a note is shown whose user chose `chosen`: there, as long as its top-left corner is on a monitor;
/// else it is rescued as `RescuedPosition` says, its size kept. Where that leaves it on no monitor at all, in
/// a corner that the virtual screen has and no monitor fills, it comes on to the nearest one.
Rect ShownPlace(const Rect& chosen, const MonitorSetup& screens);

}  // namespace jotlets
