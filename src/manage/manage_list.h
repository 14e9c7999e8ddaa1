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
#include "store/note_store.h"

namespace jotlets {

enum class ManageColumn { kTitle, kType, kCreated, kModified, kNextWake };
inline constexpr std::size_t kManageColumns = 5;

/// Times are seconds since 1970 UTC, 0 for none.
struct ManageRow {
  enum class Type { kText, kPicture, kStack };

  Text id;           // of a stack its number
  Text title;        // as shown: the record's, or the beginning of the text once that is known
  std::string key;   // the title folded, in UTF-8, for sorting
  std::string more;  // what else is searched beside the text, likewise
  Type type = Type::kText;
  Colour colour;  // of its paper
  bool attached = false;
  bool untitled = false;  // `title` comes from the text
  bool unsaved = false;   // the text may change without notice
  std::int32_t created = 0;
  std::int32_t modified = 0;
  std::int32_t nextWake = 0;
  Text category;  // of a stored note; among all notes, what its place is called
  // How the text goes on below the title, once it is read.
  enum class Snippet : std::uint8_t { kUnknown, kWanted, kRead } known = Snippet::kUnknown;
  Text snippet;
};

/// What the search looks at; the sum of these is what the option "ManageWindowSearchWhat" holds.
enum ManageSearch : std::int32_t {
  kSearchTitles = 1,
  kSearchTexts = 2,
  kSearchUserStrings = 4,
  kSearchSources = 8,
};

/// Where the texts of notes come from.
class NoteTexts {
 public:
  virtual ~NoteTexts() = default;
  /// The plain text of the note of a row, empty when it has none or none can be had. Only as much of a very
  /// long one as is worth searching.
  virtual Text TextOf(const ManageRow& row) = 0;
};

/// The texts that have been read, in the form in which they are searched. Remembers no more than a limit;
/// what goes beyond is read again whenever it is asked for.
class ManageTexts {
 public:
  struct Known {
    std::int32_t modified = 0;
    std::string folded;
    Text beginning;  // as a title, when the note has none of its own
    Text snippet;
  };

  explicit ManageTexts(NoteTexts& source, std::size_t mostBytes = std::size_t{96} << 20)
      : source_(source), mostBytes_(mostBytes) {}

  /// What is known of the text of a row as it is now; nullptr when it has to be read.
  const Known* Find(const ManageRow& row) const;
  /// Reads it. Good until the next call.
  const Known& Read(const ManageRow& row);
  void Clear();

 private:
  NoteTexts& source_;
  std::size_t mostBytes_;
  std::size_t bytes_ = 0;
  std::unordered_map<Text, Known> known_;  // by folded id
  Known passing_;
};

/// One of all notes, and what the place is called where it is.
struct PlacedNote {
  const JotletData* record = nullptr;
  Text place;
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
  explicit ManageList(ManageTexts& texts) : texts_(texts) {}

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

  /// Shows the rows that hold every word of `words`, without regard to case, somewhere in what is searched (a
  /// sum of `ManageSearch`); all rows when there is no word.
  void Search(TextView words, std::int32_t what);

  /// The notes with these folded ids hold what is searched as well: whoever knows has other ways to tell.
  /// True when other rows are shown than before.
  bool SetFound(std::unordered_set<Text> ids);

  /// Sorts by a column. Rows that are alike in it keep the order that they had.
  void SortBy(ManageColumn column, bool backwards);

  /// Whether texts are to be read yet, for the search or for the titles of notes that have none.
  bool IsReading() const { return nextToRead_ < toRead_.size(); }
  bool IsSearching() const { return IsReading() && !words_.empty(); }
  /// Has the texts of the rows shown from `first` to before `last` read before all others: their beginnings
  /// are to be seen.
  void WantTexts(std::size_t first, std::size_t last);
  /// Reads one of them. What that brings to light is shown after `Settle`.
  void ReadOne();
  /// True when other rows are shown, or rows in another order, than before.
  bool Settle();

  std::size_t Size() const { return shown_.size(); }
  std::size_t Total() const { return rows_.size(); }
  const ManageRow& At(std::size_t place) const { return rows_[shown_[place]]; }
  /// The places of the rows with these ids among those shown, ascending.
  std::vector<std::size_t> PlacesOf(const std::vector<Text>& ids) const;

 private:
  enum class Match : std::uint8_t { kNo, kYes, kUnknown };
  struct SortKey {
    ManageColumn column = ManageColumn::kTitle;
    bool backwards = false;
  };

  void SetRows(std::vector<ManageRow> rows);
  Match MatchKeys(const ManageRow& row) const;
  Match MatchText(const ManageRow& row, const std::string& text) const;
  Match MatchFully(const ManageRow& row) const;
  bool Holds(const ManageRow& row, const std::string& word) const;
  void ApplyText(ManageRow& row, const ManageTexts::Known& known);
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
};

}  // namespace jotlets
