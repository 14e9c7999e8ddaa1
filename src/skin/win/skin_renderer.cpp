#include "skin/win/skin_renderer.h"

#include <algorithm>
#include <vector>

#include "base/win/wide.h"
#include "ui/pixel_bitmap.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::int32_t kGrowth = 64;  // windows are sized a pixel at a time, the buffer is not
constexpr std::int32_t kPointsPerInch = 72;
constexpr std::int32_t kDefaultPoint = 8;
constexpr std::size_t kMaxFonts = 64;

// Values of `setcase`.
enum CaseOfText : std::int32_t { kUpper = 1, kLower = 2, kTitle = 3 };

Text InCase(const Text& words, std::int32_t setCase) {
  const DWORD mapping = setCase == kUpper   ? LCMAP_UPPERCASE
                        : setCase == kLower ? LCMAP_LOWERCASE
                        : setCase == kTitle ? LCMAP_TITLECASE
                                            : 0u;
  if (mapping == 0 || words.empty()) return words;
  const int count = static_cast<int>(words.size());
  const auto map = [&](wchar_t* to, int room) {
    return LCMapStringEx(LOCALE_NAME_USER_DEFAULT, mapping | LCMAP_LINGUISTIC_CASING, Wide(words), count, to,
                         room, nullptr, nullptr, 0);
  };
  Text changed(static_cast<std::size_t>(std::max(map(nullptr, 0), 0)), u'\0');
  if (changed.empty() || map(WideBuffer(changed), static_cast<int>(changed.size())) == 0) return words;
  return changed;
}

UINT AlignmentOf(TextAlignment alignment) {
  if (alignment == TextAlignment::kRight) return DT_RIGHT;
  return alignment == TextAlignment::kMiddle ? DT_CENTER : DT_LEFT;
}

}  // namespace

class SkinRenderer::TextSetter final : public SkinTextSetter {
 public:
  TextSetter(SkinRenderer& renderer, Colour paper, std::int32_t dpi, bool rightToLeft)
      : renderer_(renderer), paper_(paper), dpi_(dpi), reading_(rightToLeft ? UINT{DT_RTLREADING} : 0) {}

  void SetText(const SkinElement& element, const Rect& area, const Text& words, Colour ink) override {
    if (words.empty() || area.Width() <= 0 || area.Height() <= 0) return;
    const HDC dc = renderer_.memory_.get();
    const Selected font(dc, renderer_.FontOf(element, dpi_));
    SetTextColor(dc, ToCOLORREF(ink));
    SetBkMode(dc, element.format.transparent ? TRANSPARENT : OPAQUE);
    SetBkColor(dc, ToCOLORREF(paper_));
    const Text shown = InCase(words, element.setCase);
    RECT rect = ToRECT(area);
    DrawTextW(dc, Wide(shown), static_cast<int>(shown.size()), &rect,
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX | AlignmentOf(element.alignment) |
                  reading_);
    // The next element is drawn past the system, on the same pixels.
    GdiFlush();
  }

  std::int32_t WidthOf(const SkinElement& element, const Text& words) override {
    const HDC dc = renderer_.memory_.get();
    const Selected font(dc, renderer_.FontOf(element, dpi_));
    const Text shown = InCase(words, element.setCase);
    SIZE size{};
    GetTextExtentPoint32W(dc, Wide(shown), static_cast<int>(shown.size()), &size);
    return static_cast<std::int32_t>(size.cx);
  }

 private:
  SkinRenderer& renderer_;
  Colour paper_;
  std::int32_t dpi_;
  UINT reading_;
};

void SkinRenderer::Paint(HDC screen, const Rect& part, const LoadedSkin& skin, const SkinView& view,
                         const SkinWords& words, const SkinInlay* inlay) {
  if (view.window.width <= 0 || view.window.height <= 0 || !Provide(screen, view.window)) return;
  const Selected selected(memory_.get(), bitmap_.get());
  GdiFlush();
  Canvas canvas(pixels_, view.window, static_cast<std::size_t>(size_.width) * 4);
  canvas.SetClip(part);
  TextSetter texts(*this, PaperColour(skin.data, view.colour, view.clearPaper), skin.data.dpi,
                   view.rightToLeft);
  DrawSkin(canvas, skin.data, skin.sheet, view, words, texts);
  if (inlay != nullptr) {
    const int state = SaveDC(memory_.get());
    IntersectClipRect(memory_.get(), part.left, part.top, part.right, part.bottom);
    inlay->Draw(memory_.get());
    RestoreDC(memory_.get(), state);
  }
  BitBlt(screen, part.left, part.top, part.Width(), part.Height(), memory_.get(), part.left, part.top,
         SRCCOPY);
}

bool SkinRenderer::Provide(HDC screen, Size size) {
  if (bitmap_ && size.width <= size_.width && size.height <= size_.height) return true;
  const auto grown = [](std::int32_t have, std::int32_t wanted) {
    return std::max(have, (wanted + kGrowth - 1) / kGrowth * kGrowth);
  };
  const Size wanted{grown(size_.width, size.width), grown(size_.height, size.height)};
  PixelBitmap made = MakePixelBitmap(wanted);
  if (!memory_) memory_.reset(CreateCompatibleDC(screen));
  if (!made.bitmap || !memory_) return false;
  bitmap_ = std::move(made.bitmap);
  pixels_ = made.pixels;
  size_ = wanted;
  return true;
}

HFONT SkinRenderer::FontOf(const SkinElement& element, std::int32_t dpi) {
  const TextFormat& format = element.format;
  const std::int32_t point = element.point > 0 ? element.point : kDefaultPoint;
  // Skins that are tried out one after another leave fonts behind.
  if (fonts_.size() > kMaxFonts) fonts_.clear();
  // A skin's pixels and points keep their proportion.
  const std::int32_t height = MulDiv(point, dpi, kPointsPerInch);
  UniqueFont& font =
      fonts_[{element.font, height, format.bold, format.italic, format.underline, format.noAa}];
  if (!font) {
    LOGFONTW logical{};
    logical.lfHeight = -height;
    logical.lfWeight = format.bold ? FW_BOLD : FW_NORMAL;
    logical.lfItalic = format.italic;
    logical.lfUnderline = format.underline;
    logical.lfCharSet = DEFAULT_CHARSET;
    logical.lfQuality = format.noAa ? NONANTIALIASED_QUALITY : CLEARTYPE_QUALITY;
    wcsncpy(logical.lfFaceName, element.font.empty() ? L"Segoe UI" : Wide(element.font), LF_FACESIZE - 1);
    font.reset(CreateFontIndirectW(&logical));
  }
  return font.get();
}

namespace {

// The system's own rounding differs from one version to the next, and the shadow has to fit.
HRGN MakeRoundRegion(Size window, std::int32_t radius) {
  radius = std::clamp(radius, 0, std::min(window.width, window.height) / 2);
  if (radius == 0) return nullptr;
  const HRGN region = CreateRectRgn(0, radius, window.width, window.height - radius);
  for (std::int32_t row = 0; row < radius; ++row) {
    const std::int32_t inset = CornerInset(radius, row);
    for (const std::int32_t top : {row, window.height - 1 - row}) {
      const UniqueGdi<HRGN> line(CreateRectRgn(inset, top, window.width - inset, top + 1));
      CombineRgn(region, region, line.get(), RGN_OR);
    }
  }
  return region;
}

}  // namespace

HRGN MakeSkinRegion(const SkinData& skin, Size window) {
  const CoordinateSpace space{window, {}};
  if (skin.region.size() == 1) return MakeRoundRegion(window, skin.region[0].value);
  if (skin.region.size() < 6 || skin.region.size() % 2 != 0) return nullptr;
  std::vector<POINT> points;
  for (std::size_t at = 0; at < skin.region.size(); at += 2)
    points.push_back({ResolveX(skin.region[at], space), ResolveY(skin.region[at + 1], space)});
  UniqueGdi<HRGN> outline(CreatePolygonRgn(points.data(), static_cast<int>(points.size()), WINDING));
  const UniqueGdi<HRGN> whole(CreateRectRgn(0, 0, window.width, window.height));
  const UniqueGdi<HRGN> seen(CreateRectRgn(0, 0, 0, 0));
  // An outline beside the window would leave nothing of the note to see or to take hold of.
  if (!outline || CombineRgn(seen.get(), outline.get(), whole.get(), RGN_AND) == NULLREGION) return nullptr;
  return outline.release();
}

}  // namespace jotlets
