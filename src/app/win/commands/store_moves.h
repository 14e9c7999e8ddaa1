// Notes go into the store, out of it, and from one category to another, very many at once too.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "app/win/program_window.h"
#include "desk/note_desk.h"
#include "manage/manage_actions.h"
#include "manage/undo_steps.h"
#include "store/note_store.h"
#include "ui/resources.h"

namespace jotlets {

class BManageDlg;

/// Does something with each of many notes, behind a dialog when that takes long.
class ManageJobs {
 public:
  ManageJobs(const Resources& resources, const ProgramWindow& window, const ProgramState& state,
             const BManageDlg& dialog)
      : resources_(resources), window_(window), state_(state), dialog_(dialog) {}

  /// While it lives, jobs cannot be stopped.
  class Whole {
   public:
    explicit Whole(ManageJobs& jobs) : jobs_(jobs) { jobs_.mayStop_ = false; }
    ~Whole() { jobs_.mayStop_ = true; }
    Whole(const Whole&) = delete;
    Whole& operator=(const Whole&) = delete;

   private:
    ManageJobs& jobs_;
  };

  /// `act` gets at most `together` of the names at a time and says how many it could not serve; how many
  /// these are. What has not been done when the user has had enough, or the program ends, is no failure.
  std::size_t ForEach(const std::vector<Text>& names, std::size_t together,
                      const std::function<std::size_t(const std::vector<Text>& names)>& act) const;
  /// The window that questions are asked in front of.
  HWND Asker() const;

 private:
  const Resources& resources_;
  const ProgramWindow& window_;
  const ProgramState& state_;
  const BManageDlg& dialog_;
  bool mayStop_ = true;
};

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
