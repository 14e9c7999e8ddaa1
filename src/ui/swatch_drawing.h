// The picture of a row of swatches: circles with smooth edges, which the system's own drawing has not.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "base/geometry.h"
#include "ui/swatch_row.h"
#include "ui/theme.h"

namespace jotlets {

struct SwatchState {
  bool marked = false;
  bool current = false;
  bool grey = false;
};

class SwatchDrawing {
 public:
  /// `area` is where the row stands in its window, a menu.
  SwatchDrawing(const Rect& area, std::int32_t dpi, const Theme& theme);

  /// Draws one whose middle is this far from the left of the area.
  void Draw(Swatch::Kind kind, Colour colour, std::int32_t middle, const SwatchState& state);
  void PutOn(HDC dc) const;

 private:
  struct Place {
    double x = 0;
    double y = 0;
  };
  void Disc(Place middle, double radius, Colour colour);
  void Line(Place from, Place to, double width, Colour colour);
  void Blend(std::int32_t x, std::int32_t y, double coverage, Colour colour);

  Rect area_;
  double scale_;
  Colour paper_;
  Colour ink_;
  Colour mark_;
  std::vector<std::uint32_t> pixels_;
};

}  // namespace jotlets
