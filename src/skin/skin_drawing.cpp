#include "skin/skin_drawing.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "looks/ink.h"
#include "skin/skin_layout.h"

namespace jotlets {
namespace {

constexpr std::int32_t kFaint = 65;  // percent of the way to the ground
constexpr std::int32_t kTileStretched = 1;
// Pixels at the usual scale.
constexpr std::int32_t kRing = 2;
constexpr std::int32_t kPillHeight = 20;
constexpr std::int32_t kPillGap = 8;
constexpr std::int32_t kPillPadding = 12;
// Percent of the way to the ink.
constexpr std::int32_t kPillShade = 9;
constexpr std::int32_t kHotShade = 9;

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
        paper_(PaperColour(skin, view.colour, view.clearPaper)),
        sampling_(view.sampling),
        hover_(view.hover),
        rightToLeft_(view.rightToLeft),
        chosen_(view.chosen),
        pen_(view.pen),
        canUndo_(view.canUndo),
        canRedo_(view.canRedo),
        contrast_(view.contrast) {}

  void Paper(Size window) { canvas_.Fill({0, 0, window.width, window.height}, paper_); }

  void Strip(const SkinElement& element, const Rect& area) {
    const bool horizontal = element.kind == ElementKind::kHstrip;
    if (element.stripType == kStripFromPicture && element.source.picture) {
      const Size size = horizontal ? Size{element.width, area.Height()} : Size{area.Width(), element.height};
      TilePart(canvas_, PartOf(element, element.source, size, paper_), area);
      return AddGround(element, area, MiddleOf(element, size));
    }
    const std::uint8_t alpha = element.alpha.value_or(kOpaque);
    if (const std::optional<Colour> one = OneColour(element, area)) {
      canvas_.Fill(area, *one, alpha);
      AddGround(element, area, *one);
    } else if (element.startColour || element.endColour) {
      const Colour start = element.startColour.value_or(element.endColour.value_or(Colour{}));
      const Colour from = Tinted(start, paper_);
      const Colour to = Tinted(element.endColour.value_or(start), paper_);
      canvas_.FillGradient(area, from, to, horizontal, alpha);
      AddGround(element, area, Mean(from, to));
    }
  }

  void TileArea(const SkinElement& element, const Rect& area) {
    if (!element.source.picture) return;
    const Size size = element.size.value_or(Size{element.width, element.height});
    const SheetPart part = PartOf(element, element.source, size, paper_, InkOf(element, area));
    if (element.tileType == kTileStretched) return StretchPart(canvas_, part, area, sampling_);
    TilePart(canvas_, part, area);
    AddGround(element, area, MiddleOf(element, size));
  }

  void Glyph(const SkinElement& element, const SheetPlace* place, const Rect& area, bool hot) {
    if (element.fill) ButtonGround(element, area, hot);
    if (place == nullptr) return;
    const bool faint =
        (element.action == kActionUndo && !canUndo_) || (element.action == kActionRedo && !canRedo_);
    if (faint) {
      hot = false;
      if (element.source.picture) place = &element.source;
    }
    // The ground below the sign of a format that holds is too faint a shade there.
    if (contrast_ && element.kind == ElementKind::kIndicator && IsFormat(SkinStateFromName(element.type))) {
      canvas_.Fill(area, contrast_->chosen);
      return AddGround(element, area, contrast_->chosen);
    }
    std::optional<Colour> ink = InkOf(element, area);
    const bool chosen =
        element.sourceChosen.picture && element.action != kActionNone && element.action == chosen_;
    if ((hot || chosen) && contrast_) {
      canvas_.Fill(area, contrast_->chosen);
      ink = contrast_->chosenInk;
    } else if (chosen) {
      const Colour ground = AccentOn(GroundOf(area));
      DrawPart(canvas_,
               PartOf(element, element.sourceChosen, {area.Width(), area.Height()}, std::nullopt, ground),
               {area.left, area.top});
      ink = InkOn(ground);
      if (element.source.picture) place = &element.source;
    } else if (faint && ink && !contrast_) {
      ink = Mixed(*ink, GroundOf(area), kFaint);
    }
    DrawPart(canvas_, PartOf(element, *place, {area.Width(), area.Height()}, std::nullopt, ink),
             {area.left, area.top});
  }

  /// The words of a text, and behind them those of its pill.
  void Words(const SkinElement& written, const Rect& area, const SkinWords& words, SkinTextSetter& texts) {
    const Colour ink = InkOf(written, area).value_or(written.colour);
    const Text shown = ExpandPlaceholders(written.text, words);
    const Text inPill = ExpandPlaceholders(written.pill, words);
    std::optional<SkinElement> turned;
    if (rightToLeft_ && written.alignment != TextAlignment::kMiddle) {
      turned = written;
      turned->alignment =
          written.alignment == TextAlignment::kRight ? TextAlignment::kLeft : TextAlignment::kRight;
    }
    const SkinElement& element = turned ? *turned : written;
    if (inPill.empty()) return texts.SetText(element, area, shown, ink);
    const std::int32_t height = std::min(ScaledLength(kPillHeight, skin_.dpi), area.Height());
    const std::int32_t gap = ScaledLength(kPillGap, skin_.dpi);
    const std::int32_t width =
        std::max(texts.WidthOf(element, inPill) + ScaledLength(kPillPadding, skin_.dpi), height);
    const std::int32_t room = area.Width() - width - gap;
    // Where it would take most of the room the text goes first.
    if (room < area.Width() / 2) return texts.SetText(element, area, shown, ink);
    const std::int32_t used = std::min(texts.WidthOf(element, shown), room);
    const auto place = [&](const Rect& part) {
      if (!rightToLeft_) return part;
      return Rect{area.left + area.right - part.right, part.top, area.left + area.right - part.left,
                  part.bottom};
    };
    texts.SetText(element, place({area.left, area.top, area.left + used, area.bottom}), shown, ink);
    const Rect pill =
        place(RectAt({area.left + used + gap, area.top + (area.Height() - height) / 2}, {width, height}));
    const Colour ground = ShadedForWords(GroundOf(area), kPillShade);
    if (!contrast_) canvas_.FillRound(pill, height / 2, ground);
    SkinElement centred = element;
    centred.alignment = TextAlignment::kMiddle;
    const std::int32_t inset = ScaledLength(kPillPadding, skin_.dpi) / 2;
    texts.SetText(centred, {pill.left + inset, pill.top, pill.right - inset, pill.bottom}, inPill,
                  contrast_ ? contrast_->ink : Made(SkinTint::kTitle, ground));
  }

  /// Around what the keyboard is at.
  void FocusRing(const Rect& area) {
    const std::int32_t line = ScaledLength(kRing, skin_.dpi);
    if (area.Width() <= 2 * line || area.Height() <= 2 * line) return;
    const Colour ink = contrast_ ? contrast_->chosen : AccentOn(GroundOf(area));
    canvas_.Fill({area.left, area.top, area.right, area.top + line}, ink);
    canvas_.Fill({area.left, area.bottom - line, area.right, area.bottom}, ink);
    canvas_.Fill({area.left, area.top + line, area.left + line, area.bottom - line}, ink);
    canvas_.Fill({area.right - line, area.top + line, area.right, area.bottom - line}, ink);
  }

  /// The ink that the element asks for; nothing when it has colours of its own.
  std::optional<Colour> InkOf(const SkinElement& element, const Rect& area) {
    if (element.shade) return Shaded(paper_, *element.shade);
    if (!element.tint) return std::nullopt;
    if (*element.tint == SkinTint::kPen) return pen_;
    if (contrast_) {
      if (*element.tint == SkinTint::kAccent) return contrast_->chosen;
      return GroundOf(area) == contrast_->chosen ? contrast_->chosenInk : contrast_->ink;
    }
    // The frame of what sounds has one colour all around.
    const Colour ground = *element.tint == SkinTint::kAlarm ? paper_ : GroundOf(area);
    if (*element.tint == last_.tint && ground == last_.ground) return last_.ink;
    last_ = {*element.tint, ground, Made(*element.tint, ground)};
    return last_.ink;
  }

 private:
  struct Ground {
    Rect area;
    Colour colour;
  };
  struct MadeInk {
    std::optional<SkinTint> tint;
    Colour ground;
    Colour ink;
  };

  static Colour Made(SkinTint tint, Colour ground) {
    switch (tint) {
      case SkinTint::kTitle: return TitleInk(ground);
      case SkinTint::kInk: return InkOn(ground);
      case SkinTint::kQuiet: return QuietInk(ground);
      case SkinTint::kAccent: return AccentOn(ground);
      case SkinTint::kAlarm: return AlarmOn(ground);
      case SkinTint::kPen: break;
    }
    return {};
  }

  static bool IsFormat(std::optional<SkinState> state) {
    return state && *state >= SkinState::kBold && *state <= SkinState::kHighlight;
  }

  // What is written on it later finds an ink for it.
  void ButtonGround(const SkinElement& element, const Rect& area, bool hot) {
    if (contrast_) {
      // The words on it are drawn in the one ink that paper has.
      const std::int32_t line = ScaledLength(hot ? 3 : 1, skin_.dpi);
      const Rect inner{area.left + line, area.top + line, area.right - line, area.bottom - line};
      canvas_.Fill(area, hot ? contrast_->chosen : contrast_->ink);
      return canvas_.Fill(inner, contrast_->paper);
    }
    const Colour below = GroundOf(area);
    const Colour fill = Mixed(below, TitleInk(below), *element.fill);
    const Colour ground = hot ? ShadedForWords(fill, kHotShade) : fill;
    canvas_.FillRound(area, element.corner, ground);
    grounds_.push_back({area, ground});
  }

  // A shade on which words can still be read: between light and dark papers there may be none.
  static Colour ShadedForWords(Colour ground, std::int32_t percent) {
    const Colour shaded = Shaded(ground, percent);
    return Contrast(TitleInk(shaded), shaded) >= kTextContrast ? shaded : ground;
  }

  static Colour Mean(Colour a, Colour b) {
    const auto mean = [](int x, int y) { return static_cast<std::uint8_t>((x + y) / 2); };
    return {mean(a.r, b.r), mean(a.g, b.g), mean(a.b, b.b)};
  }

  std::optional<Colour> OneColour(const SkinElement& element, const Rect& area) {
    if (const std::optional<Colour> ink = InkOf(element, area)) return ink;
    if (element.solidColour) return Tinted(*element.solidColour, paper_);
    return std::nullopt;
  }

  // What is seen through is no ground, nor is what is too small to carry anything.
  void AddGround(const SkinElement& element, const Rect& area, std::optional<Colour> colour) {
    constexpr std::int32_t kMinGround = 6;
    if (element.alpha || !colour || area.Width() < kMinGround || area.Height() < kMinGround) return;
    grounds_.push_back({area, *colour});
  }

  Colour GroundOf(const Rect& area) const {
    const Point middle{area.left + area.Width() / 2, area.top + area.Height() / 2};
    const auto found = std::find_if(grounds_.rbegin(), grounds_.rend(),
                                    [middle](const Ground& ground) { return ground.area.Contains(middle); });
    return found == grounds_.rend() ? paper_ : found->colour;
  }

  // The middle of a picture stands for all of it; nothing when one sees through.
  std::optional<Colour> MiddleOf(const SkinElement& element, Size size) const {
    const std::int64_t x = std::int64_t{element.source.picture->x} + size.width / 2;
    const std::int64_t y = std::int64_t{element.source.picture->y} + size.height / 2;
    if (x < 0 || y < 0 || x >= sheet_.size.width || y >= sheet_.size.height) return std::nullopt;
    const std::uint8_t* pixel = &sheet_.pixels[static_cast<std::size_t>(y * sheet_.size.width + x) * 4];
    if (pixel[3] != kOpaque) return std::nullopt;
    return Tinted({pixel[2], pixel[1], pixel[0]}, paper_);
  }

  SheetPart PartOf(const SkinElement& element, const SheetPlace& place, Size size, std::optional<Colour> tint,
                   std::optional<Colour> ink = std::nullopt) const {
    // Beyond the largest sheet is as good as outside, and the far corner can be counted for every length.
    const Point at{std::clamp(place.picture->x, -kFarthestCoordinate, kBeyondSheets),
                   std::clamp(place.picture->y, -kFarthestCoordinate, kBeyondSheets)};
    return {.sheet = sheet_,
            .source = {at.x, at.y, at.x + size.width, at.y + size.height},
            .mask = place.mask,
            .alpha = AlphaOf(element),
            .tint = tint,
            .ink = ink,
            .key = skin_.transparent};
  }

  std::uint8_t AlphaOf(const SkinElement& element) const {
    const std::uint32_t alpha = element.alpha.value_or(kOpaque);
    return static_cast<std::uint8_t>(element.mouseOver == true ? alpha * hover_ / kOpaque : alpha);
  }

  Canvas& canvas_;
  const SkinData& skin_;
  const Picture& sheet_;
  const Colour paper_;
  const Sampling sampling_;
  const std::uint8_t hover_;
  const bool rightToLeft_;
  const ActionCode chosen_;
  const Colour pen_;
  const bool canUndo_;
  const bool canRedo_;
  const std::optional<ContrastColours>& contrast_;
  std::vector<Ground> grounds_;  // in drawing order
  MadeInk last_;
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

}  // namespace

void DrawSkin(Canvas& canvas, const SkinData& skin, const Picture& sheet, const SkinView& view,
              const SkinWords& words, SkinTextSetter& texts) {
  SkinPainter painter(canvas, skin, sheet, view);
  painter.Paper(view.window);
  AreaBudget budget(view.window);
  const std::vector<ArrangedElement> arranged = ArrangeElements(skin, view);
  for (std::size_t index = 0; index < skin.elements.size(); ++index) {
    const SkinElement& element = skin.elements[index];
    const Rect& area = arranged[index].area;
    if (!arranged[index].shown) continue;
    if (!budget.Spend(area)) break;
    switch (element.kind) {
      case ElementKind::kHstrip:
      case ElementKind::kVstrip: painter.Strip(element, area); break;
      case ElementKind::kTilearea: painter.TileArea(element, area); break;
      case ElementKind::kIndicator:
      case ElementKind::kButton:
        painter.Glyph(element, arranged[index].picture, area, index == view.hotButton);
        break;
      case ElementKind::kText: painter.Words(element, area, words, texts); break;
    }
  }
  painter.FocusRing(view.focused);
}

std::optional<Colour> EdgeColour(const SkinData& skin, const SkinView& view) {
  std::optional<Colour> edge;
  const Colour paper = PaperColour(skin, view.colour, view.clearPaper);
  for (const SkinElement& element : skin.elements) {
    const bool corner = element.kind == ElementKind::kTilearea && element.place == CoordinatePoint{};
    if (!corner || !IsShown(element, view)) continue;
    if (element.shade) edge = Shaded(paper, *element.shade);
    if (element.tint == SkinTint::kAccent) edge = AccentOn(paper);
    if (element.tint == SkinTint::kAlarm) edge = AlarmOn(paper);
  }
  return edge;
}

Colour PaperColour(const SkinData& skin, Colour colour, bool clear) {
  if (clear || skin.transparent != colour) return colour;
  colour.g = static_cast<std::uint8_t>(colour.g == 255 ? 254 : colour.g + 1);
  return colour;
}

}  // namespace jotlets
