// What becomes of notes that are dragged in the manage window, and of those dragged on to it.
#include <unordered_map>

#include "app/win/commands/managed_notes.h"
#include "ui/window.h"

namespace jotlets {

void ManagedNotes::DropManaged(ManageView from, const std::vector<Text>& names, const ManagePlace& to) {
  const std::optional<ManageAction> action = ActionOfDrop(from, to);
  if (!action) return;
  if (*action != ManageAction::kStore) return DoManageAction(*action, from, names);
  TellLeft(Store(from, IdsOf(names), to.category.value_or(Text())));
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

std::size_t ManagedNotes::Store(ManageView view, const std::vector<Text>& ids, const Text& category) {
  constexpr std::size_t kInOneChange = 200;
  if (view == ManageView::kStored) {
    UndoStep step{UndoKind::kRecategorized};
    const std::size_t left = ForEach(ids, kInOneChange, [&](const std::vector<Text>& part) {
      return Recategorize(
          part, [&category](const Text&) { return category; }, step);
    });
    steps_.AddRecategorized(std::move(step.ids), std::move(step.categories));
    return left;
  }
  std::vector<Text> stored;
  const std::size_t left = ForEach(ids, 1, [&](const std::vector<Text>& part) {
    if (!desk_.Store(part.front(), category)) return std::size_t{1};
    stored.push_back(part.front());
    return std::size_t{0};
  });
  steps_.Add(UndoKind::kStored, std::move(stored));
  return left;
}

// All of them in one change.
std::size_t ManagedNotes::Recategorize(const std::vector<Text>& ids,
                                       const std::function<Text(const Text& id)>& categoryOf,
                                       UndoStep& step) {
  std::size_t left = 0;
  UndoStep part;
  store_.EndChange();
  store_.BeginChange();
  for (const Text& id : ids) {
    const std::optional<std::int64_t> key = store_.KeyOf(id);
    const std::optional<StoredNote> note = key ? store_.Find(*key) : std::nullopt;
    const Text category = categoryOf(id);
    if (note && note->category == category) continue;
    if (!note || !store_.SetCategory(*key, category)) {
      ++left;
      continue;
    }
    part.ids.push_back(id);
    part.categories.push_back(note->category);
  }
  if (!store_.EndChange()) return ids.size();
  step.ids.insert(step.ids.end(), part.ids.begin(), part.ids.end());
  step.categories.insert(step.categories.end(), part.categories.begin(), part.categories.end());
  return left;
}

std::size_t ManagedNotes::UndoRecategorized(const UndoStep& step) {
  constexpr std::size_t kInOneChange = 200;
  std::unordered_map<Text, Text> before;
  for (std::size_t i = 0; i < step.ids.size(); ++i) before[step.ids[i]] = step.categories[i];
  UndoStep undone;
  return ForEach(step.ids, kInOneChange, [&](const std::vector<Text>& part) {
    return Recategorize(
        part, [&before](const Text& id) { return before.at(id); }, undone);
  });
}

}  // namespace jotlets
