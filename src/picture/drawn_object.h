// What is drawn over the pixels of a picture and can still be changed: values, their geometry, and their
// pixels.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/text.h"
#include "picture/coverage.h"
#include "picture/letter_painter.h"
#include "picture/orientation.h"

namespace jotlets {

enum class ObjectKind : std::uint8_t {
  kPen,
  kEraser,       // what lies below it becomes transparent
  kHighlighter,  // colours without hiding, as ink on paper does
  kLine,
  kArrow,
  kRectangle,
  kEllipse,
  kText,
  kStep,       // a number in a disc
  kRedaction,  // an opaque rectangle; what it covers is not saved (see picture_document.h)
};
inline constexpr std::size_t kObjectKinds = 10;

/// Names an object within its document; 0 is none.
using ObjectId = std::uint32_t;

struct DrawnObject {
  ObjectId id = 0;
  ObjectKind kind = ObjectKind::kPen;
  /// Of pen, eraser and highlighter the points that were drawn; of a line and an arrow its two ends; of all
  /// others two opposite corners.
  std::vector<StrokePoint> points;
  Colour colour;
  double width = 3;     // of the line, in pixels
  bool filled = false;  // rectangle and ellipse
  Text text;
  Text font;
  double textSize = 20;                            // pixels
  std::int32_t number = 1;                         // of a step
  Orientation orientation = Orientation::kAsItIs;  // of letters
  friend bool operator==(const DrawnObject&, const DrawnObject&) = default;
};

/// A rectangle between pixels.
struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

/// Whether the points are drawn as they come, as by a pen.
bool IsStroke(ObjectKind kind);

/// The ends or corners of it, or those around its points.
Box BoxOf(const DrawnObject& object);

/// Every pixel that it touches lies inside.
Rect BoundsOf(const DrawnObject& object);

/// Whether a place is on it, or no farther than `tolerance` pixels away: on the line of what is not filled,
/// anywhere inside of what is, and of letters.
bool IsHit(const DrawnObject& object, Spot place, double tolerance);

void MoveBy(DrawnObject& object, Spot distance);

/// What an object is resized by. Lines have `kTopLeft` and `kLeft` only, which are their first and second
/// end, letters none: they are resized by their size.
enum class Handle : std::uint8_t {
  kTopLeft,
  kTop,
  kTopRight,
  kRight,
  kBottomRight,
  kBottom,
  kBottomLeft,
  kLeft
};
inline constexpr std::size_t kHandles = 8;

/// The middle of a handle.
Spot PlaceOf(const DrawnObject& object, Handle handle);
/// The handle within `tolerance` pixels of a place, the nearest of several.
std::optional<Handle> HandleAt(const DrawnObject& object, Spot place, double tolerance);
/// Drags a handle to a place; sides may pass one another. Points of strokes keep their places within the
/// whole.
void DragHandle(DrawnObject& object, Handle handle, Spot place);

/// Turns it with its picture, which has this size before.
void Orient(DrawnObject& object, Size size, Orientation orientation);
/// Makes it larger with its picture, everything of it.
void Scale(DrawnObject& object, double factor);

/// Gives a text or a step the size that its letters need; its top-left corner stays. Others stay as they are.
void FitLetters(DrawnObject& object, const LetterPainter& letters);

/// Whether all numbers in it are such as can be drawn: finite, within 10 million pixels, not too many points.
bool IsDrawable(const DrawnObject& object);

/// Points of one object; what is drawn on goes into a further object.
inline constexpr std::size_t kMaxPoints = 20'000;
inline constexpr std::size_t kMaxTextLength = 10'000;
inline constexpr double kMaxLineWidth = 1000;
inline constexpr double kMaxTextSize = 2000;

/// Draws it over a part of a picture: the first pixel of `target` is the one at `origin`. Nothing outside of
/// `target` is touched.
void Draw(const DrawnObject& object, const LetterPainter& letters, Picture& target, Point origin = {});

}  // namespace jotlets
