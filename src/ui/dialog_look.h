// The look of dialogs: their caption, their grounds, and the controls in them.
#pragma once

#include <windows.h>

#include "ui/theme.h"

namespace jotlets {

/// Gives a dialog and all controls in it the look of `theme`, which outlives it. To be called again when
/// there are more of them, or another look.
void DressDialog(HWND dialog, const Theme& theme);

/// Whether a control is a picker of dates or times, which has no dark form and does not show the keyboard.
bool IsDatePicker(HWND control);

/// Gives a tooltip that was just made the colours of `theme`.
void DressTooltip(HWND tooltip, const Theme& theme);

/// The colours that a dialog answers its controls with; nullptr for those that are the system's: all in high
/// contrast, fields in the light. `surface` is what the control stands on.
HBRUSH ControlColours(UINT message, HDC dc, HWND control, const Theme& theme, Colour surface);

/// The colours of words that stand on an empty list; nullptr in high contrast, which goes before all papers.
HBRUSH EmptyListColours(HDC dc, const Theme& theme);

/// Has a list choose whole rows, and draw them without flicker. A mirrored list may flicker: some systems
/// draw it into a picture first, and show the mirror image of that.
void SetUpRows(HWND list, const Theme& theme);

}  // namespace jotlets
