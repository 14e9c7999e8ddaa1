// The blur, one direction after the other. Sixteen rows or columns are blurred at a time, brought side by
// side first, so that every step of the running sums is one over 64 neighbouring bytes.
#include <algorithm>
#include <array>

#include "picture/effects.h"

namespace jotlets {
namespace {

constexpr std::int32_t kAbreast = 16;
constexpr std::size_t kBytes = kAbreast * 4;

using Sums = std::array<std::int32_t, kBytes>;

void Add(Sums& sums, const std::uint8_t* bytes, std::int32_t times) {
  for (std::size_t i = 0; i < kBytes; ++i) sums[i] += bytes[i] * times;
}

// Every place along the line becomes the mean of those up to `radius` before and after it. An odd number of
// them has no mean halfway between two numbers, so that floating point rounds as whole numbers would.
void Mean(const std::uint8_t* from, std::uint8_t* to, std::int32_t length, std::int32_t radius) {
  const auto place = [&](std::int32_t at) {
    return from + static_cast<std::size_t>(std::clamp(at, 0, length - 1)) * kBytes;
  };
  Sums sums{};
  Add(sums, place(0), radius);
  for (std::int32_t at = 0; at <= std::min(radius, length - 1); ++at) Add(sums, place(at), 1);
  if (radius > length - 1) Add(sums, place(length - 1), radius - (length - 1));
  constexpr float kHalf = 0.5F;
  const float share = 1.0F / static_cast<float>(2 * radius + 1);
  for (std::int32_t at = 0; at < length; ++at, to += kBytes) {
    const std::uint8_t* comes = place(at + radius + 1);
    const std::uint8_t* goes = place(at - radius);
    for (std::size_t i = 0; i < kBytes; ++i) {
      to[i] =
          static_cast<std::uint8_t>(static_cast<std::int32_t>(static_cast<float>(sums[i]) * share + kHalf));
      sums[i] += comes[i] - goes[i];
    }
  }
}

// Lines that lie abreast, and room for them to be blurred in.
struct Abreast {
  explicit Abreast(std::int32_t length)
      : lines(static_cast<std::size_t>(length) * kBytes), others(lines.size()), count(length) {}

  void Blur(std::int32_t radius) {
    for (std::int32_t i = 0; i < 3; ++i) {
      const std::int32_t part = (radius + i) / 3;
      if (part == 0) continue;
      Mean(lines.data(), others.data(), count, part);
      lines.swap(others);
    }
  }

  std::vector<std::uint8_t> lines;
  std::vector<std::uint8_t> others;
  std::int32_t count;
};

void BlurColumns(Picture& picture, const Rect& area, std::int32_t left, std::int32_t radius,
                 Abreast& abreast) {
  const auto bytes = static_cast<std::size_t>(std::min(kAbreast, area.right - left)) * 4;
  std::uint8_t* line = abreast.lines.data();
  for (std::int32_t y = area.top; y < area.bottom; ++y, line += kBytes)
    std::memcpy(line, PixelPlace(picture, left, y), bytes);
  abreast.Blur(radius);
  line = abreast.lines.data();
  for (std::int32_t y = area.top; y < area.bottom; ++y, line += kBytes)
    std::memcpy(PixelPlace(picture, left, y), line, bytes);
}

void BlurRows(Picture& picture, const Rect& area, std::int32_t top, std::int32_t radius, Abreast& abreast) {
  const std::int32_t rows = std::min(kAbreast, area.bottom - top);
  const auto each = [&](auto move) {
    for (std::int32_t row = 0; row < rows; ++row) {
      std::uint8_t* pixel = PixelPlace(picture, area.left, top + row);
      std::uint8_t* line = abreast.lines.data() + static_cast<std::size_t>(row) * 4;
      for (std::int32_t x = area.left; x < area.right; ++x, pixel += 4, line += kBytes) move(pixel, line);
    }
  };
  each([](const std::uint8_t* pixel, std::uint8_t* line) { StorePixel(line, LoadPixel(pixel)); });
  abreast.Blur(radius);
  each([](std::uint8_t* pixel, const std::uint8_t* line) { StorePixel(pixel, LoadPixel(line)); });
}

}  // namespace

bool Blur(Picture& picture, const Rect& area, std::int32_t radius, const Cancelled& cancelled) {
  const Rect part = CommonPart(area, WholeOf(picture.size));
  const std::int32_t reach = std::clamp(radius, 0, kMaxStrength);
  if (IsEmptyRect(part) || reach == 0) return true;
  Abreast rows(part.Width());
  for (std::int32_t top = part.top; top < part.bottom; top += kAbreast) {
    if (cancelled && cancelled()) return false;
    BlurRows(picture, part, top, reach, rows);
  }
  Abreast columns(part.Height());
  for (std::int32_t left = part.left; left < part.right; left += kAbreast) {
    if (cancelled && cancelled()) return false;
    BlurColumns(picture, part, left, reach, columns);
  }
  return true;
}

}  // namespace jotlets
