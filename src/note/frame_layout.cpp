#include "note/frame_layout.h"

#include <algorithm>

namespace jotlets {
namespace {

constexpr std::size_t kLongestShownTitle = 80;
constexpr std::size_t kLongestLine = 1000;

// -1 near the low edge, 1 near the high edge, 0 between.
int NearEdge(std::int32_t at, std::int32_t length, std::int32_t margin) {
  if (at < margin) return -1;
  return at >= length - margin ? 1 : 0;
}

// Row by row from the top left.
constexpr FramePart kEdgeParts[3][3] = {
    {FramePart::kTopLeft, FramePart::kTop, FramePart::kTopRight},
    {FramePart::kLeft, FramePart::kMove, FramePart::kRight},
    {FramePart::kBottomLeft, FramePart::kBottom, FramePart::kBottomRight}};

}  // namespace

FramePart WithoutSizing(FramePart part) { return EdgesOf(part) == DraggedEdges{} ? part : FramePart::kMove; }

DraggedEdges EdgesOf(FramePart part) {
  for (int vertical = -1; vertical <= 1; ++vertical) {
    for (int horizontal = -1; horizontal <= 1; ++horizontal) {
      if (kEdgeParts[vertical + 1][horizontal + 1] == part) return {horizontal, vertical};
    }
  }
  return {};
}

FramePart HitTestFrame(Point at, Size window, const Rect& content, bool rolled, std::int32_t dpi) {
  const std::int32_t margin = ScaledLength(kResizeMargin, dpi);
  const std::int32_t corner = ScaledLength(kCornerMargin, dpi);
  if (content.Contains(at)) return FramePart::kContent;
  int horizontal = NearEdge(at.x, window.width, margin);
  int vertical = rolled ? 0 : NearEdge(at.y, window.height, margin);
  // Along an edge, the stretch near its end takes both directions: corners are easier to hit.
  if (vertical != 0 && horizontal == 0) horizontal = NearEdge(at.x, window.width, corner);
  if (horizontal != 0 && vertical == 0 && !rolled) vertical = NearEdge(at.y, window.height, corner);
  return kEdgeParts[vertical + 1][horizontal + 1];
}

Rect WithinResizeMargin(Rect content, Size window, std::int32_t dpi) {
  const std::int32_t margin = ScaledLength(kResizeMargin, dpi);
  content.left = std::max(content.left, margin);
  content.right = std::max(std::min(content.right, window.width - margin), content.left);
  content.bottom = std::max(std::min(content.bottom, window.height - margin), content.top);
  return content;
}

Size SmallestNoteSize(Size wanted, Size screens) {
  return SafeSize({std::min(wanted.width, screens.width), std::min(wanted.height, screens.height)},
                  kMinimumNoteSize);
}

Size SafeSize(Size size, Size minimum) {
  constexpr std::int32_t kLargestArea = 32 << 20;
  const std::int32_t width = std::clamp(std::max(size.width, minimum.width), 1, kLongestSide);
  const std::int32_t height = std::min(size.height, std::min(kLargestArea / width, kLongestSide));
  return {width, std::max(height, minimum.height)};
}

Rect DraggedBounds(const Rect& bounds, DraggedEdges dragged, Point offset) {
  const auto moved = [](std::int32_t edge, std::int32_t by) { return Saturated(std::int64_t{edge} + by); };
  Rect result = bounds;
  if (dragged.horizontal < 0) result.left = moved(bounds.left, offset.x);
  if (dragged.horizontal > 0) result.right = moved(bounds.right, offset.x);
  if (dragged.vertical < 0) result.top = moved(bounds.top, offset.y);
  if (dragged.vertical > 0) result.bottom = moved(bounds.bottom, offset.y);
  return result;
}

Rect SafeBounds(const Rect& bounds, DraggedEdges dragged, Size minimum) {
  const Size size = SafeSize({bounds.Width(), bounds.Height()}, minimum);
  Rect result = RectAt(bounds.TopLeft(), size);
  if (dragged.horizontal < 0) {
    result.right = bounds.right;
    result.left = Saturated(std::int64_t{bounds.right} - size.width);
  }
  if (dragged.vertical < 0) {
    result.bottom = bounds.bottom;
    result.top = Saturated(std::int64_t{bounds.bottom} - size.height);
  }
  return result;
}

Text ShownLine(TextView text) {
  Text line = OneLine(text);
  std::ranges::replace_if(
      line, [](char16_t unit) { return unit < u' '; }, u' ');
  return Text(TrimBlanks(line));
}

Text ShownTitle(TextView title, TextView plainText) {
  if (!title.empty()) return OneLine(title);
  while (!plainText.empty()) {
    const std::size_t end = plainText.find_first_of(u"\r\n");
    const Text line = ShownLine(plainText.substr(0, std::min(end, kLongestLine)));
    if (!line.empty()) return line.substr(0, kLongestShownTitle);
    if (end == TextView::npos) break;
    plainText.remove_prefix(end + 1);
  }
  return {};
}

}  // namespace jotlets
