// What people do with the text of an editor besides typing and formatting: undoing, the clipboard, finding,
// links. Whether a note may be changed is the caller's question, except where pasting asks the editor itself.
#pragma once

#include "base/text.h"
#include "editor/text_search.h"
#include "editor/win/edit.h"

namespace jotlets {

void Undo(BEdit& edit);
void Redo(BEdit& edit);
/// Both put the text in its own colours on the clipboard, not in those that it is shown in on dark paper.
void Cut(BEdit& edit);
void Copy(BEdit& edit);
/// Goes to the hit before, or beeps.
void FindBack(BEdit& edit, TextView wanted);
/// Deletes the selection.
void Clear(BEdit& edit);
void SelectAll(BEdit& edit);
/// Puts `text` in the place of the selection, as one step of undoing.
void InsertText(BEdit& edit, TextView text);

/// Whether a character can be typed: some controls end over the signs of letters.
bool TakesTyped(char16_t unit);

/// How wide the text is, in pixels, when none of its lines is wrapped.
std::int32_t NaturalWidth(BEdit& edit);

/// Selects the place of `wanted` that a step leads to and scrolls to it; without one, nothing changes. What
/// is selected then.
FoundText FindText(BEdit& edit, TextView wanted, FindStep step);

/// Opens the link in which the selection lies, by way of the editor's watcher; false when there is none.
bool OpenSelectedLink(BEdit& edit);
/// Opens the link at the selection, or else makes the selected address a link by putting "http://" or
/// "mailto:" in front of it. False when neither could be done.
bool OpenOrMakeLink(BEdit& edit);

}  // namespace jotlets
