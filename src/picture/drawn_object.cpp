#include "picture/drawn_object.h"

#include <algorithm>
#include <cmath>

namespace jotlets {
namespace {

constexpr double kFarthestPlace = 1e7;
// How far the head of an arrow reaches back and aside, as parts of the width of its line.
constexpr double kReachOfArrow = 5;
// The disc of a step, as a part of the height of its number.
constexpr double kDiscOfStep = 1.5;

bool IsLine(ObjectKind kind) { return kind == ObjectKind::kLine || kind == ObjectKind::kArrow; }
bool HasLetters(ObjectKind kind) { return kind == ObjectKind::kText || kind == ObjectKind::kStep; }

Spot PointAt(const DrawnObject& object, std::size_t at) {
  return at < object.points.size() ? object.points[at].place : Spot{};
}

double Distance(Spot a, Spot b) { return std::hypot(a.x - b.x, a.y - b.y); }

double DistanceToLine(Spot place, Spot from, Spot to) {
  const double length = Distance(from, to);
  if (length < 1e-9) return Distance(place, from);
  const double along =
      ((place.x - from.x) * (to.x - from.x) + (place.y - from.y) * (to.y - from.y)) / (length * length);
  const double part = std::clamp(along, 0.0, 1.0);
  return Distance(place, {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
}

bool IsWithin(const Box& box, Spot place, double margin) {
  return place.x >= box.left - margin && place.x <= box.right + margin && place.y >= box.top - margin &&
         place.y <= box.bottom + margin;
}

bool IsStrokeHit(const DrawnObject& object, Spot place, double tolerance) {
  const double reach = object.width / 2 + tolerance;
  const std::vector<StrokePoint> points = Smoothed(object.points);
  if (points.size() == 1) return Distance(place, points[0].place) <= reach;
  for (std::size_t i = 1; i < points.size(); ++i)
    if (DistanceToLine(place, points[i - 1].place, points[i].place) <= reach) return true;
  return false;
}

bool IsInEllipse(const Box& box, Spot place) {
  const double across = std::max((box.right - box.left) / 2, 1e-9);
  const double down = std::max((box.bottom - box.top) / 2, 1e-9);
  return std::hypot((place.x - (box.left + box.right) / 2) / across,
                    (place.y - (box.top + box.bottom) / 2) / down) <= 1;
}

bool IsEllipseHit(const DrawnObject& object, Spot place, double tolerance) {
  const Box box = BoxOf(object);
  if (object.filled && IsInEllipse(box, place)) return true;
  const Polygon outline = EllipseShape({box.left, box.top}, {box.right, box.bottom});
  const double reach = (object.filled ? 0 : object.width / 2) + tolerance;
  for (std::size_t i = 1; i < outline.size(); ++i)
    if (DistanceToLine(place, outline[i - 1], outline[i]) <= reach) return true;
  return false;
}

bool IsRectangleHit(const DrawnObject& object, Spot place, double tolerance) {
  const Box box = BoxOf(object);
  const double reach = object.width / 2 + tolerance;
  if (!IsWithin(box, place, object.filled ? tolerance : reach)) return false;
  return object.filled || place.x <= box.left + reach || place.x >= box.right - reach ||
         place.y <= box.top + reach || place.y >= box.bottom - reach;
}

template <typename Change>
void ChangePlaces(DrawnObject& object, Change change) {
  for (StrokePoint& point : object.points) point.place = change(point.place);
}

bool IsLeft(Handle handle) {
  return handle == Handle::kTopLeft || handle == Handle::kLeft || handle == Handle::kBottomLeft;
}
bool IsRight(Handle handle) {
  return handle == Handle::kTopRight || handle == Handle::kRight || handle == Handle::kBottomRight;
}
bool IsTop(Handle handle) {
  return handle == Handle::kTopLeft || handle == Handle::kTop || handle == Handle::kTopRight;
}
bool IsBottom(Handle handle) {
  return handle == Handle::kBottomLeft || handle == Handle::kBottom || handle == Handle::kBottomRight;
}

// Where a number of one range lies in another. A range without length has nothing to stretch.
double Stretched(double at, double from, double to, double newFrom, double newTo) {
  return to - from < 1e-9 ? newFrom + (at - from) : newFrom + (at - from) * (newTo - newFrom) / (to - from);
}

bool HasHandle(const DrawnObject& object, Handle handle) {
  if (HasLetters(object.kind) || object.points.empty()) return false;
  return !IsLine(object.kind) || handle == Handle::kTopLeft || handle == Handle::kLeft;
}

}  // namespace

bool IsStroke(ObjectKind kind) {
  return kind == ObjectKind::kPen || kind == ObjectKind::kEraser || kind == ObjectKind::kHighlighter;
}

Box BoxOf(const DrawnObject& object) {
  if (object.points.empty()) return {};
  const Spot first = PointAt(object, 0);
  Box box{first.x, first.y, first.x, first.y};
  for (const StrokePoint& point : object.points) {
    box = {std::min(box.left, point.place.x), std::min(box.top, point.place.y),
           std::max(box.right, point.place.x), std::max(box.bottom, point.place.y)};
  }
  return box;
}

Rect BoundsOf(const DrawnObject& object) {
  if (object.points.empty()) return {};
  const Box box = BoxOf(object);
  const bool isFrame = object.kind == ObjectKind::kRectangle || object.kind == ObjectKind::kEllipse;
  const bool hasLine =
      isFrame ? !object.filled : !HasLetters(object.kind) && object.kind != ObjectKind::kRedaction;
  double margin = hasLine ? 1 + object.width / 2 : 1;
  if (object.kind == ObjectKind::kArrow) margin += object.width * kReachOfArrow;
  const auto pixel = [](double at) {
    return Saturated(static_cast<std::int64_t>(std::clamp(at, -2e9, 2e9)));
  };
  return {pixel(std::floor(box.left - margin)), pixel(std::floor(box.top - margin)),
          pixel(std::ceil(box.right + margin)), pixel(std::ceil(box.bottom + margin))};
}

bool IsHit(const DrawnObject& object, Spot place, double tolerance) {
  switch (object.kind) {
    case ObjectKind::kRectangle: return IsRectangleHit(object, place, tolerance);
    case ObjectKind::kEllipse: return IsEllipseHit(object, place, tolerance);
    case ObjectKind::kText:
    case ObjectKind::kStep:
    case ObjectKind::kRedaction: return !object.points.empty() && IsWithin(BoxOf(object), place, tolerance);
    default: return IsStrokeHit(object, place, tolerance);
  }
}

void MoveBy(DrawnObject& object, Spot distance) {
  ChangePlaces(object, [distance](Spot place) { return Spot{place.x + distance.x, place.y + distance.y}; });
}

Spot PlaceOf(const DrawnObject& object, Handle handle) {
  if (IsLine(object.kind)) return PointAt(object, handle == Handle::kTopLeft ? 0 : 1);
  const Box box = BoxOf(object);
  const Spot middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  return {IsLeft(handle)    ? box.left
          : IsRight(handle) ? box.right
                            : middle.x,
          IsTop(handle)      ? box.top
          : IsBottom(handle) ? box.bottom
                             : middle.y};
}

std::optional<Handle> HandleAt(const DrawnObject& object, Spot place, double tolerance) {
  std::optional<Handle> nearest;
  double least = tolerance;
  for (std::size_t i = 0; i < kHandles; ++i) {
    const auto handle = static_cast<Handle>(i);
    if (!HasHandle(object, handle)) continue;
    const Spot at = PlaceOf(object, handle);
    const double distance = std::max(std::abs(at.x - place.x), std::abs(at.y - place.y));
    if (distance > least || (nearest && distance == least)) continue;
    least = distance;
    nearest = handle;
  }
  return nearest;
}

void DragHandle(DrawnObject& object, Handle handle, Spot place) {
  if (!HasHandle(object, handle)) return;
  if (IsLine(object.kind)) {
    const std::size_t end = handle == Handle::kTopLeft ? 0 : 1;
    if (end < object.points.size()) object.points[end].place = place;
    return;
  }
  const Box from = BoxOf(object);
  Box to = from;
  if (IsLeft(handle)) to.left = place.x;
  if (IsRight(handle)) to.right = place.x;
  if (IsTop(handle)) to.top = place.y;
  if (IsBottom(handle)) to.bottom = place.y;
  ChangePlaces(object, [&](Spot at) {
    return Spot{Stretched(at.x, from.left, from.right, to.left, to.right),
                Stretched(at.y, from.top, from.bottom, to.top, to.bottom)};
  });
}

void Orient(DrawnObject& object, Size size, Orientation orientation) {
  ChangePlaces(object, [&](Spot place) { return Oriented(place, size, orientation); });
  object.orientation = Combined(object.orientation, orientation);
}

void Scale(DrawnObject& object, double factor) {
  ChangePlaces(object, [factor](Spot place) { return Spot{place.x * factor, place.y * factor}; });
  object.width = std::clamp(object.width * factor, 0.1, kMaxLineWidth);
  object.textSize = std::clamp(object.textSize * factor, 1.0, kMaxTextSize);
}

void FitLetters(DrawnObject& object, const LetterPainter& letters) {
  if (!HasLetters(object.kind) || object.points.empty()) return;
  const Box box = BoxOf(object);
  Size size;
  if (object.kind == ObjectKind::kText) {
    size = Oriented(letters.Paint({object.text, object.font, object.textSize}).size, object.orientation);
  } else {
    const LetterMask number = letters.Paint({IntText(object.number), object.font, object.textSize, true});
    const double most = std::max(object.textSize, 0.8 * std::max(number.size.width, number.size.height));
    const auto side = static_cast<std::int32_t>(std::ceil(most * kDiscOfStep));
    size = {side, side};
  }
  object.points = {{{box.left, box.top}}, {{box.left + size.width, box.top + size.height}}};
}

bool IsDrawable(const DrawnObject& object) {
  const auto isUsual = [](double number, double least, double most) {
    return number >= least && number <= most;
  };
  if (!isUsual(object.width, 0.1, kMaxLineWidth) || !isUsual(object.textSize, 1, kMaxTextSize)) return false;
  if (object.points.empty() || object.points.size() > kMaxPoints || object.text.size() > kMaxTextLength)
    return false;
  if (!IsStroke(object.kind) && object.points.size() != 2) return false;
  for (const StrokePoint& point : object.points) {
    if (!isUsual(point.place.x, -kFarthestPlace, kFarthestPlace) ||
        !isUsual(point.place.y, -kFarthestPlace, kFarthestPlace) || !isUsual(point.pressure, 0, 1))
      return false;
  }
  return static_cast<std::size_t>(object.kind) < kObjectKinds;
}

}  // namespace jotlets
