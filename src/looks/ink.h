// Which ink can be read on which paper: colours for texts and glyphs, made from the colour that they are
// drawn on.
#pragma once

#include <cstdint>

#include "base/geometry.h"

namespace jotlets {

/// The least contrasts at which texts and glyphs, and titles, can be read.
inline constexpr double kTextContrast = 4.5;
inline constexpr double kTitleContrast = 7.0;

/// The relative luminance of a colour: 0 for black to 1 for white.
double Luminance(Colour colour);

/// The contrast of two colours: 1 for none to 21 for black on white.
double Contrast(Colour a, Colour b);

/// Whether white can be read better than black on paper of this colour.
bool IsDarkPaper(Colour paper);

/// The colour of text that has none of its own, on paper of this colour.
Colour InkOn(Colour paper);

/// What the ink of texts without a colour of their own is on dark paper.
inline constexpr Colour kLightInk{240, 240, 240};

/// `percent` of the way from the paper to black, or to white when the paper is dark.
Colour Shaded(Colour paper, std::int32_t percent);

/// The ink of titles on a bar of this colour: the bar's own hue.
Colour TitleInk(Colour bar);

/// `own` where it can be read on the paper, else the nearest lighter or darker shade of it that can.
Colour LegibleOn(Colour paper, Colour own);

/// For what matters less than the text.
Colour QuietInk(Colour paper);

/// `percent` of the way from one colour to the other.
Colour Mixed(Colour from, Colour to, std::int32_t percent);

/// For the frame of a note that sounds.
Colour AlarmOn(Colour paper);

/// For the frame of what is active or chosen.
Colour AccentOn(Colour paper);

}  // namespace jotlets
