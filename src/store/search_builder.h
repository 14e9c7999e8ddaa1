// Makes the index true: of all notes at the start, step by step, and of what has changed since. It reads the
// store with a connection of its own, a few notes at a time, so that nobody waits for it.
#pragma once

#include <atomic>
#include <chrono>
#include <unordered_set>

#include "base/files.h"
#include "store/search_news.h"
#include "store/stored_rows.h"

namespace jotlets {

class SearchBuilder {
 public:
  /// As soon as `stops`, what is being done ends after the next note: what is left is not in the index then.
  SearchBuilder(const Files& files, SearchIndex& index, const std::atomic<bool>& stops)
      : files_(files), index_(index), stops_(stops), store_(files) {}

  /// Begins to compare the index with all notes: these, and those of the store in the data folder.
  void Begin(TextView dataFolder, std::vector<SearchEntry> notes);
  /// Goes on for a moment; false when all is done, or the index is damaged.
  bool Step();
  /// Lets go of the store's file.
  void Close() { store_.Close(); }
  /// Takes news in, which count more than what is still to be compared. False when not all of them could be.
  bool Apply(const SearchNews& news);
  bool StoreIsDamaged() const { return store_.IsDamaged(); }
  /// Why the index does not hold all that it has been told of since the beginning; empty while it does.
  const Text& Fault() const { return fault_; }

 private:
  bool StepListed();
  bool StepStored();
  bool StepGone();
  void BeginWriting();
  void Check(bool written);
  bool EndWriting();
  bool GoesOn() const { return !stops_ && std::chrono::steady_clock::now() < until_; }
  bool AddNote(const SearchEntry& entry);
  bool AddStored(std::int64_t key);
  bool AddUnread(IndexedNote note);
  bool IsGone(const IndexedNote& note);
  bool WasTold(const Text& id) const { return told_.contains(FoldCase(id)); }
  bool WasListed(const Text& id) const { return listed_.contains(FoldCase(id)); }
  void FailToRead();

  const Files& files_;
  SearchIndex& index_;
  const std::atomic<bool>& stops_;
  Text folder_;
  StoreReader store_;
  std::vector<SearchEntry> notes_;
  std::unordered_set<Text> listed_;  // folded ids
  std::unordered_set<Text> told_;    // of these there have been news
  enum class Phase { kListed, kStored, kGone, kDone };
  Phase phase_ = Phase::kDone;
  std::size_t next_ = 0;
  std::int64_t lastKey_ = 0;
  Text lastId_;
  std::chrono::steady_clock::time_point until_;  // a step ends
  bool fine_ = true;                             // what is being written
  bool storeIsRead_ = true;
  Text fault_;
};

}  // namespace jotlets
