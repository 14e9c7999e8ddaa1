#include "note/shadow_shape.h"

#include <algorithm>
#include <cmath>

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

// How much of a pixel of a corner's square the window covers, 0 to 255.
std::uint32_t Coverage(Point at, std::int32_t radius) {
  const double across = radius - at.x - 0.5;
  const double up = radius - at.y - 0.5;
  const double inside = radius + 0.5 - std::sqrt(across * across + up * up);
  return static_cast<std::uint32_t>(std::lround(255 * std::clamp(inside, 0.0, 1.0)));
}

// The frame over the shadow, where a corner is cut off.
void PutEdge(std::uint8_t* pixel, Colour edge, std::uint32_t covered) {
  pixel[0] = static_cast<std::uint8_t>(edge.b * covered / 255);
  pixel[1] = static_cast<std::uint8_t>(edge.g * covered / 255);
  pixel[2] = static_cast<std::uint8_t>(edge.r * covered / 255);
  pixel[3] = static_cast<std::uint8_t>(covered + pixel[3] * (255 - covered) / 255);
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
        PutEdge(pixel, *caster.edge, Coverage({fromSide, fromEdge}, radius));
    }
  }
  return pixels;
}

}  // namespace jotlets
