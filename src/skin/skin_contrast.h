// Skins in high contrast: what they show and where stays theirs, the colours and the frame are the system's.
#pragma once

#include "skin/skin_data.h"

namespace jotlets {

/// Whether the pictures of a skin are shapes that can be filled with another colour.
bool CanShowContrast(const SkinData& skin);

/// The skin without fills, with one ink for all shapes and texts, a line under its bar and a frame that is
/// thicker while the note is active or selected.
SkinData ContrastSkin(SkinData skin);

}  // namespace jotlets
