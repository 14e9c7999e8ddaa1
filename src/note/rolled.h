// A note that is rolled up to its title strip: its height, and its place and width of their own.
#pragma once

#include <cstdint>
#include <optional>

#include "base/geometry.h"
#include "base/text.h"
#include "data/jotlet_data.h"

namespace jotlets {

/// What rolling depends on besides the record.
struct RollSettings {
  std::int32_t rolledHeight = 0;      // of the skin, in pixels; 0 or less: notes in this skin do not roll up
  bool rolledHasAltPosition = false;  // a rolled note has a place and width of its own
};

/// A note can be rolled up by its record and yet be shown whole, in a skin without a rolled form.
bool IsShownRolled(const JotletData& record, const RollSettings& settings);

/// The height of the note as if unrolled, in pixels: the one of the window, or of the record while it is
/// shown rolled. Nothing when that is -1: the user is told, and `HeightFromContent` is remembered.
std::optional<std::int32_t> GetJotletHeight(const JotletData& record, std::int32_t windowHeight,
                                            const RollSettings& settings);

/// The height that shows `content` pixels of text between the skin's `top` and `bottom`.
std::int32_t HeightFromContent(std::int32_t content, std::int32_t top, std::int32_t bottom);

/// Rolling a note, or changing one of the settings: `StoreBounds` under the old state, then the change, then
/// the window is given `BoundsFor` the new one.
///
/// Writes the place of the note into the fields of the record that hold it in its state: x, y, width and,
/// unless shown rolled, height; with a place of its own altX, altY and altWidth instead.
void StoreBounds(JotletData& record, const Rect& bounds, const RollSettings& settings);

/// The bounds that the record gives its window. What has not been set yet of a rolled note's own place is as
/// it is unrolled.
Rect BoundsFor(const JotletData& record, const RollSettings& settings);

}  // namespace jotlets
