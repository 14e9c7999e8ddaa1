// The plain frame of a note window: a one-pixel border, a title bar with a close button, the content below.
#pragma once

#include <cstdint>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

/// Lengths at 96 dots per inch; scaled by the window's own resolution.
inline constexpr std::int32_t kTitleHeight = 24;
inline constexpr std::int32_t kResizeMargin = 5;
inline constexpr std::int32_t kCornerMargin = 12;
inline constexpr std::int32_t kContentMargin = 6;
inline constexpr Size kMinimumNoteSize{80, 40};

/// The parts of a note window of one size, in client pixels.
struct FrameLayout {
  Rect title;  // the drag area, the close button not counted out
  Rect closeButton;
  Rect content;
};

/// `dpi` 96 is the scale of the constants.
FrameLayout LayOutFrame(Size window, std::int32_t dpi);

enum class FramePart {
  kContent,
  kTitle,
  kClose,
  kLeft,
  kRight,
  kTop,
  kBottom,
  kTopLeft,
  kTopRight,
  kBottomLeft,
  kBottomRight,
};

/// Which edges a part is made of: -1 left or top, 1 right or bottom, 0 neither.
struct DraggedEdges {
  int horizontal = 0;
  int vertical = 0;
};
DraggedEdges EdgesOf(FramePart part);

/// What lies under a point of the window.
FramePart HitTestFrame(Point at, Size window, std::int32_t dpi);

/// The size a window takes when it is asked for `size`: never below the minimum.
Size SafeSize(Size size, Size minimum);

/// The window while an edge or corner is dragged by `offset`: the dragged edges follow the mouse, the
/// opposite ones stay, and the size never falls below `minimum`.
Rect SizedBounds(const Rect& start, FramePart part, Point offset, Size minimum);

/// The title that a note shows: its own, or else the first line of its text that is not blank, at most 80
/// units.
Text ShownTitle(TextView title, TextView plainText);

}  // namespace jotlets
