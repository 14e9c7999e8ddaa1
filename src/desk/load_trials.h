// Which contents have ended the program while they were being loaded: they are not tried again, or it would
// end at every start.
#pragma once

#include <string_view>
#include <unordered_set>

#include "base/journal_file.h"
#include "data/journal_frames.h"

namespace jotlets {

/// A content stands in the file from before it is loaded until after. What stands there at the start of the
/// program, the load of which came to no end, stays; a content that was changed since is another one.
class LoadTrials {
 public:
  explicit LoadTrials(JournalFile& file) : file_(file) {}

  /// Takes over what the last run has left.
  void Open();
  bool IsEmpty() const { return failed_.empty(); }
  bool HasFailed(std::string_view content) const;
  void Begin(std::string_view content);
  void End();

 private:
  JournalFile& file_;
  std::unordered_set<Fingerprint> failed_;
  std::size_t kept_ = 0;  // bytes of the file
};

}  // namespace jotlets
