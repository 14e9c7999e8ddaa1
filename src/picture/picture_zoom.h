// How much of a picture is seen: all of it, made to fit, or a part at a percentage, which can be scrolled.
#pragma once

#include <cstdint>

#include "base/geometry.h"

namespace jotlets {

/// A picture, and the area of a window that it is shown in, at a scale in dots per inch.
struct PictureFrame {
  Size picture;  // in its pixels
  Rect area;
  std::int32_t dpi = kUsualDpi;
};

/// Where a part of a picture of this size lies when the whole of it is as large as `place`.
Rect PlacedIn(Size picture, const Rect& part, const Rect& place);

/// The pixels of it that are, also in part, inside `seen` then.
Rect PartSeen(Size picture, const Rect& place, const Rect& seen);

class PictureZoom {
 public:
  /// A hundred is as large as the scale of the monitor makes it.
  static constexpr std::int32_t kWhole = 100;

  /// The percentage; 0 as long as the picture is made to fit.
  std::int32_t Percent() const { return percent_; }
  bool IsFitted() const { return percent_ == 0; }
  /// Where the whole picture lies; what is outside the area is not seen.
  Rect Place(const PictureFrame& frame) const;

  void Fit() { percent_ = 0; }
  /// Gives it a percentage; what is shown at `at` stays there.
  void Set(std::int32_t percent, Point at, const PictureFrame& frame);
  /// One step larger for a positive number, smaller for a negative one.
  void Step(std::int32_t steps, Point at, const PictureFrame& frame);
  /// Moves what is seen by pixels of the window, as far as there is more; whether there was.
  bool Scroll(Point by, const PictureFrame& frame);

 private:
  Size SizeAt(std::int32_t percent, const PictureFrame& frame) const;
  void Put(const Rect& place, const Rect& area);

  std::int32_t percent_ = 0;
  // What is in the middle of the area, in parts of the picture.
  double x_ = 0.5;
  double y_ = 0.5;
};

}  // namespace jotlets
