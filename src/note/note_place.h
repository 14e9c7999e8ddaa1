// The place that the user chose for a note, kept apart from the place where the note is shown: a note that
// had to leave a monitor returns with it, and its record never learns of the detour.
#pragma once

#include <cstdint>

#include "base/geometry.h"
#include "note/monitors.h"

namespace jotlets {

/// A window is shown at a scale, in dots per inch; 96 is a scale of 100 %. Where it is chosen to be is a
/// place on the screen, with a size for 96 dots per inch.
///
///     monitors change         shown is computed anew from chosen, also when the monitor comes back
///     the scale changes       shown is resized
///     the user places it      chosen and shown are both what the user did
///     the record is saved     it gets chosen
///
/// Every scaled size is computed from the size that the user last gave the note, at the scale of that time,
/// so that a note which goes to and fro between scales does not creep.
class NotePlace {
 public:
  /// A note whose record says `chosen`, shown there until `MonitorsChanged` says otherwise.
  explicit NotePlace(const Rect& chosen, std::int32_t dpi = kUsualDpi);

  /// Where the window belongs.
  const Rect& Shown() const { return shown_; }
  /// What the record is to say.
  const Rect& Chosen() const { return chosen_; }
  /// The scale of the window.
  std::int32_t Dpi() const { return dpi_; }

  /// The monitors are (now) these; true when the note is to be shown elsewhere than before.
  bool MonitorsChanged(const MonitorSetup& screens);

  /// The window has come to a place of another scale; true when its size changes. The top-left corner stays.
  bool ScaleChanged(std::int32_t dpi);

  /// The user moved or sized the window to `bounds`, in pixels, or a command did for him.
  void Choose(const Rect& bounds);

  friend bool operator==(const NotePlace&, const NotePlace&) = default;

 private:
  Size SizeAt(std::int32_t dpi) const;

  Rect chosen_;
  Rect shown_;
  std::int32_t dpi_;       // of the window as shown
  Size givenSize_;         // by the user
  std::int32_t givenDpi_;  // when he did
};

/// Where a window goes that is dragged to `monitor` and is to have another size there: it is resized about
/// `held`, where the mouse holds it, and its middle stays on that monitor. A window that grew back over the
/// edge would shrink on the other side, and grow again, with every step of the mouse.
Rect ResizedOn(const Rect& monitor, const Rect& bounds, Point held, Size size);

}  // namespace jotlets
