// The notes as the manage window has them: where its rows and texts come from, and what its actions do.
#pragma once

#include <vector>

#include "app/win/program_saving.h"
#include "desk/sleeping_notes.h"
#include "desk/win/note_contents.h"
#include "desk/win/open_stacks.h"
#include "manage/win/manage_dialog.h"

namespace jotlets {

class ManagedNotes final : public ManageOwner, public NoteTexts {
 public:
  ManagedNotes(const Resources& resources, const Clock& clock, Options& options, NoteDesk& desk,
               OpenNotes& notes, OpenStacks& stacks, SleepingNotes& sleeping, NoteContents& contents,
               ProgramSaving& saving, const ProgramWindow& window, const ProgramState& state)
      : resources_(resources),
        clock_(clock),
        options_(options),
        desk_(desk),
        notes_(notes),
        stacks_(stacks),
        sleeping_(sleeping),
        contents_(contents),
        saving_(saving),
        window_(window),
        state_(state),
        dialog_(resources, *this, *this, options) {}

  BManageDlg& Dialog() { return dialog_; }

  bool FillManageList(ManageView view, ManageList& list) override;
  std::array<std::size_t, kManageViews> CountManaged() override;
  void DoManageAction(ManageAction action, ManageView view, const std::vector<Text>& ids) override;
  bool CanUndoManaged() const override { return !deleted_.empty(); }
  Text ManagedTime(std::int32_t utc) override;
  void OnManageSettings() override;

  Text TextOf(const ManageRow& row) override;

 private:
  // Notes that were deleted together, and where they were.
  struct Deleted {
    ManageView view;
    std::vector<Text> ids;
  };

  bool IsAgreed(ManageAction action, ManageView view, std::size_t count);
  std::size_t Do(ManageAction action, ManageView view, const std::vector<Text>& ids);
  void ShowNotes(const std::vector<Text>& ids);
  void ShowStacks(const std::vector<Text>& ids);
  std::size_t Wake(const std::vector<Text>& ids);
  std::size_t Delete(ManageView view, const std::vector<Text>& ids);
  std::size_t CloseOpen(const std::vector<Text>& ids);
  void CloseWaiting(ManageView view, const std::vector<Text>& ids);
  std::size_t Undo();
  void Remember(Deleted step);

  const Resources& resources_;
  const Clock& clock_;
  Options& options_;
  NoteDesk& desk_;
  OpenNotes& notes_;
  OpenStacks& stacks_;
  SleepingNotes& sleeping_;
  NoteContents& contents_;
  ProgramSaving& saving_;
  const ProgramWindow& window_;
  const ProgramState& state_;
  BManageDlg dialog_;
  std::vector<Deleted> deleted_;  // the latest last
};

}  // namespace jotlets
