// Makes the index true: of all notes at the start, step by step, and of what has changed since. It reads the
// store with a connection of its own, a few notes at a time, so that nobody waits for it.
#pragma once

#include <unordered_set>

#include "base/files.h"
#include "store/database.h"
#include "store/search_news.h"

namespace jotlets {

class SearchBuilder {
 public:
  SearchBuilder(const Files& files, SearchIndex& index) : files_(files), index_(index) {}

  /// Begins to compare the index with all notes: these, and those of the store in the data folder.
  void Begin(TextView dataFolder, std::vector<SearchEntry> notes);
  /// Goes on for a moment; false when all is done, or the index is damaged.
  bool Step();
  /// Lets go of the store's file.
  void Close() { store_.Close(); }
  /// Whether something could not be written since the beginning.
  bool HasFailed() const { return failed_; }
  /// Takes news in, which count more than what is still to be compared. False when the index fails.
  bool Apply(const SearchNews& news);

 private:
  bool StepListed();
  bool StepStored();
  bool StepGone();
  bool End();
  bool AddNote(const SearchEntry& entry);
  bool AddStored(std::int64_t key);
  std::optional<SearchEntry> StoredEntry(const Statement& row) const;
  Statement SelectStored(const char* condition);
  bool IsKnown(const IndexedNote& note) const;
  Text TextOf(const IndexedNote& note) const;

  const Files& files_;
  SearchIndex& index_;
  Text folder_;
  Database store_;
  std::vector<SearchEntry> notes_;
  std::unordered_set<Text> listed_;  // folded ids
  std::unordered_set<Text> told_;    // of these there have been news
  enum class Phase { kListed, kStored, kGone, kDone };
  Phase phase_ = Phase::kDone;
  std::size_t next_ = 0;
  std::int64_t lastKey_ = 0;
  Text lastId_;
  bool fine_ = true;  // what is being written
  bool failed_ = false;
};

}  // namespace jotlets
