// The bare program that figures are compared with: the windows that notes need and nothing behind them.
#pragma once

#include <windows.h>

#include "base/text.h"

namespace jotlets {

inline constexpr wchar_t kBareClass[] = L"BareNote";
inline constexpr wchar_t kEchoClass[] = L"BareEcho";
/// To the window that echoes: shows all notes, or hides them when they are shown.
inline constexpr UINT kBareShowOrHide = WM_APP;
/// Copy-data to it of this kind, an array of `BareControl`: makes a dialog of these, the first the dialog
/// itself.
inline constexpr ULONG_PTR kBareDialog = 9;
inline constexpr wchar_t kBareDialogTitle[] = L"Bare dialog";

struct BareControl {
  wchar_t windowClass[32];
  DWORD style;
  DWORD extended;
  RECT area;
};

Text BenchNoteId(int number);

/// Runs until it is ended: so many layered pop-ups that can be dragged, each with a rich edit child whose
/// content is read from the data folder and, if `shadows`, a soft layered window below it; and a window that
/// echoes copy-data.
int RunBareProgram(int notes, const Text& folder, bool shadows);

}  // namespace jotlets
