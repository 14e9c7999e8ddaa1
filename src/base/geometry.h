// Points, sizes and rectangles in screen pixels; right and bottom lie one past the last pixel. Numbers from
// files reach the limits of the type: sums are made in 64 bits and end at these limits.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace jotlets {

/// `value`, or the nearest number that 32 bits hold.
constexpr std::int32_t Saturated(std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

/// The dots per inch at which a length of skins, notes and options is as many pixels.
inline constexpr std::int32_t kUsualDpi = 96;

/// A length, or a distance to either side, given for the usual dots per inch, at so many: to the nearest
/// pixel.
constexpr std::int32_t ScaledLength(std::int32_t length, std::int32_t dpi) {
  const std::int64_t twice = 2 * std::int64_t{length} * dpi;
  return Saturated((twice + (twice < 0 ? -kUsualDpi : kUsualDpi)) / (2 * kUsualDpi));
}

struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  std::int32_t width = 0;
  std::int32_t height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  std::int32_t Width() const { return Saturated(std::int64_t{right} - left); }
  std::int32_t Height() const { return Saturated(std::int64_t{bottom} - top); }
  Point TopLeft() const { return {left, top}; }
  bool Contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// Whether the two have a pixel in common.
constexpr bool Overlap(const Rect& a, const Rect& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

constexpr bool IsEmptyRect(const Rect& rect) { return rect.left >= rect.right || rect.top >= rect.bottom; }

/// The whole of something of this size.
constexpr Rect WholeOf(Size size) { return {0, 0, size.width, size.height}; }

/// What the two have in common; {} when that is nothing.
constexpr Rect CommonPart(const Rect& a, const Rect& b) {
  const Rect both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                  std::min(a.bottom, b.bottom)};
  return IsEmptyRect(both) ? Rect{} : both;
}

/// The smallest rectangle with both inside; an empty one does not count.
constexpr Rect Enclosing(const Rect& a, const Rect& b) {
  if (IsEmptyRect(a)) return b;
  if (IsEmptyRect(b)) return a;
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
          std::max(a.bottom, b.bottom)};
}

/// The rectangle of a place and a size.
constexpr Rect RectAt(Point topLeft, Size size) {
  return {topLeft.x, topLeft.y, Saturated(std::int64_t{topLeft.x} + size.width),
          Saturated(std::int64_t{topLeft.y} + size.height)};
}

/// How much of a pixel of a corner's square the round corner covers, 0 to 255; (0, 0) is the outermost one.
inline std::uint32_t CornerCoverage(Point at, std::int32_t radius) {
  const double across = radius - at.x - 0.5;
  const double up = radius - at.y - 0.5;
  const double inside = radius + 0.5 - std::sqrt(across * across + up * up);
  return static_cast<std::uint32_t>(std::lround(255 * std::clamp(inside, 0.0, 1.0)));
}

/// How many pixels of a row a round corner leaves out; row 0 is the outermost one.
constexpr std::int32_t CornerInset(std::int32_t radius, std::int32_t row) {
  const std::int64_t up = 2 * (std::int64_t{radius} - row) - 1;
  std::int32_t inset = 0;
  while (inset < radius) {
    const std::int64_t along = 2 * (std::int64_t{radius} - inset) - 1;
    if (along * along + up * up <= 4 * std::int64_t{radius} * radius) break;
    ++inset;
  }
  return inset;
}

/// Three bytes of colour, 0 to 255 each.
struct Colour {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

}  // namespace jotlets
