// What changes the pixels of a picture as a whole or inside of a rectangle, and keeps its size.
#pragma once

#include <cstdint>
#include <functional>

#include "picture/pixels.h"

namespace jotlets {

/// Asked now and then by what takes long: whether it is to end. It runs on the thread that works.
using Cancelled = std::function<bool()>;

/// Work on more pixels than this is done on another thread, on copies.
inline constexpr std::int64_t kMaxPixelsAtOnce = 2 * 1024 * 1024;

enum class EffectKind : std::uint8_t { kMirror, kFlip, kNegative, kGrey, kBorder, kBlur, kJitter };

/// Whether it can be more or less strong.
constexpr bool HasStrength(EffectKind kind) {
  return kind == EffectKind::kBorder || kind == EffectKind::kBlur || kind == EffectKind::kJitter;
}

struct Effect {
  EffectKind kind = EffectKind::kNegative;
  /// Pixels: how wide the border is, from how far away the blur mixes, and the jitter fetches. Below 1
  /// nothing happens; above `kMaxStrength` it counts as that. The others have none.
  std::int32_t strength = 4;
  Colour colour{};         // of the border
  std::uint32_t seed = 1;  // of the jitter: the same one gives the same picture
};

inline constexpr std::int32_t kMaxStrength = 1000;

/// Changes the pixels inside `area`, of which nothing outside is seen. False when it was cancelled: the
/// picture is changed in part then.
bool ApplyEffect(Picture& picture, const Rect& area, const Effect& effect, const Cancelled& cancelled = {});

/// Mixes each pixel with those around it, by three means over ever more of them, up to `radius` pixels away;
/// beyond the edges of the area its outermost pixels go on. Takes as long for any radius.
bool Blur(Picture& picture, const Rect& area, std::int32_t radius, const Cancelled& cancelled = {});

/// Covers a rectangle with an opaque colour.
void FillArea(Picture& picture, const Rect& area, Colour colour);

/// Makes a rectangle transparent.
void ClearArea(Picture& picture, const Rect& area);

}  // namespace jotlets
