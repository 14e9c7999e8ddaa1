// Notes go into the store, out of it, and from one category to another, very many at once too.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "app/win/commands/manage_jobs.h"
#include "desk/note_desk.h"
#include "manage/manage_actions.h"
#include "manage/undo_steps.h"
#include "store/note_store.h"
#include "ui/resources.h"

namespace jotlets {

/// Each returns how many of the notes could not be served.
class StoreMoves {
 public:
  StoreMoves(const Resources& resources, NoteDesk& desk, NoteStore& store, UndoSteps& steps,
             const ManageJobs& jobs)
      : resources_(resources), desk_(desk), store_(store), steps_(steps), jobs_(jobs) {}

  /// Asks for a category of the store; the one that was used last is proposed.
  std::optional<Text> AskCategory(HWND owner);
  std::vector<Text> CategoryNames() { return store_.CategoryNames(); }

  /// Notes of a view go into a category; stored ones from theirs.
  std::size_t Store(ManageView view, const std::vector<Text>& ids, const Text& category);
  std::size_t Fetch(const std::vector<Text>& ids);
  std::size_t Delete(const std::vector<Text>& ids);
  /// Each goes back to the category that it came from.
  std::size_t UndoRecategorized(const UndoStep& step);

 private:
  std::size_t Recategorize(const std::vector<Text>& ids,
                           const std::function<Text(const Text& id)>& categoryOf, UndoStep& step);

  const Resources& resources_;
  NoteDesk& desk_;
  NoteStore& store_;
  UndoSteps& steps_;
  const ManageJobs& jobs_;
};

}  // namespace jotlets
