// The store as those see it who read its file: the one that changes it, and the search beside it.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "base/files.h"
#include "data/jotlet_data.h"
#include "store/database.h"

namespace jotlets {

/// Commands name a stored note by a number of 32 bits.
inline constexpr std::int64_t kLargestStoredKey = INT32_MAX;

/// Parts of the flags of a row.
inline constexpr std::int64_t kStoredImage = 1;
inline constexpr std::int64_t kStoredLeaving = 2;

struct StoredNote {
  std::int64_t key = 0;
  Text category;
  JotletData record;
  bool leaving = false;  // on its way to the desktop: it counts as stored only if no list has it
};

/// Where a note is in the store.
struct StoredPlace {
  Text category;
  std::int64_t key = 0;
};

/// Which notes of the store came, went or were changed.
struct StoredChanges {
  /// Of more than these everything is read anew.
  static constexpr std::size_t kMaximum = 64;

  std::vector<std::int64_t> keys;  // ascending, each once
  bool many = false;               // others too

  void Add(std::int64_t key);
  void Add(const StoredChanges& others);
  bool IsEmpty() const { return keys.empty() && !many; }
};

/// How the rows are asked for that `StoredNoteAt` reads; conditions go behind it.
inline constexpr const char* kSelectStored = "SELECT key, category, flags, record, text FROM jotlets ";
StoredNote StoredNoteAt(const Statement& row);

/// What a database that could be opened turns out to be.
enum class StoreForm : std::uint8_t {
  kStore,
  kNewer,    // of a newer version: its notes are left alone
  kOther,    // no store
  kUnknown,  // it cannot be read now
};
StoreForm FormOfStore(Database& database);

/// Makes an empty store of an empty database.
bool MakeStoreForm(Database& database);

/// A stored note by its content file.
struct StoredName {
  std::int64_t key = 0;
  Text id;  // folded
  bool isImage = false;
};

/// Reads the store's file beside whoever changes it. Everything it answers is nothing when the file could not
/// be read, which says nothing about its notes. A store of a newer version is one without notes, as nobody
/// here can fetch them.
class StoreReader {
 public:
  explicit StoreReader(const Files& files) : files_(files) {}

  /// The file has this path; it is opened when it is read, and left open.
  void SetPath(TextView path);
  /// Lets go of the file.
  void Close() { database_.Close(); }

  using Notes = std::vector<StoredNote>;
  /// The notes with the next keys after `key`, at most `maximum`.
  std::optional<Notes> After(std::int64_t key, std::int64_t maximum);
  /// The same of a category.
  std::optional<Notes> After(std::int64_t key, std::int64_t maximum, TextView category);
  /// Of the next notes after `key`, at most `maximum`, no more than their names.
  std::optional<std::vector<StoredName>> NamesAfter(std::int64_t key, std::int64_t maximum);
  /// The one note with this key, or none.
  std::optional<Notes> At(std::int64_t key);
  /// The next places after one, by category and key, at most `maximum`, without looking at the notes.
  std::optional<std::vector<StoredPlace>> PlacesAfter(const StoredPlace& place, std::int64_t maximum);
  /// Why something could not be read.
  const Text& Fault() const { return fault_; }
  /// The file is broken, as far as it has been read.
  bool IsDamaged() const { return damaged_; }

 private:
  enum class Access { kOpen, kNothingThere, kFails };
  Access Open();
  std::optional<Notes> Read(const char* condition, const std::function<void(Statement&)>& bind);
  void Fail(DatabaseResult result);

  const Files& files_;
  Text path_;
  Database database_;
  Text fault_;
  bool damaged_ = false;
};

}  // namespace jotlets
