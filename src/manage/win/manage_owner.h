// What the manage window asks of the program that opens it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "manage/manage_actions.h"
#include "manage/manage_list.h"
#include "manage/undo_steps.h"
#include "store/note_store.h"
#include "store/search_survey.h"

namespace jotlets {

/// A category of the stored notes, and how many it has once they are counted.
struct ManageCategory {
  Text name;
  std::optional<std::size_t> notes;
  CategoryLook look;
};

class ManageOwner {
 public:
  virtual ~ManageOwner() = default;
  /// Puts the notes of a place into the list: very many stored ones by their places, and the newest of them
  /// when they are searched. False when they are there already. `BManageDlg::FollowStored` is called when
  /// more of them is known.
  virtual bool FillManageList(const ManagePlace& place, ManageList& list) = 0;
  /// Fetches notes that are to be seen; `BManageDlg::FollowStored` gets them.
  virtual void FetchStored(std::vector<std::int64_t> keys) = 0;
  /// Nothing for what has not been counted yet.
  virtual std::array<std::optional<std::size_t>, kManageViews> CountManaged() = 0;
  /// Does something with notes, by their names in the list, after asking the user where that is right. The
  /// window may be gone when the call returns.
  virtual void DoManageAction(ManageAction action, ManageView view, const std::vector<Text>& names) = 0;
  /// The same with notes of `from` that are dropped on another place of the window.
  virtual void DropManaged(ManageView from, const std::vector<Text>& names, const ManagePlace& to) = 0;
  /// With those that are dropped outside of it, on the desktop or on a stack there.
  virtual void DropManagedOut(ManageView from, const std::vector<Text>& names) = 0;
  virtual std::vector<ManageCategory> Categories() = 0;
  /// How many notes there are in a place with stored ones, though the list shows only the newest of these, 0
  /// in any other view; nothing before they are counted.
  virtual std::optional<std::size_t> CountStored(const ManagePlace& place) = 0;
  /// Asks for another name of a category. One that is there already takes in its notes. The new name, when it
  /// has got one.
  virtual std::optional<Text> RenameCategory(const Text& name) = 0;
  /// Marks a category with a colour and a sign.
  virtual void SetCategoryLook(const Text& name, const CategoryLook& look) = 0;
  /// Asks where the notes are that hold the words; for none, ends that. `BManageDlg::ShowSurvey` gets each
  /// answer, and false says that none comes.
  virtual bool AskSurvey(SurveyQuestion question) = 0;
  /// Why the stored notes cannot be had; empty when they can.
  virtual Text StoreFault() const = 0;
  /// What the latest step did that can be undone.
  virtual std::optional<UndoKind> LastManaged() const = 0;
  virtual Text ManagedTime(std::int32_t utc) = 0;
  /// The options that keep the look of the window have changed.
  virtual void OnManageSettings() = 0;
  /// The window goes.
  virtual void OnManageEnd() = 0;
};

}  // namespace jotlets
