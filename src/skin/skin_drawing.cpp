#include "skin/skin_drawing.h"

#include <algorithm>
#include <limits>

#include "skin/skin_layout.h"

namespace jotlets {
namespace {

constexpr std::int32_t kTileStretched = 1;

constexpr auto kBeyondSheets = static_cast<std::int32_t>(kMaxPicturePixels);
static_assert(kMaxPicturePixels + 2 * std::int64_t{kFarthestCoordinate} <=
              std::numeric_limits<std::int32_t>::max());

// Draws one skin for one view.
class SkinPainter {
 public:
  SkinPainter(Canvas& canvas, const SkinData& skin, const Picture& sheet, const SkinView& view)
      : canvas_(canvas),
        skin_(skin),
        sheet_(sheet),
        tint_(PaperColour(skin, view.colour, view.clearPaper)),
        sampling_(view.sampling) {}

  void Paper(Size window) { canvas_.Fill({0, 0, window.width, window.height}, tint_); }

  void Strip(const SkinElement& element, const Rect& area) {
    const bool horizontal = element.kind == ElementKind::kHstrip;
    if (element.stripType == kStripFromPicture && element.source.picture) {
      const Size size = horizontal ? Size{element.width, area.Height()} : Size{area.Width(), element.height};
      return TilePart(canvas_, PartOf(element, element.source, size, tint_), area);
    }
    const std::uint8_t alpha = element.alpha.value_or(kOpaque);
    if (element.solidColour) {
      canvas_.Fill(area, Tinted(*element.solidColour, tint_), alpha);
    } else if (element.startColour || element.endColour) {
      const Colour from = element.startColour.value_or(element.endColour.value_or(Colour{}));
      const Colour to = element.endColour.value_or(from);
      canvas_.FillGradient(area, Tinted(from, tint_), Tinted(to, tint_), horizontal, alpha);
    }
  }

  void TileArea(const SkinElement& element, const Rect& area) {
    if (!element.source.picture) return;
    const Size size = element.size.value_or(Size{element.width, element.height});
    const SheetPart part = PartOf(element, element.source, size, tint_);
    if (element.tileType == kTileStretched) return StretchPart(canvas_, part, area, sampling_);
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
    // Beyond the largest sheet is as good as outside, and the far corner can be counted for every length.
    const Point at{std::clamp(place.picture->x, -kFarthestCoordinate, kBeyondSheets),
                   std::clamp(place.picture->y, -kFarthestCoordinate, kBeyondSheets)};
    return {sheet_,     {at.x, at.y, at.x + size.width, at.y + size.height},
            place.mask, element.alpha.value_or(kOpaque),
            tint,       skin_.transparent};
  }

  Canvas& canvas_;
  const SkinData& skin_;
  const Picture& sheet_;
  const Colour tint_;
  const Sampling sampling_;
};

// How many pixels one drawing may touch, so that no skin can hang the program: elements that come too late
// are left out.
class AreaBudget {
 public:
  explicit AreaBudget(Size window)
      : window_(window), left_(kTimes * std::int64_t{window.width} * window.height) {}
  bool Spend(const Rect& area) {
    const std::int64_t width = std::min(area.right, window_.width) - std::max(area.left, 0);
    const std::int64_t height = std::min(area.bottom, window_.height) - std::max(area.top, 0);
    if (width > 0 && height > 0) left_ -= width * height;
    return left_ >= 0;
  }

 private:
  static constexpr std::int64_t kTimes = 24;
  Size window_;
  std::int64_t left_;
};

const SheetPlace& IndicatorPicture(const SkinElement& element, const SkinView& view) {
  const std::optional<SkinState> state = SkinStateFromName(element.type);
  return state && view.states.Has(*state) ? element.source : element.sourceOff;
}

}  // namespace

void DrawSkin(Canvas& canvas, const SkinData& skin, const Picture& sheet, const SkinView& view,
              const SkinWords& words, SkinTextSetter& texts) {
  SkinPainter painter(canvas, skin, sheet, view);
  painter.Paper(view.window);
  AreaBudget budget(view.window);
  for (std::size_t index = 0; index < skin.elements.size(); ++index) {
    const SkinElement& element = skin.elements[index];
    if (!IsShown(element, view)) continue;
    const Rect area = ElementRect(element, view);
    if (!budget.Spend(area)) break;
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

Colour PaperColour(const SkinData& skin, Colour colour, bool clear) {
  if (clear || skin.transparent != colour) return colour;
  colour.g = static_cast<std::uint8_t>(colour.g == 255 ? 254 : colour.g + 1);
  return colour;
}

}  // namespace jotlets
