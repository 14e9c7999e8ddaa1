#include "picture/orientation.h"

#include <array>
#include <utility>

namespace jotlets {
namespace {

// Every orientation is: rows become columns or not, then each axis is turned around or not.
struct Axes {
  bool swapped = false;
  bool mirrored = false;
  bool flipped = false;
};

constexpr std::array<Axes, 9> kAxes{{{},
                                     {false, false, false},
                                     {false, true, false},
                                     {false, true, true},
                                     {false, false, true},
                                     {true, false, false},
                                     {true, true, false},
                                     {true, true, true},
                                     {true, false, true}}};

Axes AxesOf(Orientation orientation) {
  const auto number = static_cast<std::size_t>(orientation);
  return number < kAxes.size() ? kAxes[number] : Axes{};
}

Orientation OfAxes(const Axes& axes) {
  std::size_t number = 1;
  while (kAxes[number].swapped != axes.swapped || kAxes[number].mirrored != axes.mirrored ||
         kAxes[number].flipped != axes.flipped)
    ++number;
  return static_cast<Orientation>(number);
}

// Squares of this side are moved one after the other, so that the rows of one stay at hand.
constexpr std::int32_t kSquare = 64;

void SwapAxes(const Picture& from, Picture& to, const Axes& axes) {
  const std::ptrdiff_t row = static_cast<std::ptrdiff_t>(from.size.width) * 4;
  const std::ptrdiff_t down = axes.mirrored ? -row : row;  // to the source of the next pixel
  for (std::int32_t top = 0; top < to.size.height; top += kSquare) {
    const std::int32_t bottom = std::min(top + kSquare, to.size.height);
    for (std::int32_t left = 0; left < to.size.width; left += kSquare) {
      const std::int32_t right = std::min(left + kSquare, to.size.width);
      for (std::int32_t y = top; y < bottom; ++y) {
        const std::uint8_t* source = PixelPlace(from, axes.flipped ? from.size.width - 1 - y : y,
                                                axes.mirrored ? from.size.height - 1 - left : left);
        std::uint8_t* target = PixelPlace(to, left, y);
        for (std::int32_t x = left; x < right; ++x, source += down, target += 4)
          StorePixel(target, LoadPixel(source));
      }
    }
  }
}

void MirrorRow(std::uint8_t* row, std::int32_t count) {
  std::uint8_t* end = row + static_cast<std::ptrdiff_t>(count) * 4;
  for (std::int32_t i = 0; i < count / 2; ++i) {
    end -= 4;
    const Pixel first = LoadPixel(row);
    StorePixel(row, LoadPixel(end));
    StorePixel(end, first);
    row += 4;
  }
}

bool SwapsSides(Orientation orientation) { return AxesOf(orientation).swapped; }

}  // namespace

Size Oriented(Size size, Orientation orientation) {
  return SwapsSides(orientation) ? Size{size.height, size.width} : size;
}

Spot Oriented(Spot spot, Size size, Orientation orientation) {
  const Axes axes = AxesOf(orientation);
  const Size target = Oriented(size, orientation);
  if (axes.swapped) std::swap(spot.x, spot.y);
  return {axes.mirrored ? target.width - spot.x : spot.x, axes.flipped ? target.height - spot.y : spot.y};
}

Rect Oriented(const Rect& rect, Size size, Orientation orientation) {
  const Axes axes = AxesOf(orientation);
  const Size target = Oriented(size, orientation);
  Rect to = axes.swapped ? Rect{rect.top, rect.left, rect.bottom, rect.right} : rect;
  if (axes.mirrored) to = {target.width - to.right, to.top, target.width - to.left, to.bottom};
  if (axes.flipped) to = {to.left, target.height - to.bottom, to.right, target.height - to.top};
  return to;
}

Orientation Combined(Orientation first, Orientation second) {
  Axes axes = AxesOf(first);
  const Axes after = AxesOf(second);
  if (after.swapped) std::swap(axes.mirrored, axes.flipped);
  return OfAxes(
      {axes.swapped != after.swapped, axes.mirrored != after.mirrored, axes.flipped != after.flipped});
}

Orientation Inverse(Orientation orientation) {
  if (orientation == Orientation::kTurnedRight) return Orientation::kTurnedLeft;
  return orientation == Orientation::kTurnedLeft ? Orientation::kTurnedRight : orientation;
}

Picture Oriented(const Picture& picture, Orientation orientation) {
  if (!SwapsSides(orientation)) {
    Picture copy = picture;
    OrientPart(copy, WholeOf(copy.size), orientation);
    return copy;
  }
  Picture turned = BlankPicture(Oriented(picture.size, orientation));
  SwapAxes(picture, turned, AxesOf(orientation));
  return turned;
}

void Orient(Picture& picture, Orientation orientation) {
  if (SwapsSides(orientation))
    picture = Oriented(picture, orientation);
  else
    OrientPart(picture, WholeOf(picture.size), orientation);
}

void OrientPart(Picture& picture, const Rect& rect, Orientation orientation) {
  const Axes axes = AxesOf(orientation);
  const Rect part = CommonPart(rect, WholeOf(picture.size));
  if (axes.swapped || IsEmptyRect(part)) return;
  const auto bytes = static_cast<std::ptrdiff_t>(part.Width()) * 4;
  for (std::int32_t y = 0; axes.flipped && y < part.Height() / 2; ++y) {
    std::uint8_t* upper = PixelPlace(picture, part.left, part.top + y);
    std::swap_ranges(upper, upper + bytes, PixelPlace(picture, part.left, part.bottom - 1 - y));
  }
  for (std::int32_t y = part.top; axes.mirrored && y < part.bottom; ++y)
    MirrorRow(PixelPlace(picture, part.left, y), part.Width());
}

std::vector<std::uint8_t> OrientedMask(const std::vector<std::uint8_t>& mask, Size size,
                                       Orientation orientation) {
  const Axes axes = AxesOf(orientation);
  const Size target = Oriented(size, orientation);
  std::vector<std::uint8_t> turned(mask.size());
  for (std::int32_t y = 0; y < size.height; ++y) {
    for (std::int32_t x = 0; x < size.width; ++x) {
      std::int32_t column = axes.swapped ? y : x;
      std::int32_t row = axes.swapped ? x : y;
      if (axes.mirrored) column = target.width - 1 - column;
      if (axes.flipped) row = target.height - 1 - row;
      turned[static_cast<std::size_t>(row) * static_cast<std::size_t>(target.width) +
             static_cast<std::size_t>(column)] =
          mask[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width) +
               static_cast<std::size_t>(x)];
    }
  }
  return turned;
}

}  // namespace jotlets
