#include "picture/resizing.h"

#include <algorithm>
#include <cmath>
#include <list>
#include <utility>

namespace jotlets {
namespace {

// Which of the old pixels of a line a new one is made of, and how much of each. All together come to 1.
struct Mixture {
  std::int32_t first = 0;
  std::vector<float> parts;
};

Mixture MeanOf(std::int32_t at, std::int32_t from, std::int32_t to) {
  const double start = static_cast<double>(at) * from / to;
  const double end = static_cast<double>(at + 1) * from / to;
  Mixture mixture{static_cast<std::int32_t>(start), {}};
  for (std::int32_t i = mixture.first; i < std::min<double>(end, from); ++i) {
    const double part = std::min<double>(end, i + 1) - std::max<double>(start, i);
    mixture.parts.push_back(static_cast<float>(part * to / from));
  }
  return mixture;
}

// The weight of a pixel that lies so far away, for a curve that goes through all of them.
double CurvePart(double distance) {
  const double x = std::abs(distance);
  if (x < 1) return (1.5 * x - 2.5) * x * x + 1;
  return x < 2 ? ((-0.5 * x + 2.5) * x - 4) * x + 2 : 0;
}

Mixture CurveThrough(std::int32_t at, std::int32_t from, std::int32_t to) {
  const double middle = (at + 0.5) * from / to - 0.5;
  const auto before = static_cast<std::int32_t>(std::floor(middle));
  Mixture mixture{std::clamp(before - 1, 0, from - 1), {}};
  const std::int32_t last = std::clamp(before + 2, 0, from - 1);
  mixture.parts.resize(static_cast<std::size_t>(last - mixture.first) + 1);
  // Beyond the ends the outermost pixels go on.
  for (std::int32_t i = before - 1; i <= before + 2; ++i)
    mixture.parts[static_cast<std::size_t>(std::clamp(i, mixture.first, last) - mixture.first)] +=
        static_cast<float>(CurvePart(middle - i));
  return mixture;
}

std::vector<Mixture> MixturesOf(std::int32_t from, std::int32_t to) {
  std::vector<Mixture> mixtures;
  mixtures.reserve(static_cast<std::size_t>(to));
  for (std::int32_t at = 0; at < to; ++at)
    mixtures.push_back(to < from ? MeanOf(at, from, to) : CurveThrough(at, from, to));
  return mixtures;
}

using Line = std::vector<float>;

Line MixedRow(const Picture& picture, std::int32_t y, const std::vector<Mixture>& columns) {
  Line line;
  line.reserve(columns.size() * 4);
  for (const Mixture& column : columns) {
    const std::uint8_t* pixel = PixelPlace(picture, column.first, y);
    float sums[4] = {};
    for (const float part : column.parts) {
      for (std::size_t i = 0; i < 4; ++i) sums[i] += part * static_cast<float>(pixel[i]);
      pixel += 4;
    }
    line.insert(line.end(), sums, sums + 4);
  }
  return line;
}

// The curves go beyond the colours that they are drawn through, but none beyond its alpha.
void StoreRow(const Line& line, std::uint8_t* to) {
  const auto byte = [](float value, int most) {
    return static_cast<std::uint8_t>(std::clamp(static_cast<int>(std::floor(value + 0.5F)), 0, most));
  };
  for (std::size_t at = 0; at < line.size(); at += 4, to += 4) {
    to[3] = byte(line[at + 3], 255);
    for (std::size_t i = 0; i < 3; ++i) to[i] = byte(line[at + i], to[3]);
  }
}

}  // namespace

Picture Resized(const Picture& picture, Size size, const Cancelled& cancelled) {
  if (picture.pixels.empty() || size == picture.size) return picture;
  Picture resized = BlankPicture(size);
  if (resized.pixels.empty()) return resized;
  const std::vector<Mixture> columns = MixturesOf(picture.size.width, size.width);
  const std::vector<Mixture> rows = MixturesOf(picture.size.height, size.height);
  std::list<Line> lines;  // rows of the old picture in the new width, those that are still needed
  std::int32_t firstLine = 0;
  Line sum(static_cast<std::size_t>(size.width) * 4);
  for (std::int32_t y = 0; y < size.height; ++y) {
    if (cancelled && cancelled()) return {};
    const Mixture& row = rows[static_cast<std::size_t>(y)];
    while (firstLine < row.first) {
      if (!lines.empty()) lines.pop_front();
      ++firstLine;
    }
    while (lines.size() < row.parts.size())
      lines.push_back(MixedRow(picture, firstLine + static_cast<std::int32_t>(lines.size()), columns));
    std::fill(sum.begin(), sum.end(), 0.0F);
    auto line = lines.begin();
    for (const float part : row.parts) {
      for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += part * (*line)[i];
      ++line;
    }
    StoreRow(sum, PixelPlace(resized, 0, y));
  }
  return resized;
}

}  // namespace jotlets
