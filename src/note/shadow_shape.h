// The soft shadow around a window: how dark each of its pixels is. Nothing of it lies under the window
// itself, which may be seen through, nor over it, wherever the system stacks the two.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/geometry.h"

namespace jotlets {

/// The window that throws the shadow. Lengths are pixels of its scale.
struct ShadowCaster {
  Size size;
  std::int32_t radius = 0;     // of its corners
  std::optional<Colour> edge;  // of its frame, which goes on softly where its corners end in steps
  bool active = false;         // it lies higher
  std::int32_t dpi = kUsualDpi;
  std::vector<Colour> sheets = {};  // that lie below it, the upper one first: their lower edges are seen
  friend bool operator==(const ShadowCaster&, const ShadowCaster&) = default;
};

/// The rectangle of the shadow of a window at this place.
Rect ShadowBounds(Point place, const ShadowCaster& caster);

/// The pixels of the shadow: blue, green, red, alpha bytes, colours multiplied by alpha, top row first.
std::vector<std::uint8_t> ShadowPixels(const ShadowCaster& caster);

}  // namespace jotlets
