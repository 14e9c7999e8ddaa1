// Which commands a note can carry out now, and which of them show a check mark, by the rows of the commands
// and the facts of the note. Menus and keys ask the same rule.
#pragma once

#include <array>

#include "action/actions.h"
#include "base/text.h"
#include "editor/edit_facts.h"

namespace jotlets {

/// What the rule needs to know of a note.
struct ActionFacts {
  bool image = false;
  bool readOnly = false;
  bool rolled = false;
  bool onTop = false;
  bool stang = false;
  bool user1 = false;
  bool user2 = false;
  bool user3 = false;
  std::int32_t transparency = 0;  // as the record has it
  bool skinFixed = false;         // by policy
  bool inStack = false;
  std::array<Text, 10> styles;  // what the saved styles are called; empty for one that is not set
  EditFacts edit;               // of the text; of a picture what can be undone and pasted
  std::int32_t tool = 0;        // the command of the tool that is in hand
  std::int32_t penWidth = 0;
  std::int32_t zoom = 0;  // of the picture, in percent; 0 as long as it is made to fit
};

struct ActionState {
  bool enabled = true;
  bool checked = false;
};

/// Commands of features that are not there yet are never enabled, nor are those that have no effect in a
/// note.
ActionState StateOf(ActionCode action, const ActionFacts& facts);

}  // namespace jotlets
