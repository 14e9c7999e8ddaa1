// How much of each pixel a shape covers: closed polygons, filled where they wind around, and the outlines of
// lines with round ends and joins as such polygons. Knows no colours.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "base/geometry.h"

namespace jotlets {

/// A place between pixels: (0, 0) is the corner of the first pixel, (0.5, 0.5) its middle.
struct Spot {
  double x = 0;
  double y = 0;
  friend bool operator==(const Spot&, const Spot&) = default;
};

using Polygon = std::vector<Spot>;
/// Polygons that count together: what one of them covers is covered. Those made here all wind the same way.
using Shape = std::vector<Polygon>;

/// One point of a drawn line; the pressure, 0 to 1, is the part of the width that the line has there.
struct StrokePoint {
  Spot place;
  double pressure = 1;
  friend bool operator==(const StrokePoint&, const StrokePoint&) = default;
};

/// A part of one row of pixels, and how much of each is covered (255: all of it).
using CoverageRow =
    std::function<void(std::int32_t y, std::int32_t left, std::span<const std::uint8_t> coverage)>;

/// Hands over the covered parts of all rows inside `clip`, from the top. Places that are no finite numbers
/// cover nothing.
void Rasterise(const Shape& shape, const Rect& clip, const CoverageRow& row);

/// A line of this width through the points, with round ends and joins; a point alone is a dot. Pieces of it
/// that cover nothing of `clip` are left out.
Shape StrokeShape(std::span<const StrokePoint> points, double width, const Rect& clip);

/// The points of a smooth line that begins and ends where `points` do. A further point changes it only from
/// the last but one on.
std::vector<StrokePoint> Smoothed(std::span<const StrokePoint> points);

/// The ellipse between two opposite corners.
Polygon EllipseShape(Spot corner, Spot opposite);

/// The rectangle between two opposite corners.
Polygon RectangleShape(Spot corner, Spot opposite);

}  // namespace jotlets
