// Draws the elements of a skin on to a canvas, in their order. Texts are set by somebody who has fonts.
#pragma once

#include "skin/canvas.h"
#include "skin/skin_data.h"
#include "skin/skin_view.h"

namespace jotlets {

class SkinTextSetter {
 public:
  virtual ~SkinTextSetter() = default;
  /// Sets `words` into `area` in this ink and in the font, case and alignment of the element, cut with an
  /// ellipsis.
  virtual void SetText(const SkinElement& element, const Rect& area, const Text& words, Colour ink) = 0;
  /// How wide `words` are in the font and case of the element.
  virtual std::int32_t WidthOf(const SkinElement& element, const Text& words) = 0;
};

/// The paper and then every element that shows. Strips and tile areas take the tint of the note's colour;
/// buttons, indicators and texts keep their own, unless they ask for an ink that is made from the strip they
/// lie on.
void DrawSkin(Canvas& canvas, const SkinData& skin, const Picture& sheet, const SkinView& view,
              const SkinWords& words, SkinTextSetter& texts);

/// The colour of a frame that is drawn around a window's corners and follows its paper; nothing without one.
std::optional<Colour> EdgeColour(const SkinData& skin, const SkinView& view);

/// The note's colour as it is drawn: unless paper may be `clear`, one that the skin's colour key would make
/// see-through is changed by a hair.
Colour PaperColour(const SkinData& skin, Colour colour, bool clear);

}  // namespace jotlets
