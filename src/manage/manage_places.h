// The rows of a list of so many stored notes that only those near what is seen are at hand: which they are by
// their places, which are still to be fetched, and what becomes of them when notes change.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "manage/manage_row.h"
#include "store/stored_sorter.h"

namespace jotlets {

class ManagePlaces {
 public:
  explicit ManagePlaces(ManageTexts& texts) : texts_(texts) {}
  void Clear();

  /// The other notes among the stored ones are these now. What is to be told of them to who sorts all.
  std::vector<ListedNote> SetListed(std::span<const PlacedNote> notes, StoredBy by);

  /// These are the notes, in this order; false when that is shown already. None are known yet where there is
  /// no listing.
  bool Show(std::shared_ptr<const StoredListing> listing);
  /// They are being sorted otherwise.
  void SetSorting(bool sorting) { sorting_ = sorting; }
  bool IsSorting() const { return sorting_; }
  /// Notes of the store have changed: their rows are fetched again, and stay as they were until then.
  void Forget(const StoredChanges& changes);

  std::size_t Size() const { return listing_ == nullptr ? 0 : listing_->keys->size(); }
  /// A row without an id where it has not been fetched.
  const ManageRow& At(std::size_t place) const;
  Text NameAt(std::size_t place) const;
  std::vector<std::size_t> PlacesOf(const std::vector<Text>& names) const;

  /// The notes that are to be fetched for the rows from `first` to before `last`, or, when these are there,
  /// for those around them; none while others are on their way.
  std::vector<std::int64_t> Want(std::size_t first, std::size_t last);
  /// What has come of those.
  void Put(const std::vector<std::int64_t>& keys, const std::vector<StoredNote>& notes);

  // See `ManageList`.
  void WantTexts(std::size_t first, std::size_t last);
  bool IsReading() const { return !toRead_.empty(); }
  void ReadOne();

 private:
  struct Fetched {
    ManageRow row;
    bool stale = false;
  };
  std::int64_t KeyAt(std::size_t place) const { return (*listing_->keys)[place]; }
  std::vector<std::int64_t> Missing(std::size_t first, std::size_t last) const;
  const ManageRow* Find(std::int64_t key) const;

  ManageTexts& texts_;
  std::shared_ptr<const StoredListing> listing_;
  std::unordered_map<std::int64_t, Fetched> fetched_;
  std::unordered_map<std::int64_t, ManageRow> listed_;  // by numbers below 0
  std::unordered_map<Text, std::int64_t> numbers_;      // of these, which they keep
  std::vector<std::int64_t> near_;                      // what is seen, and around it; ascending
  bool comes_ = false;
  bool sorting_ = false;
  std::vector<std::int64_t> toRead_;  // the next one last
};

}  // namespace jotlets
