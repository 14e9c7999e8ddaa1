// The stored notes in an order: the list of their keys, made a little at a time beside whoever changes the
// store, and kept true when a few of them change. What they are sorted by lies in a file that goes with this.
#pragma once

#include <compare>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "store/stored_rows.h"

namespace jotlets {

enum class StoredBy : std::uint8_t { kTitle, kType, kCreated, kModified, kPlace };

struct StoredOrder {
  std::optional<Text> category;  // only these
  StoredBy by = StoredBy::kTitle;
  bool backwards = false;
  std::optional<Text> among;  // among other notes: what the store is called there
  friend bool operator==(const StoredOrder&, const StoredOrder&) = default;
};

/// What the place of a stored note is called.
Text PlaceName(const StoredOrder& order, TextView category);
/// What a note is sorted by, in natural order.
Text SortText(const JotletData& record, TextView place, StoredBy by);

/// Another note than a stored one that stands among them: a number below 0, which only it has, and what it
/// is sorted by.
struct ListedNote {
  std::int64_t key = 0;
  Text value;
  friend auto operator<=>(const ListedNote&, const ListedNote&) = default;
};

struct StoredListing {
  using Keys = std::vector<std::int64_t>;
  enum class State : std::uint8_t {
    kByAge,  // the listed ones, then the stored ones, the newest first, until they are sorted
    kSorted,
    kFailed,  // they could not be read: what there is stays
  };

  StoredOrder order;
  State state = State::kByAge;
  std::shared_ptr<const Keys> keys;
  std::map<Text, std::size_t> categories;  // how many notes each has
};

class StoredSorter {
 public:
  explicit StoredSorter(const Files& files) : store_(files) {}

  /// The store has this path.
  void SetPath(TextView path);
  /// Lets go of all files, and of the list.
  void Close();

  /// Begins to read all notes.
  void Begin(StoredOrder order, std::vector<ListedNote> listed);
  /// What is known is followed: these notes of the store changed, and the listed ones are these now.
  void Follow(const StoredChanges& changes, std::vector<ListedNote> listed);
  /// Goes on for a moment; false when nothing is left to do.
  bool Step();
  /// The list as far as it is known; another object after each change. Nothing before there is one.
  const std::shared_ptr<const StoredListing>& Listing() const { return listing_; }

 private:
  enum class Phase : std::uint8_t { kDone, kPlaces, kNotes, kSort, kFollow, kRecount };

  bool OpenScratch();
  bool Fail();
  bool StepPlaces();
  bool EndPlaces();
  bool StepNotes();
  bool StepSort();
  bool StepFollow();
  void Publish(StoredListing::State state, std::shared_ptr<const StoredListing::Keys> keys);
  void PublishKeys(StoredListing::State state, StoredListing::Keys keys);
  void Keep(const ListedNote& note);
  bool Precedes(std::int64_t kept, const ListedNote& note);
  StoredListing::Keys Without(std::vector<std::int64_t> gone) const;
  StoredListing::Keys Merged(StoredListing::Keys keys, std::vector<ListedNote> added);
  bool Belongs(const StoredNote& note) const { return !order_.category || note.category == *order_.category; }

  StoreReader store_;
  Database scratch_;
  Statement put_;
  Statement precedes_;
  StoredOrder order_;
  std::vector<ListedNote> listed_;
  std::vector<ListedNote> newListed_;
  StoredChanges pending_;
  Phase phase_ = Phase::kDone;
  bool shows_ = false;  // what is seen already stays until it is sorted
  StoredPlace lastPlace_;
  std::int64_t lastKey_ = 0;
  StoredListing::Keys keys_;
  std::map<Text, std::size_t> counting_;
  std::map<Text, std::size_t> counts_;
  bool recounts_ = false;
  std::shared_ptr<const StoredListing> listing_;
};

}  // namespace jotlets
