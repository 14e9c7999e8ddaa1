// What the program tells the user in words, and asks.
#pragma once

#include <windows.h>

#include "ui/resources.h"

namespace jotlets {

/// Shows a text of the resources, with `value` in the place of its "%s", and waits until it is dismissed.
void Tell(HWND owner, const Resources& resources, UINT text, TextView value);

/// Shows what came of a long work, as a warning where something was left.
void Report(HWND owner, const Resources& resources, const Text& told, bool left);

/// Asks a yes-or-no question; whether the answer was yes. Given without looking, it is no: what is asked
/// about takes something away. So below.
bool Ask(HWND owner, const Resources& resources, UINT question);

/// The same, with `value` in the place of "%s".
bool AskFirst(HWND owner, const Resources& resources, UINT question, TextView value);

/// The same, with a number in the place of each "%n".
void TellCount(HWND owner, const Resources& resources, UINT text, std::size_t count);
bool AskCount(HWND owner, const Resources& resources, UINT question, std::size_t count);

}  // namespace jotlets
