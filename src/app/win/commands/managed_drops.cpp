// What becomes of notes that are dragged from the manage window.
#include <utility>

#include "app/win/commands/managed_notes.h"
#include "ui/window.h"

namespace jotlets {

void ManagedNotes::DropManaged(ManageView from, const std::vector<Text>& names, const ManagePlace& to) {
  const std::optional<ManageAction> action = ActionOfDrop(from, to);
  if (!action) return;
  if (*action != ManageAction::kStore) return DoManageAction(*action, from, names);
  if (const auto ids = IdsOf(names)) TellLeft(moves_.Store(from, *ids, to.category.value_or(Text())));
}

// Where the mouse is now: questions are asked before the notes are there. Those that lie on the desktop
// already only go elsewhere.
void ManagedNotes::DropManagedOut(ManageView from, const std::vector<Text>& names) {
  constexpr std::int32_t kStep = 16;
  if (from == ManageView::kStacks) return;
  Point at = MousePosition();
  const BStackDlg* const stack = stacks_.UnderMouse();
  const std::int32_t number = stack == nullptr ? 0 : stack->Number();
  const auto ids = IdsOf(names);
  if (!ids) return;
  std::vector<Text> open;
  std::vector<Text> others;
  std::vector<Point> places;
  for (const Text& id : *ids) {
    BJotlet* const note = notes_.Find(id);
    (note == nullptr ? others : open).push_back(id);
    if (note != nullptr) places.push_back(note->SettledBounds().TopLeft());
  }
  const bool unattaches = from == ManageView::kAttached;
  const auto action = unattaches ? std::optional(ManageAction::kUnattach) : DefaultAction(from);
  if (!others.empty() && action) ActOn(*action, from, others);
  if (state_.exiting) return;
  Do(ManageAction::kOpen, ManageView::kDesktop, open);
  std::vector<BJotlet*> notes;
  for (const Text& id : *ids) {
    BJotlet* const note = notes_.Find(id);
    if (note == nullptr) continue;
    note->FinishAnimation();
    note->MoveTo(at);
    at = {at.x + kStep, at.y + kStep};
    notes.push_back(note);
  }
  steps_.Add(UndoKind::kArranged, std::move(open), std::move(places));
  if (stack != nullptr) stacks_.AddNotes(number, notes);
}

}  // namespace jotlets
