// What the manage window asks of the program that opens it.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "manage/manage_actions.h"
#include "manage/manage_list.h"
#include "store/note_store.h"
#include "store/search_survey.h"

namespace jotlets {

class ManageOwner {
 public:
  virtual ~ManageOwner() = default;
  /// Puts the notes of a place into the list, of very many stored ones the newest; false when they are there
  /// already.
  virtual bool FillManageList(const ManagePlace& place, ManageList& list) = 0;
  virtual std::array<std::size_t, kManageViews> CountManaged() = 0;
  /// Does something with notes, after asking the user where that is right. The window may be gone when the
  /// call returns.
  virtual void DoManageAction(ManageAction action, ManageView view, const std::vector<Text>& ids) = 0;
  virtual const std::vector<StoredCategory>& Categories() = 0;
  /// How many notes there are in a place with stored ones, though the list shows only the newest of these; 0
  /// in any other view.
  virtual std::size_t CountStored(const ManagePlace& place) = 0;
  /// Asks for another name of a category. One that is there already takes in its notes. The new name, when it
  /// has got one.
  virtual std::optional<Text> RenameCategory(const Text& name) = 0;
  /// Asks where the notes are that hold the words; for none, ends that. `BManageDlg::ShowSurvey` gets each
  /// answer, and false says that none comes.
  virtual bool AskSurvey(SurveyQuestion question) = 0;
  virtual bool CanUndoManaged() const = 0;
  virtual Text ManagedTime(std::int32_t utc) = 0;
  /// The options that keep the look of the window have changed.
  virtual void OnManageSettings() = 0;
};

}  // namespace jotlets
