// Makes a store anew from what is left of it.
#pragma once

#include <limits>
#include <vector>

#include "base/files.h"
#include "base/job.h"
#include "base/log.h"
#include "data/content_files.h"
#include "store/search_index.h"
#include "store/stored_rows.h"

namespace jotlets {

/// Whether stored notes have lost their file: there is none, or an empty one, but the search index knows of
/// them, or a rescue was about to put a new one in its place when the program ended.
bool StoreIsGone(const Files& files, TextView dataFolder);

/// Takes every note that can be read from the damaged file, with its key; then those that only the search
/// index knows of and whose content files are there; and, of a file that is damaged, the content files that
/// no note has named so far. Notes that do not come from the file itself are on their way to the desktop:
/// those that are in a list belong there (`NoteStore::Settle`). The damaged file is kept aside; nothing is
/// changed before the new one is whole, and a rescue that was killed begins again.
class StoreRescue final : public Job {
 public:
  /// `stamp` goes into the name of the damaged file, `category` is for notes of which none is known.
  StoreRescue(Files& files, Log& log, TextView dataFolder, TextView stamp, TextView category);
  ~StoreRescue() override = default;
  StoreRescue(const StoreRescue&) = delete;
  StoreRescue& operator=(const StoreRescue&) = delete;

  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override;
  /// How many notes the new store has.
  std::int64_t Saved() const { return counts_.saved; }

 private:
  enum class Phase { kBegin, kForward, kBackward, kBetween, kIndex, kList, kFiles, kEnd };

  bool Begin();
  bool ReadForward();
  bool ReadBackward();
  bool ReadBetween();
  bool ReadIndex();
  void ListFiles();
  bool PutOldAside();
  bool ReadFiles();
  bool End();
  State StepOnce();
  State Fail(Text reason);
  bool IsIn(TextView id);
  std::int64_t NextKey();
  bool Copy(const Statement& row);
  bool Add(std::int64_t key, TextView category, std::int64_t flags, const JotletData& record);
  bool Insert(std::int64_t key, TextView category, TextView id, std::int64_t flags, TextView line);

  Files& files_;
  Log& log_;
  const Text folder_;
  const Text path_;
  const Text stamp_;
  const Text category_;
  Phase phase_ = Phase::kBegin;
  bool damaged_ = false;  // there is a file, which may hold some
  Database old_;
  Database new_;
  Statement insert_;
  Statement isThere_;
  SearchIndex index_;
  struct Keys {
    std::int64_t last = std::numeric_limits<std::int64_t>::min();  // that was read forward
    std::int64_t next = 0;                                         // the first that was read backward
  };
  Keys keys_;
  Text lastId_;
  std::vector<Orphan> contents_;
  std::size_t content_ = 0;
  struct Counts {
    std::int64_t known = 0;  // notes in the index
    std::int64_t seen = 0;
    std::int64_t saved = 0;
    std::int64_t found = 0;  // of the saved ones, those that did not come from the file
  };
  Counts counts_;
  Text reason_;
};

}  // namespace jotlets
