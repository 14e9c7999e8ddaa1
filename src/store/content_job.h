// The content check, beside the user's work: which notes lack their content file, and which files belong to
// no note.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

#include "base/worker.h"
#include "data/content_files.h"
#include "store/stored_rows.h"

namespace jotlets {

/// All calls are made on one thread, after `wake` has been called on any.
class ContentJob {
 public:
  ContentJob(const Files& files, std::function<void()> wake)
      : files_(files), wake_(std::move(wake)), reader_(files) {}
  ~ContentJob() { Stop(); }
  ContentJob(const ContentJob&) = delete;
  ContentJob& operator=(const ContentJob&) = delete;

  struct Report {
    std::vector<Text> missing;    // what the log has to say
    std::vector<Orphan> orphans;  // none while the store could not be read: they may be its own
    std::vector<Text> leftovers;  // paths of what a kill left of files that were being written
  };

  /// Checks the files of this folder: `claims` are those of all notes but the stored ones, which come last.
  void Start(TextView dataFolder, std::vector<ContentClaim> claims);
  /// The files are let go of; what has been found is forgotten.
  void Stop();
  /// What has been found, once. Whatever has come since then is not in it.
  std::optional<Report> Finished();

 private:
  void Check(const Text& folder, const std::vector<ContentClaim>& claims);
  bool ClaimStored(ContentFiles& contents, Report& report);

  const Files& files_;
  std::function<void()> wake_;
  StoreReader reader_;  // of the thread
  std::atomic<bool> stops_ = false;
  std::mutex mutex_;
  std::optional<Report> report_;
  Worker worker_;  // goes first
};

}  // namespace jotlets
