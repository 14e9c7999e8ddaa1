#include "skin/skin_drawing.h"

#include <algorithm>

#include "skin/skin_layout.h"

namespace jotlets {
namespace {

constexpr std::int32_t kTileStretched = 1;

// Draws one skin for one view.
class SkinPainter {
 public:
  SkinPainter(Canvas& canvas, const SkinData& skin, const Picture& sheet, const SkinView& view)
      : canvas_(canvas), skin_(skin), sheet_(sheet), view_(view) {}

  void Strip(const SkinElement& element, const Rect& area) {
    const bool horizontal = element.kind == ElementKind::kHstrip;
    if (element.stripType == kStripFromPicture && element.source.picture) {
      const Size size = horizontal ? Size{element.width, area.Height()} : Size{area.Width(), element.height};
      return TilePart(canvas_, PartOf(element, element.source, size, view_.colour), area);
    }
    const std::uint8_t alpha = element.alpha.value_or(kOpaque);
    if (element.solidColour) {
      canvas_.Fill(area, Tinted(*element.solidColour, view_.colour), alpha);
    } else if (element.startColour || element.endColour) {
      const Colour from = element.startColour.value_or(element.endColour.value_or(Colour{}));
      const Colour to = element.endColour.value_or(from);
      canvas_.FillGradient(area, Tinted(from, view_.colour), Tinted(to, view_.colour), horizontal, alpha);
    }
  }

  void TileArea(const SkinElement& element, const Rect& area) {
    if (!element.source.picture) return;
    const Size size = element.size.value_or(Size{element.width, element.height});
    const SheetPart part = PartOf(element, element.source, size, view_.colour);
    if (element.tileType == kTileStretched) return StretchPart(canvas_, part, area);
    TilePart(canvas_, part, area);
  }

  void Glyph(const SkinElement& element, const SheetPlace& place, const Rect& area) {
    if (place.picture)
      DrawPart(canvas_, PartOf(element, place, {area.Width(), area.Height()}, std::nullopt),
               {area.left, area.top});
  }

 private:
  SheetPart PartOf(const SkinElement& element, const SheetPlace& place, Size size,
                   std::optional<Colour> tint) const {
    // Far outside any sheet is as good as outside, and its far corner can be counted.
    const Point at{std::clamp(place.picture->x, -kFarthestCoordinate, kFarthestCoordinate),
                   std::clamp(place.picture->y, -kFarthestCoordinate, kFarthestCoordinate)};
    return {sheet_,     {at.x, at.y, at.x + size.width, at.y + size.height},
            place.mask, element.alpha.value_or(kOpaque),
            tint,       skin_.transparent};
  }

  Canvas& canvas_;
  const SkinData& skin_;
  const Picture& sheet_;
  const SkinView& view_;
};

const SheetPlace& IndicatorPicture(const SkinElement& element, const SkinView& view) {
  const std::optional<SkinState> state = SkinStateFromName(element.type);
  return state && view.states.Has(*state) ? element.source : element.sourceOff;
}

}  // namespace

void DrawSkin(Canvas& canvas, const SkinData& skin, const Picture& sheet, const SkinView& view,
              const SkinWords& words, SkinTextSetter& texts) {
  canvas.Fill({0, 0, view.window.width, view.window.height}, PaperColour(skin, view.colour));
  SkinPainter painter(canvas, skin, sheet, view);
  for (std::size_t index = 0; index < skin.elements.size(); ++index) {
    const SkinElement& element = skin.elements[index];
    if (!IsShown(element, view)) continue;
    const Rect area = ElementRect(element, view);
    switch (element.kind) {
      case ElementKind::kHstrip:
      case ElementKind::kVstrip: painter.Strip(element, area); break;
      case ElementKind::kTilearea: painter.TileArea(element, area); break;
      case ElementKind::kIndicator: painter.Glyph(element, IndicatorPicture(element, view), area); break;
      case ElementKind::kButton: {
        const bool hot = index == view.hotButton && element.sourceRollover.picture;
        painter.Glyph(element, hot ? element.sourceRollover : element.source, area);
        break;
      }
      case ElementKind::kText: texts.SetText(element, area, ExpandPlaceholders(element.text, words)); break;
    }
  }
}

Colour PaperColour(const SkinData& skin, Colour colour) {
  if (skin.transparent != colour) return colour;
  colour.g = static_cast<std::uint8_t>(colour.g == 255 ? 254 : colour.g + 1);
  return colour;
}

}  // namespace jotlets
