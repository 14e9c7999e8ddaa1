// The stored notes as the manage window has them: all of a few, and of very many those that are seen.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "manage/manage_list.h"
#include "manage/win/manage_owner.h"
#include "store/note_store.h"
#include "store/stored_browser.h"
#include "ui/resources.h"

namespace jotlets {

class ManagedStore {
 public:
  ManagedStore(const Resources& resources, NoteStore& store, StoredBrowser& browser)
      : resources_(resources), store_(store), browser_(browser) {}

  /// Puts a category, or all stored notes, into the list; false when they are there already.
  bool Fill(const std::optional<Text>& category, ManageList& list);
  /// The newest of all, and what the search has found, among other notes.
  void AddNewest(std::vector<PlacedNote>& notes);
  /// Whether a place has too many stored notes to have all of them at hand.
  bool HasMany(const ManagePlace& place);
  /// Puts these by their places into the list, among other notes in the view of all.
  bool FillByPlace(const ManagePlace& place, const std::vector<PlacedNote>& listed, ManageList& list);

  std::vector<ManageCategory> Categories();
  /// Nothing before they are counted.
  std::optional<std::size_t> Count(const std::optional<Text>& category);

  /// What the search has found; too old to be listed otherwise, perhaps.
  void SetFound(const SearchSurvey& survey);
  /// Nothing is searched any more.
  void ForgetFound();

  StoredBrowser& Browser() { return browser_; }
  /// Whether the list of notes by their places is another one since the last call.
  bool HasNews();
  void End();

  /// The ids of notes with these names in the list.
  std::vector<Text> IdsOf(const std::vector<Text>& names);

 private:
  void Follow();
  Text Name() const;

  const Resources& resources_;
  NoteStore& store_;
  StoredBrowser& browser_;
  // What was read of the store, at these versions of it.
  std::vector<ManageCategory> categories_;
  std::uint64_t counted_ = 0;
  bool many_ = false;
  std::vector<StoredNote> newest_;
  std::uint64_t newestOf_ = 0;
  std::vector<StoredNote> found_;  // by the search
  std::uint64_t findings_ = 0;
  std::shared_ptr<const StoredListing> listing_;
  StoredChanges changes_;  // that the list has not heard of
};

}  // namespace jotlets
