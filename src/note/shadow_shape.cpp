#include "note/shadow_shape.h"

#include <algorithm>
#include <cmath>

#include "looks/ink.h"

namespace jotlets {
namespace {

// Pixels at the usual scale, and percent of black.
struct ShadowLook {
  std::int32_t down;
  std::int32_t blur;  // how far it reaches
  std::int32_t percent;
};
constexpr ShadowLook kIdle{4, 16, 18};
constexpr ShadowLook kActive{8, 24, 26};

struct Margins {
  std::int32_t side;
  std::int32_t top;
  std::int32_t bottom;
};

ShadowLook LookOf(const ShadowCaster& caster) {
  const ShadowLook look = caster.active ? kActive : kIdle;
  return {ScaledLength(look.down, caster.dpi), ScaledLength(look.blur, caster.dpi), look.percent};
}

Margins MarginsOf(const ShadowLook& look) {
  return {look.blur, look.blur - look.down, look.blur + look.down};
}

Size SizeWith(const ShadowCaster& caster, const Margins& margins) {
  return {std::max(caster.size.width, 0) + 2 * margins.side,
          std::max(caster.size.height, 0) + margins.top + margins.bottom};
}

// How much of the light a bar from `from`, `length` long, takes from each pixel of a line, 0 to 256.
std::vector<std::uint32_t> Profile(std::int32_t count, std::int32_t from, std::int32_t length, double blur) {
  const double spread = std::max(blur, 1.0) / 2 * std::sqrt(2.0);
  std::vector<std::uint32_t> profile(static_cast<std::size_t>(count));
  for (std::int32_t at = 0; at < count; ++at) {
    const double into = at + 0.5 - from;
    const double part = (std::erf(into / spread) - std::erf((into - length) / spread)) / 2;
    profile[static_cast<std::size_t>(at)] = static_cast<std::uint32_t>(std::lround(part * 256));
  }
  return profile;
}

// The frame over the shadow, where a corner is cut off.
void PutEdge(std::uint8_t* pixel, Colour edge, std::uint32_t covered) {
  pixel[0] = static_cast<std::uint8_t>(edge.b * covered / 255);
  pixel[1] = static_cast<std::uint8_t>(edge.g * covered / 255);
  pixel[2] = static_cast<std::uint8_t>(edge.r * covered / 255);
  pixel[3] = static_cast<std::uint8_t>(covered + pixel[3] * (255 - covered) / 255);
}

constexpr std::int32_t kSheetStep = 5;
constexpr std::int32_t kSheetInset = 6;
constexpr std::int32_t kSheetEdge = 14;  // percent, as the frame of a note

// The lower edge of a sheet, whose place is in pixels of the shadow, with a line around it.
void PutSheet(std::vector<std::uint8_t>& pixels, std::int32_t width, const Rect& sheet, std::int32_t from,
              std::int32_t radius, Colour colour) {
  for (std::int32_t y = from; y < sheet.bottom; ++y) {
    for (std::int32_t x = sheet.left; x < sheet.right; ++x) {
      const std::int32_t fromSide = std::min(x - sheet.left, sheet.right - 1 - x);
      const std::int32_t fromEdge = sheet.bottom - 1 - y;
      const bool corner = fromSide < radius && fromEdge < radius;
      const std::uint32_t covered = corner ? CornerCoverage({fromSide, fromEdge}, radius) : 255;
      if (covered == 0) continue;
      const bool line = fromSide == 0 || fromEdge == 0 || (corner && covered < 255);
      std::uint8_t* const pixel = &pixels[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                                           static_cast<std::size_t>(x)) *
                                          4];
      const Colour ink = line ? Shaded(colour, kSheetEdge) : colour;
      const auto over = [covered](std::uint32_t upper, std::uint32_t lower) {
        return static_cast<std::uint8_t>((upper * covered + lower * (255 - covered)) / 255);
      };
      pixel[0] = over(ink.b, pixel[0]);
      pixel[1] = over(ink.g, pixel[1]);
      pixel[2] = over(ink.r, pixel[2]);
      pixel[3] = over(255, pixel[3]);
    }
  }
}

// The lowest sheet first. Nothing of them comes under the window, which may be seen through.
void PutSheets(std::vector<std::uint8_t>& pixels, const ShadowCaster& caster, const Margins& margins,
               std::int32_t radius) {
  const std::int32_t width = caster.size.width + 2 * margins.side;
  const std::int32_t below = margins.top + caster.size.height;
  for (std::size_t at = caster.sheets.size(); at-- > 0;) {
    const auto nth = static_cast<std::int32_t>(at + 1);
    const std::int32_t inset = margins.side + nth * ScaledLength(kSheetInset, caster.dpi);
    const std::int32_t bottom = below + nth * ScaledLength(kSheetStep, caster.dpi);
    if (bottom > below + margins.bottom || inset + radius >= width / 2) continue;
    PutSheet(pixels, width, {inset, below, width - inset, bottom}, below, radius, caster.sheets[at]);
  }
}

}  // namespace

Rect ShadowBounds(Point place, const ShadowCaster& caster) {
  const Margins margins = MarginsOf(LookOf(caster));
  return RectAt(
      {Saturated(std::int64_t{place.x} - margins.side), Saturated(std::int64_t{place.y} - margins.top)},
      SizeWith(caster, margins));
}

std::vector<std::uint8_t> ShadowPixels(const ShadowCaster& caster) {
  const ShadowLook look = LookOf(caster);
  const Margins margins = MarginsOf(look);
  const Size size = SizeWith(caster, margins);
  const Size inner = caster.size;
  const std::int32_t radius = std::clamp(caster.radius, 0, std::min(inner.width, inner.height) / 2);
  const auto across = Profile(size.width, margins.side, inner.width, look.blur);
  const auto down = Profile(size.height, margins.top + look.down, inner.height, look.blur);
  const auto darkest = static_cast<std::uint32_t>(255 * look.percent / 100);
  std::vector<std::uint8_t> pixels(static_cast<std::size_t>(size.width) *
                                   static_cast<std::size_t>(size.height) * 4);
  std::uint8_t* pixel = pixels.data();
  for (std::int32_t y = 0; y < size.height; ++y) {
    const std::int32_t row = y - margins.top;
    const std::int32_t fromEdge = std::min(row, inner.height - 1 - row);
    const std::int32_t inset = fromEdge < 0 ? inner.width : CornerInset(radius, std::min(fromEdge, radius));
    const std::uint32_t dark = darkest * down[static_cast<std::size_t>(y)];
    for (std::int32_t x = 0; x < size.width; ++x, pixel += 4) {
      const std::int32_t column = x - margins.side;
      const std::int32_t fromSide = std::min(column, inner.width - 1 - column);
      if (fromEdge >= 0 && fromSide >= inset) continue;
      pixel[3] = static_cast<std::uint8_t>((dark * across[static_cast<std::size_t>(x)]) >> 16);
      if (caster.edge && fromEdge >= 0 && fromEdge < radius && fromSide >= 0)
        PutEdge(pixel, *caster.edge, CornerCoverage({fromSide, fromEdge}, radius));
    }
  }
  PutSheets(pixels, caster, margins, radius);
  return pixels;
}

}  // namespace jotlets
