// The note commands that act on the editor alone.
#pragma once

#include <functional>
#include <optional>
#include <span>

#include "action/actions.h"
#include "base/text.h"
#include "editor/edit_facts.h"
#include "editor/win/edit.h"
#include "editor/win/edit_format.h"
#include "editor/win/edit_style.h"

namespace jotlets {

/// What the commands need to know from outside; nothing of it is kept.
struct EditContext {
  std::function<Text()> dateText;     // what "insertdate" inserts
  std::span<const EditStyle> styles;  // of "applystyle0" and on; missing ones do nothing
  std::int32_t bulletIndent = 300;    // twips
  HighlightColours highlights;
  std::optional<LiftedFormat>& lifted;  // shared by all notes
  TypingSettings typing;
  Text searched;  // what "findtextagain" looks for
};

/// Carries out the command of an action code; false for a code that is not the editor's alone. Commands that
/// would change a read-only note do nothing, as commands with nothing to act on.
bool DoEditAction(BEdit& edit, ActionCode action, const EditContext& context);

}  // namespace jotlets
