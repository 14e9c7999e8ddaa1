// The mouse pointer over a part of a window's frame.
#pragma once

#include <windows.h>

#include "note/frame_layout.h"

namespace jotlets {

inline LPCWSTR CursorOf(FramePart part) {
  const DraggedEdges edges = EdgesOf(part);
  if (edges.horizontal == 0 && edges.vertical == 0) return IDC_ARROW;
  if (edges.vertical == 0) return IDC_SIZEWE;
  if (edges.horizontal == 0) return IDC_SIZENS;
  return edges.horizontal == edges.vertical ? IDC_SIZENWSE : IDC_SIZENESW;
}

}  // namespace jotlets
