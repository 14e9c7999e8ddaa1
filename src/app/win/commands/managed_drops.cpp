// What becomes of notes that are dragged from the manage window.
#include "app/win/commands/managed_notes.h"
#include "ui/window.h"

namespace jotlets {

void ManagedNotes::DropManaged(ManageView from, const std::vector<Text>& names, const ManagePlace& to) {
  const std::optional<ManageAction> action = ActionOfDrop(from, to);
  if (!action) return;
  if (*action != ManageAction::kStore) return DoManageAction(*action, from, names);
  TellLeft(moves_.Store(from, IdsOf(names), to.category.value_or(Text())));
}

// Where the mouse is now: questions are asked before the notes are there.
void ManagedNotes::DropManagedOut(ManageView from, const std::vector<Text>& names) {
  constexpr std::int32_t kStep = 16;
  if (from == ManageView::kStacks) return;
  Point at = MousePosition();
  BStackDlg* const stack = stacks_.UnderMouse();
  const std::int32_t number = stack == nullptr ? 0 : stack->Number();
  const std::vector<Text> ids = IdsOf(names);
  const ManageAction action = from == ManageView::kAttached
                                  ? ManageAction::kUnattach
                                  : DefaultAction(from).value_or(ManageAction::kOpen);
  ActOn(action, from, ids);
  if (state_.exiting) return;
  for (const Text& id : ids) {
    BJotlet* note = notes_.Find(id);
    if (note == nullptr) continue;
    note->FinishAnimation();
    note->MoveTo(at);
    at = {at.x + kStep, at.y + kStep};
    if (stack != nullptr && stacks_.Find(number) != nullptr) stacks_.AddOne(number, *note);
  }
}

}  // namespace jotlets
