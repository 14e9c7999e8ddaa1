// The notes as the manage window has them: where its rows and texts come from, and what its actions do.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "app/win/commands/manage_jobs.h"
#include "app/win/commands/managed_store.h"
#include "app/win/commands/store_moves.h"
#include "app/win/program_saving.h"
#include "desk/sleeping_notes.h"
#include "desk/win/note_contents.h"
#include "desk/win/open_stacks.h"
#include "manage/undo_steps.h"
#include "manage/win/manage_dialog.h"

namespace jotlets {

class ManagedNotes final : public ManageOwner, public NoteTexts {
 public:
  ManagedNotes(const Resources& resources, const Clock& clock, Options& options, NoteDesk& desk,
               OpenNotes& notes, OpenStacks& stacks, SleepingNotes& sleeping, NoteContents& contents,
               NoteStore& store, StoredBrowser& browser, Files& files, ProgramSaving& saving,
               const ProgramWindow& window, const ProgramState& state, PreviewSource& shown)
      : resources_(resources),
        clock_(clock),
        options_(options),
        desk_(desk),
        notes_(notes),
        stacks_(stacks),
        sleeping_(sleeping),
        contents_(contents),
        store_(store),
        files_(files),
        saving_(saving),
        state_(state),
        stored_(resources, store, browser),
        dialog_(resources, *this, *this, shown, options),
        jobs_(resources, window, state, dialog_),
        moves_(resources, desk, store, steps_, jobs_) {}

  BManageDlg& Dialog() { return dialog_; }

  bool FillManageList(const ManagePlace& place, ManageList& list) override;
  void FetchStored(std::vector<std::int64_t> keys) override { stored_.Browser().Read(std::move(keys)); }
  std::array<std::optional<std::size_t>, kManageViews> CountManaged() override;
  void DoManageAction(ManageAction action, ManageView view, const std::vector<Text>& names) override;
  void DropManaged(ManageView from, const std::vector<Text>& names, const ManagePlace& to) override;
  void DropManagedOut(ManageView from, const std::vector<Text>& names) override;
  std::vector<ManageCategory> Categories() override { return stored_.Categories(); }
  std::optional<std::size_t> CountStored(const ManagePlace& place) override;
  std::optional<Text> RenameCategory(const Text& name) override;
  void SetCategoryLook(const Text& name, const CategoryLook& look) override;
  bool AskSurvey(SurveyQuestion question) override;
  std::optional<UndoKind> LastManaged() const override { return steps_.LastKind(); }
  Text StoreFault() const override { return store_.Fault(); }
  Text ManagedTime(std::int32_t utc) override;
  void OnManageSettings() override;
  void OnManageEnd() override { stored_.End(); }

  Text TextOf(const ManageRow& row) override;

  /// Opens the window, without taking the keyboard, at the stored note of this key.
  void ShowStored(std::int64_t key);
  /// What moves notes into the store and out of it, for others too.
  StoreMoves& Moves() { return moves_; }
  /// More is known of the stored notes that are browsed.
  void OnBrowsed();

  /// What was done with notes, here and elsewhere.
  UndoSteps& Steps() { return steps_; }
  /// Undoes one step, if that has not been done yet.
  void UndoStepOf(int number);
  /// The title that a note shows, also one that is in no window.
  Text TitleOf(const Text& id);
  /// Who makes stored notes of a file, or of what the user chooses where none is named, behind this window.
  void ServeImport(std::function<void(HWND owner, const Text& path)> import) { import_ = std::move(import); }
  void Import(HWND owner, const Text& path) { import_(owner, path); }
  /// Who can tell where notes are, and calls `OnSurvey`; false where nobody can.
  void ServeSurvey(std::function<bool(SurveyQuestion)> survey) { survey_ = std::move(survey); }
  void OnSurvey(const SearchSurvey& survey);
  /// Whom to tell of each step that is undone.
  void WatchUndo(std::function<void(int number)> undone) { undone_ = std::move(undone); }

 private:
  // Those that return a number tell how many notes could not be served.
  void ActOn(ManageAction action, ManageView view, const std::vector<Text>& ids);
  void TellLeft(std::size_t left);
  std::optional<std::vector<Text>> IdsOf(const std::vector<Text>& names);
  std::size_t DoAll(ManageAction action, const std::vector<Text>& ids);
  bool IsAgreed(ManageAction action, ManageView view, std::size_t count);
  std::size_t Do(ManageAction action, ManageView view, const std::vector<Text>& ids);
  std::size_t Delete(ManageView view, const std::vector<Text>& ids);
  std::size_t CloseOpen(const std::vector<Text>& ids);
  void CloseWaiting(ManageView view, const std::vector<Text>& ids);
  std::size_t Restore(const std::vector<Text>& ids);
  std::size_t SaveCopies(const std::vector<Text>& ids);
  std::size_t Undo(const UndoStep& step);

  const Resources& resources_;
  const Clock& clock_;
  Options& options_;
  NoteDesk& desk_;
  OpenNotes& notes_;
  OpenStacks& stacks_;
  SleepingNotes& sleeping_;
  NoteContents& contents_;
  NoteStore& store_;
  Files& files_;
  ProgramSaving& saving_;
  const ProgramState& state_;
  ManagedStore stored_;
  BManageDlg dialog_;
  UndoSteps steps_;
  ManageJobs jobs_;
  StoreMoves moves_;
  std::function<void(int number)> undone_ = [](int) {};
  std::function<bool(SurveyQuestion)> survey_ = [](const SurveyQuestion&) { return false; };
  std::function<void(HWND owner, const Text& path)> import_ = [](HWND, const Text&) {};
};

}  // namespace jotlets
