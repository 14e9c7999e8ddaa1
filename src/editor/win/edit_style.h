// Text styles in the terms of the editor.
#pragma once

#include "editor/text_style.h"
#include "editor/win/edit_format.h"

namespace jotlets {

EditStyle EditStyleOf(const TextStyle& style);
/// `style` with the font, and the name that it has already.
TextStyle WithFont(TextStyle style, const FontStyle& font);

/// The selection takes a style; one that is not set changes nothing. Black stands for text without a colour
/// of its own, which is nearly white on dark paper.
void ApplyStyle(BEdit& edit, const EditStyle& style);
/// The same for the whole text, and for what will be typed into an empty one.
void ApplyStyleToAll(BEdit& edit, const EditStyle& style);
/// Whether what is selected, or would be typed, has the font of a style that was applied.
bool HasFontOf(const BEdit& edit, const EditStyle& style);
/// The style of the beginning of the selection.
TextStyle StyleOfSelection(const BEdit& edit);

}  // namespace jotlets
