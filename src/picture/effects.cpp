#include "picture/effects.h"

#include <algorithm>

#include "picture/orientation.h"

namespace jotlets {
namespace {

constexpr Pixel kAlphaPart = 0xFF000000;

// No colour exceeds its alpha, so nothing is borrowed from one byte by the next.
Pixel Negative(Pixel pixel) {
  const Pixel alpha = pixel >> 24;
  return (pixel & kAlphaPart) | ((alpha << 16 | alpha << 8 | alpha) - (pixel & ~kAlphaPart));
}

// The weights of the eye for red, green and blue, in parts of 256.
Pixel Grey(Pixel pixel) {
  // Red and blue in one product: of its upper half the one is multiplied by 77, the other by 29.
  const Pixel redAndBlue = ((pixel & 0x00FF00FF) * (29 << 16 | 77)) >> 16;
  const Pixel grey = (redAndBlue + ((pixel >> 8) & 0xFF) * 150 + 128) >> 8;
  return (pixel & kAlphaPart) | grey << 16 | grey << 8 | grey;
}

template <typename Change>
void ChangeEach(Picture& picture, const Rect& area, Change change) {
  const auto count = static_cast<std::size_t>(area.Width());
  for (std::int32_t y = area.top; y < area.bottom; ++y) {
    std::uint8_t* row = PixelPlace(picture, area.left, y);
    for (std::size_t x = 0; x < count; ++x) StorePixel(row + x * 4, change(LoadPixel(row + x * 4)));
  }
}

void DrawBorder(Picture& picture, const Rect& area, std::int32_t width, Colour colour) {
  const std::int32_t across = std::min(width, area.Width());
  const std::int32_t down = std::min(width, area.Height());
  FillArea(picture, {area.left, area.top, area.right, area.top + down}, colour);
  FillArea(picture, {area.left, area.bottom - down, area.right, area.bottom}, colour);
  FillArea(picture, {area.left, area.top, area.left + across, area.bottom}, colour);
  FillArea(picture, {area.right - across, area.top, area.right, area.bottom}, colour);
}

class Chance {
 public:
  explicit Chance(std::uint32_t seed) : state_(seed * 2654435761U | 1) {}
  /// A number from -most to most.
  std::int32_t Within(std::int32_t most) {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    const auto range = static_cast<std::uint64_t>(2 * std::int64_t{most} + 1);
    return static_cast<std::int32_t>(range * state_ >> 32) - most;
  }

 private:
  std::uint32_t state_;
};

bool Jitter(Picture& picture, const Rect& area, std::int32_t strength, std::uint32_t seed,
            const Cancelled& cancelled) {
  const Picture from = PartOf(picture, area);
  Chance chance(seed);
  for (std::int32_t y = 0; y < from.size.height; ++y) {
    if (y % 64 == 0 && cancelled && cancelled()) return false;
    std::uint8_t* to = PixelPlace(picture, area.left, area.top + y);
    for (std::int32_t x = 0; x < from.size.width; ++x, to += 4) {
      const std::int32_t column = std::clamp(x + chance.Within(strength), 0, from.size.width - 1);
      const std::int32_t row = std::clamp(y + chance.Within(strength), 0, from.size.height - 1);
      StorePixel(to, LoadPixel(PixelPlace(from, column, row)));
    }
  }
  return true;
}

}  // namespace

bool ApplyEffect(Picture& picture, const Rect& area, const Effect& effect, const Cancelled& cancelled) {
  const Rect part = CommonPart(area, WholeOf(picture.size));
  const std::int32_t strength = std::clamp(effect.strength, 0, kMaxStrength);
  if (IsEmptyRect(part)) return true;
  switch (effect.kind) {
    case EffectKind::kMirror: OrientPart(picture, part, Orientation::kMirrored); break;
    case EffectKind::kFlip: OrientPart(picture, part, Orientation::kFlipped); break;
    case EffectKind::kNegative: ChangeEach(picture, part, Negative); break;
    case EffectKind::kGrey: ChangeEach(picture, part, Grey); break;
    case EffectKind::kBorder: DrawBorder(picture, part, strength, effect.colour); break;
    case EffectKind::kBlur: return Blur(picture, part, strength, cancelled);
    case EffectKind::kJitter: return strength == 0 || Jitter(picture, part, strength, effect.seed, cancelled);
  }
  return true;
}

void FillArea(Picture& picture, const Rect& area, Colour colour) {
  const Pixel filled = PremultipliedPixel(colour, 255);
  ChangeEach(picture, CommonPart(area, WholeOf(picture.size)), [filled](Pixel) { return filled; });
}

void ClearArea(Picture& picture, const Rect& area) {
  ChangeEach(picture, CommonPart(area, WholeOf(picture.size)), [](Pixel) { return Pixel{0}; });
}

}  // namespace jotlets
