// What must hold of the rows, found by the compiler.
#include "action/action_table.h"

namespace jotlets {
namespace {

constexpr bool CountFromOne() {
  ActionCode expected = kActionNone;
  for (const NoteAction& row : kNoteActions) {
    if (row.code != expected + 1) return false;
    expected = row.code;
  }
  return expected + 1 == kActionEnd;
}

// Whether a field, where it is set, is different in all rows.
template <typename Field>
constexpr bool IsUnique(Field NoteAction::*field, const Field& unset) {
  for (const NoteAction& row : kNoteActions) {
    if (row.*field != unset && std::ranges::count(kNoteActions, row.*field, field) != 1) return false;
  }
  return true;
}

static_assert(CountFromOne(), "a row is found by its code");
static_assert(IsUnique(&NoteAction::key, {}), "two commands have the same key");
static_assert(IsUnique(&NoteAction::menu, {}), "two commands have the same place in a menu");
static_assert(IsUnique(&NoteAction::sets, {}), "two commands set the same");

}  // namespace
}  // namespace jotlets
