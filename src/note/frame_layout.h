// The frame of a note window as the mouse meets it: moving, sizing from edges and corners.
#pragma once

#include <cstdint>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

/// Widths in pixels at which an edge is taken hold of, and the stretch of it near a corner that takes both.
inline constexpr std::int32_t kResizeMargin = 5;
inline constexpr std::int32_t kCornerMargin = 12;
/// No skin makes a note smaller than can be taken hold of.
inline constexpr Size kMinimumNoteSize{40, 16};

/// Larger than any screen, smaller than what the system's coordinates can hold.
inline constexpr std::int32_t kLongestSide = 30000;

/// The parts of a note window that the mouse takes hold of; skins say where the content lies.
enum class FramePart {
  kContent,
  kMove,
  kLeft,
  kRight,
  kTop,
  kBottom,
  kTopLeft,
  kTopRight,
  kBottomLeft,
  kBottomRight,
};

/// What a part does while notes keep their size: what would size one moves it.
FramePart WithoutSizing(FramePart part);

/// Which edges a part is made of: -1 left or top, 1 right or bottom, 0 neither.
struct DraggedEdges {
  int horizontal = 0;
  int vertical = 0;
  friend bool operator==(const DraggedEdges&, const DraggedEdges&) = default;
};
DraggedEdges EdgesOf(FramePart part);

/// What lies under a point of the window, whose text area is `content`. The text goes before the edges, which
/// a skin may make as narrow as it likes. A note that is rolled up is sized in its width alone.
FramePart HitTestFrame(Point at, Size window, const Rect& content, bool rolled, std::int32_t dpi = kUsualDpi);

/// A content that leaves the edges of the window to be taken hold of.
Rect WithinResizeMargin(Rect content, Size window, std::int32_t dpi);

/// The smallest size of a note whose skin asks for `wanted`: no less than can be taken hold of, and no more
/// than the screens show, since a note that was forced to be larger could never be made smaller again.
Size SmallestNoteSize(Size wanted, Size screens);

/// The size a window takes when it is asked for `size`: never below the minimum, and no more than fits into
/// the coordinates and the memory of a system with a wall of screens. Of what is too large the height gives
/// way.
Size SafeSize(Size size, Size minimum);

/// `bounds` with its `dragged` edges moved by `offset`; the other edges stay.
Rect DraggedBounds(const Rect& bounds, DraggedEdges dragged, Point offset);

/// `bounds` brought up to `minimum`, which the dragged edges give way for.
Rect SafeBounds(const Rect& bounds, DraggedEdges dragged, Size minimum);

/// A text on one line, without the signs that have no look, tabulators among them, and without blanks around
/// it.
Text ShownLine(TextView text);

/// The title that a note shows: its own, or else the first line of its text that is not blank, at most 80
/// units.
Text ShownTitle(TextView title, TextView plainText);

}  // namespace jotlets
