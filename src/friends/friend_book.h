// The user's friend list and the file that it is kept in.
#pragma once

#include <span>

#include "base/clock.h"
#include "base/code_page.h"
#include "friends/friends_file.h"

namespace jotlets {

class FriendBook {
 public:
  FriendBook(Files& files, const CodePage& ansi, const Clock& clock, Log& log)
      : files_(files), ansi_(ansi), clock_(clock), log_(log) {}

  /// Reads "friends.ini" of a data folder; a missing one is an empty list.
  void Open(TextView dataFolder);
  /// Adds what the [Friends] lines of an older data file have and the list has not.
  void Merge(std::span<const Text> friendLines);

  const FriendList& List() const { return list_; }

  /// Takes a list in the place of this one and writes it. A file that was damaged or could not be read is
  /// kept beside it first; while that fails, nothing is written. After a failure the list stays as it was.
  FileStatus Replace(FriendList list);
  /// Writes the list as it is, under the same conditions.
  FileStatus Save() { return Replace(list_); }
  /// Tries again what `Save` or `Merge` has left to be written.
  void SaveIfDirty() {
    if (dirty_) Save();
  }

 private:
  Files& files_;
  const CodePage& ansi_;
  const Clock& clock_;
  Log& log_;
  Text path_;
  FriendList list_;
  bool keepOldFile_ = false;
  bool dirty_ = false;
};

}  // namespace jotlets
