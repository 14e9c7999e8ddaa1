// The pixels of drawn objects.
#include <algorithm>
#include <cmath>

#include "picture/drawn_object.h"

namespace jotlets {
namespace {

constexpr double kBackOfArrow = 4.5;    // how far its head reaches back, in widths of its line
constexpr double kAsideOfArrow = 2.25;  // and to either side

class Brush {
 public:
  Brush(Picture& target, Point origin) : target_(target), origin_(origin) {}

  Rect Clip() const { return RectAt(origin_, target_.size); }

  template <typename Mix>
  void Paint(const Shape& shape, Mix mix) {
    Rasterise(shape, Clip(), [&](std::int32_t y, std::int32_t left, std::span<const std::uint8_t> coverage) {
      PaintRow(y, left, coverage, mix);
    });
  }

  void Fill(const Shape& shape, Colour colour) {
    const Pixel over = PremultipliedPixel(colour, 255);
    Paint(shape, [over](Pixel under, std::uint32_t part) { return Blended(under, over, part); });
  }

  void FillMask(const LetterMask& mask, Point at, Colour colour) {
    const Pixel over = PremultipliedPixel(colour, 255);
    const Rect area = CommonPart(RectAt(at, mask.size), Clip());
    for (std::int32_t y = area.top; y < area.bottom; ++y) {
      const std::size_t first =
          static_cast<std::size_t>(y - at.y) * static_cast<std::size_t>(mask.size.width) +
          static_cast<std::size_t>(area.left - at.x);
      PaintRow(y, area.left, {mask.coverage.data() + first, static_cast<std::size_t>(area.Width())},
               [over](Pixel under, std::uint32_t part) { return Blended(under, over, part); });
    }
  }

 private:
  template <typename Mix>
  void PaintRow(std::int32_t y, std::int32_t left, std::span<const std::uint8_t> coverage, Mix mix) {
    std::uint8_t* pixel = PixelPlace(target_, left - origin_.x, y - origin_.y);
    for (const std::uint8_t part : coverage) {
      if (part != 0) StorePixel(pixel, mix(LoadPixel(pixel), part));
      pixel += 4;
    }
  }

  Picture& target_;
  Point origin_;
};

// What is left of a pixel of which a part of 255 is taken away.
Pixel Erased(Pixel under, std::uint32_t part) { return Blended(under, 0xFF000000, part) - (part << 24); }

// The darker of ink and paper in every channel, where there is paper; the ink at half strength where there is
// none.
Pixel Highlighted(Pixel under, Pixel ink, std::uint32_t part) {
  const std::uint32_t alpha = under >> 24;
  const auto channel = [&](int shift) {
    return std::min((under >> shift) & 0xFF, ByteProduct((ink >> shift) & 0xFF, alpha)) << shift;
  };
  const Pixel inked = alpha << 24 | channel(16) | channel(8) | channel(0);
  const Pixel bare = Erased(ink, 255 - ByteProduct(128, 255 - alpha));
  return Erased(under, part) + Erased(inked + bare, 255 - part);
}

Shape ArrowShape(Spot from, Spot to, double width, const Rect& clip) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  if (length < 1e-6) return StrokeShape(std::vector<StrokePoint>{{from}}, width, clip);
  const Spot along{(to.x - from.x) / length, (to.y - from.y) / length};
  const double size = std::max(width, 2.0);
  const double back = std::min(kBackOfArrow * size, length);
  const double aside = back * kAsideOfArrow / kBackOfArrow;
  const Spot neck{to.x - along.x * back, to.y - along.y * back};
  // The line ends inside of the head, so that its round end does not reach beyond the point.
  const Spot end{to.x - along.x * back * 0.75, to.y - along.y * back * 0.75};
  Shape shape = StrokeShape(std::vector<StrokePoint>{{from}, {end}}, width, clip);
  shape.push_back({to,
                   {neck.x - along.y * aside, neck.y + along.x * aside},
                   {neck.x + along.y * aside, neck.y - along.x * aside}});
  return shape;
}

Shape FrameShape(const DrawnObject& object, const Rect& clip) {
  const Spot corner = object.points[0].place;
  const Spot opposite = object.points[1].place;
  Polygon outline =
      object.kind == ObjectKind::kEllipse ? EllipseShape(corner, opposite) : RectangleShape(corner, opposite);
  if (object.filled || object.kind == ObjectKind::kRedaction) return {std::move(outline)};
  std::vector<StrokePoint> around;
  for (const Spot& spot : outline) around.push_back({spot});
  around.push_back(around.front());
  return StrokeShape(around, object.width, clip);
}

// Every pixel that it touches is covered wholly: what a redaction hides is not to shine through at its edges.
Shape RedactionShape(const DrawnObject& object) {
  const Box box = BoxOf(object);
  return {RectangleShape({std::floor(box.left), std::floor(box.top)},
                         {std::ceil(box.right), std::ceil(box.bottom)})};
}

LetterMask Turned(LetterMask mask, Orientation orientation) {
  if (orientation == Orientation::kAsItIs) return mask;
  return {Oriented(mask.size, orientation), OrientedMask(mask.coverage, mask.size, orientation)};
}

bool IsWhole(const LetterMask& mask) {
  return mask.size.width > 0 && mask.size.height > 0 &&
         mask.coverage.size() ==
             static_cast<std::size_t>(mask.size.width) * static_cast<std::size_t>(mask.size.height);
}

Point Nearest(Spot spot) {
  return {static_cast<std::int32_t>(std::floor(spot.x + 0.5)),
          static_cast<std::int32_t>(std::floor(spot.y + 0.5))};
}

void DrawText(Brush& brush, const DrawnObject& object, const LetterPainter& letters) {
  const LetterMask mask =
      Turned(letters.Paint({object.text, object.font, object.textSize}), object.orientation);
  const Box box = BoxOf(object);
  if (IsWhole(mask)) brush.FillMask(mask, Nearest({box.left, box.top}), object.colour);
}

// Black or white, whichever is seen better on the colour.
Colour InkOn(Colour colour) {
  return colour.r * 77 + colour.g * 150 + colour.b * 29 > 160 * 256 ? Colour{0, 0, 0} : Colour{255, 255, 255};
}

void DrawStep(Brush& brush, const DrawnObject& object, const LetterPainter& letters) {
  brush.Fill({EllipseShape(object.points[0].place, object.points[1].place)}, object.colour);
  const Text number = IntText(object.number);
  const LetterMask mask =
      Turned(letters.Paint({number, object.font, object.textSize, true}), object.orientation);
  const Box box = BoxOf(object);
  const Spot middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  if (IsWhole(mask))
    brush.FillMask(mask, Nearest({middle.x - mask.size.width / 2.0, middle.y - mask.size.height / 2.0}),
                   InkOn(object.colour));
}

}  // namespace

void Draw(const DrawnObject& object, const LetterPainter& letters, Picture& target, Point origin) {
  Brush brush(target, origin);
  if (!IsDrawable(object) || IsEmptyRect(CommonPart(BoundsOf(object), brush.Clip()))) return;
  const auto stroke = [&] { return StrokeShape(Smoothed(object.points), object.width, brush.Clip()); };
  switch (object.kind) {
    case ObjectKind::kPen: brush.Fill(stroke(), object.colour); break;
    case ObjectKind::kEraser: brush.Paint(stroke(), Erased); break;
    case ObjectKind::kHighlighter: {
      const Pixel ink = PremultipliedPixel(object.colour, 255);
      brush.Paint(stroke(), [ink](Pixel under, std::uint32_t part) { return Highlighted(under, ink, part); });
      break;
    }
    case ObjectKind::kLine:
      brush.Fill(StrokeShape(object.points, object.width, brush.Clip()), object.colour);
      break;
    case ObjectKind::kArrow:
      brush.Fill(ArrowShape(object.points[0].place, object.points[1].place, object.width, brush.Clip()),
                 object.colour);
      break;
    case ObjectKind::kRectangle:
    case ObjectKind::kEllipse: brush.Fill(FrameShape(object, brush.Clip()), object.colour); break;
    case ObjectKind::kText: DrawText(brush, object, letters); break;
    case ObjectKind::kStep: DrawStep(brush, object, letters); break;
    case ObjectKind::kRedaction: brush.Fill(RedactionShape(object), object.colour); break;
  }
}

}  // namespace jotlets
