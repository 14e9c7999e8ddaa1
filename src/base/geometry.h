// Points, sizes and rectangles in screen pixels; right and bottom lie one past the last pixel.
#pragma once

#include <cstdint>

namespace jotlets {

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

  std::int32_t Width() const { return right - left; }
  std::int32_t Height() const { return bottom - top; }
  bool Contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// Three bytes of colour, 0 to 255 each.
struct Colour {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

}  // namespace jotlets
