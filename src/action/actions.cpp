#include "action/actions.h"

#include "action/action_table.h"

namespace jotlets {

ActionCode ActionFromName(TextView name) {
  for (const NoteAction& row : kNoteActions) {
    if (EqualIgnoreCase(row.name, name)) return row.code;
  }
  return kActionNone;
}

Text ActionName(std::int32_t code) { return FoldCase(RowOf(code).name); }

}  // namespace jotlets
