// The notes that are kept off the desktop, in categories: their records in one database file, their contents
// in the content files where they always were. A note that is in the store is in no list.
#pragma once

#include <functional>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/files.h"
#include "base/log.h"
#include "store/category_looks.h"
#include "store/stored_rows.h"

namespace jotlets {

/// What has become of the store's file.
enum class StoreState : std::uint8_t {
  kNothingThere,  // there is none, and no note was stored
  kOpen,
  kUnusable,  // locked, of a newer version, or not to be written: it stays as it is
  kDamaged,
  kGone,  // notes were stored, but the file is not there
};

struct StoredCategory {
  Text name;
  std::size_t notes = 0;
};

/// The file is made when the first note is stored. As it is one file that is copied with the data folder, it
/// is whole by itself between two changes: it has no log beside it that a copy would miss.
class NoteStore {
 public:
  NoteStore(Files& files, Log& log) : files_(files), log_(log) {}

  /// The data folder is known. A store that is there is opened; one that is damaged is left as it is, for
  /// `StoreRescue`, and one that cannot be used too, which the log tells.
  StoreState Open(TextView dataFolder);
  void Close();
  /// Why the store that is there could not be opened, in words that follow its name; empty otherwise.
  const Text& Fault() const { return fault_; }
  /// Whether there is a store that notes can be taken from.
  bool IsOpen() const { return database_.IsOpen(); }

  /// Keeps a note under a category; its key, nothing when it could not be written.
  std::optional<std::int64_t> Put(const JotletData& record, TextView category);
  std::optional<StoredNote> Find(std::int64_t key);
  bool Has(TextView id);
  std::optional<std::int64_t> KeyOf(TextView id);

  /// A note is about to leave for the desktop: until it is removed, it counts as stored only if no list has
  /// it.
  bool MarkLeaving(std::int64_t key, bool leaving);
  bool Remove(std::int64_t key);
  /// What is changed from here on is written together, by `EndChange`: much sooner done than one by one. Who
  /// must know that a note is on the disk ends what others have begun.
  void BeginChange();
  /// False, and nothing is changed, when that could not be written, for others who ended it meanwhile or now;
  /// true where nothing was begun.
  bool EndChange();

  /// Of the notes that were about to leave when the program ended, those that are in a list belong there, and
  /// the others stay.
  void Settle(const std::function<bool(TextView id)>& isListed);

  /// The notes that were stored last, in a category or in any of them, the newest first.
  std::vector<StoredNote> Newest(const std::optional<Text>& category, std::size_t maximum);
  /// All categories by name, each with the number of its notes. There is none without a note.
  std::vector<StoredCategory> Categories();
  /// The names of all categories, without counting: soon done however many notes there are.
  std::vector<Text> CategoryNames();
  /// Whether there are more notes than `count`, in a category or in all; takes the longer the greater that
  /// is.
  bool HasMoreThan(std::size_t count, const std::optional<Text>& category);
  /// A note goes to another category; false when it is not there, or that could not be written.
  bool SetCategory(std::int64_t key, TextView category);
  /// A note goes on with another record, of the same id; false as above.
  bool SetRecord(std::int64_t key, const JotletData& record);
  /// Its notes go to the category `to`, which may be there already; false when nothing was changed.
  bool RenameCategory(TextView from, TextView to);
  /// How categories are marked; those that are not there any more among them.
  std::map<Text, CategoryLook> CategoryLooks() { return ReadCategoryLooks(database_); }
  /// Marks a category; false when that could not be written.
  bool SetCategoryLook(TextView category, const CategoryLook& look);
  /// A number that is another one after each change.
  std::uint64_t Version() const { return version_; }

  /// The keys of a category, the oldest first.
  std::vector<std::int64_t> KeysOf(TextView category);
  /// Moves the keys of the notes that came, went or were changed since the last call; none that others, who
  /// read the file, cannot see yet.
  std::unordered_set<std::int64_t> MoveChanges() {
    return changing_ ? std::unordered_set<std::int64_t>() : std::exchange(changes_, {});
  }

  /// The same for one who shows the notes: which came, went or were changed since the last call.
  StoredChanges MoveShownChanges();

 private:
  bool Provide();
  bool Prepare();
  void Tell(TextView what) const;
  void Refuse(Text why);
  bool Change(Statement& statement);
  std::vector<StoredNote> Select(Statement select, std::size_t maximum);

  Files& files_;
  Log& log_;
  Text path_;
  Text fault_;
  Database database_;
  std::uint64_t version_ = 0;
  bool changing_ = false;  // what is changed is written later, together
  bool lost_ = false;      // that could not be done
  std::unordered_set<std::int64_t> changes_;
  StoredChanges shownChanges_;
};

}  // namespace jotlets
