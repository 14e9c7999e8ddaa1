#include "picture/coverage.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "picture/pixels.h"

namespace jotlets {
namespace {

// Each row of pixels is looked at along this many lines.
constexpr std::int32_t kLines = 16;
// Places beyond are moved there: far outside of every picture, and nothing overflows.
constexpr double kFarthest = 1e8;
// A curve is made of straight pieces that are this near to it, in pixels.
constexpr double kFlatness = 0.05;

struct Edge {
  double x = 0;     // on the line `first`
  double step = 0;  // to the next line
  std::int64_t first = 0;
  std::int64_t end = 0;
  int direction = 0;
};

struct Crossing {
  double x = 0;
  int direction = 0;
};

bool IsUsable(const Polygon& polygon) {
  for (const Spot& spot : polygon)
    if (!(std::abs(spot.x) <= kFarthest && std::abs(spot.y) <= kFarthest)) return false;
  return polygon.size() >= 3;
}

// A closed polygon that lies beside the clip covers nothing inside.
bool Touches(const Polygon& polygon, const Rect& clip) {
  Spot least = polygon.front();
  Spot greatest = least;
  for (const Spot& spot : polygon) {
    least = {std::min(least.x, spot.x), std::min(least.y, spot.y)};
    greatest = {std::max(greatest.x, spot.x), std::max(greatest.y, spot.y)};
  }
  return greatest.x > clip.left && least.x < clip.right && greatest.y > clip.top && least.y < clip.bottom;
}

std::int64_t FirstLineFrom(double y) { return static_cast<std::int64_t>(std::ceil(y * kLines - 0.5)); }

void AddEdge(std::vector<Edge>& edges, Spot from, Spot to, const Rect& clip) {
  const int direction = from.y < to.y ? 1 : -1;
  if (direction < 0) std::swap(from, to);
  Edge edge;
  edge.first = std::max(FirstLineFrom(from.y), std::int64_t{clip.top} * kLines);
  edge.end = std::min(FirstLineFrom(to.y), std::int64_t{clip.bottom} * kLines);
  if (edge.first >= edge.end) return;
  const double slope = (to.x - from.x) / (to.y - from.y);
  edge.x = from.x + ((static_cast<double>(edge.first) + 0.5) / kLines - from.y) * slope;
  edge.step = slope / kLines;
  edge.direction = direction;
  edges.push_back(edge);
}

// What is covered of one row, in parts of 256 of a line, as differences from pixel to pixel.
class RowSums {
 public:
  explicit RowSums(const Rect& clip)
      : left_(clip.left), width_(clip.Width()), differences_(static_cast<std::size_t>(width_) + 2) {}

  void Cover(double from, double to) {
    const std::int64_t start = Place(from);
    const std::int64_t end = Place(to);
    if (start >= end) return;
    Step(start, 1);
    Step(end, -1);
    least_ = std::min(least_, start / 256);
    greatest_ = std::max(greatest_, (end + 255) / 256);
  }

  // Hands the row over and begins the next one.
  void Flush(std::int32_t y, const CoverageRow& row) {
    if (least_ >= greatest_) return;
    coverage_.clear();
    std::int64_t sum = 0;
    for (std::int64_t at = least_; at < greatest_; ++at) {
      sum += std::exchange(differences_[static_cast<std::size_t>(at)], 0);
      coverage_.push_back(static_cast<std::uint8_t>((sum * 255 + kLines * 128) / (kLines * 256)));
    }
    differences_[static_cast<std::size_t>(greatest_)] = 0;
    differences_[static_cast<std::size_t>(greatest_) + 1] = 0;
    row(y, left_ + static_cast<std::int32_t>(least_), coverage_);
    least_ = width_;
    greatest_ = 0;
  }

 private:
  std::int64_t Place(double x) const {
    return static_cast<std::int64_t>(
        std::llround(std::clamp(x - left_, 0.0, static_cast<double>(width_)) * 256));
  }
  void Step(std::int64_t place, std::int32_t sign) {
    const auto pixel = static_cast<std::size_t>(place / 256);
    const auto within = static_cast<std::int32_t>(place % 256);
    differences_[pixel] += sign * (256 - within);
    differences_[pixel + 1] += sign * within;
  }

  std::int32_t left_;
  std::int32_t width_;
  std::int64_t least_ = width_;
  std::int64_t greatest_ = 0;
  std::vector<std::int32_t> differences_;
  std::vector<std::uint8_t> coverage_;
};

void CoverLine(std::vector<Crossing>& crossings, RowSums& sums) {
  std::sort(crossings.begin(), crossings.end(),
            [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
  int winding = 0;
  double start = 0;
  for (const Crossing& crossing : crossings) {
    if (winding == 0) start = crossing.x;
    winding += crossing.direction;
    if (winding == 0) sums.Cover(start, crossing.x);
  }
}

std::vector<Edge> EdgesOf(const Shape& shape, const Rect& clip) {
  std::vector<Edge> edges;
  for (const Polygon& polygon : shape) {
    if (!IsUsable(polygon) || !Touches(polygon, clip)) continue;
    for (std::size_t i = 0; i < polygon.size(); ++i)
      AddEdge(edges, polygon[i], polygon[(i + 1) % polygon.size()], clip);
  }
  std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.first < b.first; });
  return edges;
}

// Points on a part of a circle, `sweep` radians from `start` on, both ends included.
void AddArc(Polygon& polygon, Spot middle, double radius, double start, double sweep) {
  const double piece = 2 * std::acos(1 - std::min(1.0, kFlatness / std::max(radius, kFlatness)));
  const int pieces = std::clamp(static_cast<int>(std::ceil(sweep / piece)), 3, 256);
  for (int i = 0; i <= pieces; ++i) {
    const double angle = start + sweep * i / pieces;
    polygon.push_back({middle.x + radius * std::cos(angle), middle.y + radius * std::sin(angle)});
  }
}

// One piece of a line: half a circle around each end and the straight sides between them.
Polygon Capsule(Spot from, double fromRadius, Spot to, double toRadius) {
  Polygon polygon;
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  if (length <= std::abs(fromRadius - toRadius) || length < 1e-9) {
    const bool isFrom = fromRadius > toRadius;
    AddArc(polygon, isFrom ? from : to, std::max(fromRadius, toRadius), 0, 2 * std::numbers::pi);
    return polygon;
  }
  const double angle = std::atan2(to.y - from.y, to.x - from.x);
  AddArc(polygon, to, toRadius, angle - std::numbers::pi / 2, std::numbers::pi);
  AddArc(polygon, from, fromRadius, angle + std::numbers::pi / 2, std::numbers::pi);
  return polygon;
}

StrokePoint Between(const StrokePoint& a, const StrokePoint& b, double part) {
  return {{a.place.x + (b.place.x - a.place.x) * part, a.place.y + (b.place.y - a.place.y) * part},
          a.pressure + (b.pressure - a.pressure) * part};
}

// The curve from one point to another that is drawn towards a third, without its beginning.
void AddCurve(std::vector<StrokePoint>& out, StrokePoint from, const StrokePoint& towards,
              const StrokePoint& to) {
  const double length = std::hypot(to.place.x - from.place.x, to.place.y - from.place.y);
  const int pieces = length < 1e4 ? std::clamp(static_cast<int>(length / 3) + 1, 2, 24) : 2;
  for (int i = 1; i <= pieces; ++i) {
    const double part = static_cast<double>(i) / pieces;
    out.push_back(Between(Between(from, towards, part), Between(towards, to, part), part));
  }
}

double Radius(const StrokePoint& point, double width) {
  return std::max(0.25, width * std::clamp(point.pressure, 0.0, 1.0) / 2);
}

}  // namespace

void Rasterise(const Shape& shape, const Rect& clip, const CoverageRow& row) {
  if (IsEmptyRect(clip)) return;
  const std::vector<Edge> edges = EdgesOf(shape, clip);
  if (edges.empty()) return;
  RowSums sums(clip);
  std::vector<Edge> active;
  std::vector<Crossing> crossings;
  std::size_t next = 0;
  for (std::int64_t line = edges.front().first; next < edges.size() || !active.empty(); ++line) {
    if (active.empty()) line = std::max(line, edges[next].first);
    while (next < edges.size() && edges[next].first == line) active.push_back(edges[next++]);
    crossings.clear();
    for (Edge& edge : active) {
      crossings.push_back({edge.x, edge.direction});
      edge.x += edge.step;
    }
    CoverLine(crossings, sums);
    std::erase_if(active, [line](const Edge& edge) { return edge.end <= line + 1; });
    const std::int64_t nextLine = active.empty() && next < edges.size() ? edges[next].first : line + 1;
    const bool isEnd = active.empty() && next == edges.size();
    const auto rowOf = [](std::int64_t at) {
      return static_cast<std::int32_t>((at - (at % kLines + kLines) % kLines) / kLines);
    };
    if (isEnd || rowOf(nextLine) != rowOf(line)) sums.Flush(rowOf(line), row);
  }
}

Shape StrokeShape(std::span<const StrokePoint> points, double width, const Rect& clip) {
  Shape shape;
  const auto add = [&](const StrokePoint& from, const StrokePoint& to) {
    const double fromRadius = Radius(from, width);
    const double toRadius = Radius(to, width);
    const double reach = std::max(fromRadius, toRadius);
    const bool isInside = std::max(from.place.x, to.place.x) + reach > clip.left &&
                          std::min(from.place.x, to.place.x) - reach < clip.right &&
                          std::max(from.place.y, to.place.y) + reach > clip.top &&
                          std::min(from.place.y, to.place.y) - reach < clip.bottom;
    if (isInside) shape.push_back(Capsule(from.place, fromRadius, to.place, toRadius));
  };
  for (std::size_t i = 1; i < points.size(); ++i) add(points[i - 1], points[i]);
  if (points.size() == 1) add(points[0], points[0]);
  return shape;
}

std::vector<StrokePoint> Smoothed(std::span<const StrokePoint> points) {
  if (points.size() < 3) return {points.begin(), points.end()};
  std::vector<StrokePoint> out{points.front()};
  for (std::size_t i = 1; i + 1 < points.size(); ++i) {
    const bool isLast = i + 2 == points.size();
    AddCurve(out, out.back(), points[i], isLast ? points[i + 1] : Between(points[i], points[i + 1], 0.5));
  }
  return out;
}

Polygon EllipseShape(Spot corner, Spot opposite) {
  const Spot middle{(corner.x + opposite.x) / 2, (corner.y + opposite.y) / 2};
  const double across = std::abs(opposite.x - corner.x) / 2;
  const double down = std::abs(opposite.y - corner.y) / 2;
  Polygon polygon;
  AddArc(polygon, {0, 0}, std::min(std::max(across, down), kFarthest), 0, 2 * std::numbers::pi);
  const double radius = std::max(std::max(across, down), 1e-9);
  for (Spot& spot : polygon) spot = {middle.x + spot.x * across / radius, middle.y + spot.y * down / radius};
  return polygon;
}

Polygon RectangleShape(Spot corner, Spot opposite) {
  const Spot least{std::min(corner.x, opposite.x), std::min(corner.y, opposite.y)};
  const Spot greatest{std::max(corner.x, opposite.x), std::max(corner.y, opposite.y)};
  return {least, {greatest.x, least.y}, greatest, {least.x, greatest.y}};
}

}  // namespace jotlets
