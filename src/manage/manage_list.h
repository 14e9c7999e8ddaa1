// The list that the manage window shows: the notes of one view as rows, sorted, and searched by title and
// text. Texts are read one at a time, so that whoever has a window to keep alive can stop in between.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/text.h"
#include "data/jotlet_data.h"
#include "data/stack_record.h"
#include "manage/manage_actions.h"
#include "manage/manage_columns.h"
#include "manage/manage_places.h"
#include "manage/manage_row.h"
#include "store/note_store.h"

namespace jotlets {

enum class ManageColumn { kTitle, kType, kCreated, kModified, kNextWake };

/// What the search looks at; the sum of these is what the option "ManageWindowSearchWhat" holds.
enum ManageSearch : std::int32_t {
  kSearchTitles = 1,
  kSearchTexts = 2,
  kSearchUserStrings = 4,
  kSearchSources = 8,
};

/// Which notes of the store, and at which of its versions.
struct StoredState {
  std::uint64_t version = 0;
  std::optional<Text> category;
  std::uint64_t found = 0;  // and which of those that a search has found
  friend bool operator==(const StoredState&, const StoredState&) = default;
};

class ManageList {
 public:
  explicit ManageList(ManageTexts& texts) : texts_(texts), places_(texts) {}

  /// The notes of the view are (now) these; `unsaved` tells of a note whether its content differs from its
  /// file. False when that is what the list shows already.
  bool SetNotes(std::span<const JotletData* const> notes, bool (*unsaved)(const JotletData&, void*) = nullptr,
                void* context = nullptr);
  /// The same for notes of several places.
  bool SetAll(std::span<const PlacedNote> notes, bool (*unsaved)(const JotletData&, void*) = nullptr,
              void* context = nullptr);
  /// Stored ones, with their categories; `state` is what the store was in when they were read.
  bool SetStored(std::span<const StoredNote> notes, StoredState state);
  /// Whether these are what the list shows already.
  bool ShowsStored(const StoredState& state) const { return stored_ == state; }
  bool SetStacks(std::span<const StackRecord> stacks);
  /// Shows very many stored notes by their places instead, with those that `ByPlace` has been given among
  /// them; false when it shows them already. They are not searched.
  bool ShowByPlace(const std::shared_ptr<const StoredListing>& listing);
  bool IsByPlace() const { return byPlace_; }
  ManagePlaces& ByPlace() { return places_; }

  /// Shows the rows that hold every word of `words`, without regard to case, somewhere in what is searched (a
  /// sum of `ManageSearch`); all rows when there is no word.
  void Search(TextView words, std::int32_t what);

  /// The notes with these folded ids hold what is searched as well: whoever knows has other ways to tell.
  /// True when other rows are shown than before.
  bool SetFound(std::unordered_set<Text> ids);

  /// Sorts by a column. Rows that are alike in it keep the order that they had.
  void SortBy(ManageColumn column, bool backwards);
  struct SortKey {
    ManageColumn column = ManageColumn::kTitle;
    bool backwards = false;
  };
  SortKey Sorted() const { return sorting_.empty() ? SortKey() : sorting_.front(); }
  /// Whether words are looked for.
  bool IsSearched() const { return !words_.empty(); }

  /// Whether texts are to be read yet, for the search or for the titles of notes that have none.
  bool IsReading() const { return byPlace_ ? places_.IsReading() : nextToRead_ < toRead_.size(); }
  bool IsSearching() const { return IsReading() && !words_.empty(); }
  /// Has the texts of the rows shown from `first` to before `last` read before all others: their beginnings
  /// are to be seen.
  void WantTexts(std::size_t first, std::size_t last);
  /// Reads one of them. What that brings to light is shown after `Settle`.
  void ReadOne();
  /// True when other rows are shown, or rows in another order, than before.
  bool Settle();

  std::size_t Size() const { return byPlace_ ? places_.Size() : shown_.size(); }
  std::size_t Total() const { return byPlace_ ? places_.Size() : rows_.size(); }
  const ManageRow& At(std::size_t place) const { return byPlace_ ? places_.At(place) : rows_[shown_[place]]; }
  Text NameAt(std::size_t place) const;
  /// The places of the rows with these names among those shown, ascending.
  std::vector<std::size_t> PlacesOf(const std::vector<Text>& names) const;

 private:
  enum class Match : std::uint8_t { kNo, kYes, kUnknown };

  void SetRows(std::vector<ManageRow> rows);
  Match MatchKeys(const ManageRow& row) const;
  Match MatchText(const ManageRow& row, const std::string& text) const;
  Match MatchFully(const ManageRow& row) const;
  bool Holds(const ManageRow& row, const std::string& word) const;
  void FindUnread();
  bool Precedes(std::uint32_t a, std::uint32_t b) const;
  void Sort();

  ManageTexts& texts_;
  std::vector<ManageRow> rows_;
  std::optional<StoredState> stored_;
  std::vector<Match> matches_;
  std::vector<std::uint32_t> order_;  // of all rows
  std::vector<std::uint32_t> shown_;
  std::vector<std::uint32_t> toRead_;
  std::size_t nextToRead_ = 0;
  std::vector<SortKey> sorting_;  // the latest first
  std::string searched_;          // folded
  std::vector<std::string> words_;
  std::unordered_set<Text> found_;
  std::int32_t what_ = 0;
  bool titlesCame_ = false;
  ManagePlaces places_;  // instead of all rows, when
  bool byPlace_ = false;
};

}  // namespace jotlets
