#include "note/frame_layout.h"

#include <algorithm>

namespace jotlets {
namespace {

constexpr std::size_t kLongestShownTitle = 80;

std::int32_t Scaled(std::int32_t length, std::int32_t dpi) {
  return static_cast<std::int32_t>(static_cast<std::int64_t>(length) * std::max(dpi, 96) / 96);
}

// -1 near the low edge, 1 near the high edge, 0 between.
int NearEdge(std::int32_t at, std::int32_t length, std::int32_t margin) {
  if (at < margin) return -1;
  return at >= length - margin ? 1 : 0;
}

// Row by row from the top left.
constexpr FramePart kEdgeParts[3][3] = {
    {FramePart::kTopLeft, FramePart::kTop, FramePart::kTopRight},
    {FramePart::kLeft, FramePart::kContent, FramePart::kRight},
    {FramePart::kBottomLeft, FramePart::kBottom, FramePart::kBottomRight}};

}  // namespace

FrameLayout LayOutFrame(Size window, std::int32_t dpi) {
  const std::int32_t title = Scaled(kTitleHeight, dpi);
  const std::int32_t margin = Scaled(kContentMargin, dpi);
  FrameLayout layout;
  layout.title = {0, 0, window.width, std::min(title, window.height)};
  layout.closeButton = {std::max(window.width - title, 0), 0, window.width, layout.title.bottom};
  layout.content = {margin, title, std::max(window.width - margin, margin),
                    std::max(window.height - margin, title)};
  return layout;
}

DraggedEdges EdgesOf(FramePart part) {
  for (int vertical = -1; vertical <= 1; ++vertical) {
    for (int horizontal = -1; horizontal <= 1; ++horizontal) {
      if (kEdgeParts[vertical + 1][horizontal + 1] == part) return {horizontal, vertical};
    }
  }
  return {};
}

FramePart HitTestFrame(Point at, Size window, std::int32_t dpi) {
  const std::int32_t margin = Scaled(kResizeMargin, dpi);
  int horizontal = NearEdge(at.x, window.width, margin);
  int vertical = NearEdge(at.y, window.height, margin);
  if (horizontal != 0 || vertical != 0) {
    // Along an edge, the stretch near its end takes both directions: corners are easier to hit.
    const std::int32_t corner = Scaled(kCornerMargin, dpi);
    if (horizontal == 0) horizontal = NearEdge(at.x, window.width, corner);
    if (vertical == 0) vertical = NearEdge(at.y, window.height, corner);
    return kEdgeParts[vertical + 1][horizontal + 1];
  }
  const FrameLayout layout = LayOutFrame(window, dpi);
  if (layout.closeButton.Contains(at)) return FramePart::kClose;
  return layout.title.Contains(at) ? FramePart::kTitle : FramePart::kContent;
}

Size SafeSize(Size size, Size minimum) {
  return {std::max(size.width, minimum.width), std::max(size.height, minimum.height)};
}

Rect SizedBounds(const Rect& start, FramePart part, Point offset, Size minimum) {
  const DraggedEdges edges = EdgesOf(part);
  Rect bounds = start;
  if (edges.horizontal < 0) bounds.left = std::min(start.left + offset.x, start.right - minimum.width);
  if (edges.horizontal > 0) bounds.right = std::max(start.right + offset.x, start.left + minimum.width);
  if (edges.vertical < 0) bounds.top = std::min(start.top + offset.y, start.bottom - minimum.height);
  if (edges.vertical > 0) bounds.bottom = std::max(start.bottom + offset.y, start.top + minimum.height);
  return bounds;
}

Text ShownTitle(TextView title, TextView plainText) {
  if (!title.empty()) return OneLine(title);
  while (!plainText.empty()) {
    const std::size_t end = plainText.find_first_of(u"\r\n");
    const TextView line = TrimBlanks(plainText.substr(0, end));
    if (!line.empty()) return Text(line.substr(0, kLongestShownTitle));
    if (end == TextView::npos) break;
    plainText.remove_prefix(end + 1);
  }
  return {};
}

}  // namespace jotlets
