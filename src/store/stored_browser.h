// Very many stored notes by their places, for a window: one thread keeps the list of their keys, another
// fetches the few that are seen, and nobody waits for either. They run while somebody looks.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "base/worker.h"
#include "store/stored_sorter.h"

namespace jotlets {

/// All calls are made on one thread, after `wake` has been called on any.
class StoredBrowser {
 public:
  StoredBrowser(const Files& files, std::function<void()> wake)
      : wake_(std::move(wake)), sorter_(files), reader_(files) {}
  ~StoredBrowser() { Stop(); }
  StoredBrowser(const StoredBrowser&) = delete;
  StoredBrowser& operator=(const StoredBrowser&) = delete;

  /// The store is in this folder, from now on.
  void Start(TextView dataFolder) { folder_ = dataFolder; }
  /// The files are let go of, and what is known is forgotten; until `Start`, nothing is read.
  void Stop();
  /// Nobody looks any more.
  void End();

  /// Wants all notes in an order, other ones among them, and to hear of it when that changes.
  void Ask(const StoredOrder& order, const std::vector<ListedNote>& listed);
  bool IsAsked() const { return order_.has_value(); }
  /// The store has changed.
  void Follow(const StoredChanges& changes);
  /// The list as it was last known: not yet in the order that was asked for, or nothing.
  std::shared_ptr<const StoredListing> Listing();

  struct Page {
    std::vector<std::int64_t> keys;  // that were asked for
    std::vector<StoredNote> notes;   // those of them that are there
  };
  /// Fetches notes. What was asked before is answered first.
  void Read(std::vector<std::int64_t> keys);
  /// What has been fetched since the last call.
  std::vector<Page> Pages();

 private:
  void Run();
  bool Sort();
  void Fetch(std::vector<std::int64_t> keys);

  std::function<void()> wake_;
  Text folder_;  // empty while it is stopped
  bool runs_ = false;
  std::optional<StoredOrder> order_;  // that was asked for last
  std::vector<ListedNote> listed_;
  StoredSorter sorter_;  // of one thread
  StoreReader reader_;   // of the other
  struct Told {
    std::shared_ptr<const StoredListing> listing;
    std::vector<Page> pages;
  };
  std::mutex mutex_;
  Told told_;
  Worker sorts_;
  Worker reads_;  // goes first
};

}  // namespace jotlets
