// The user's friend list and the file that it is kept in.
#pragma once

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

  const FriendList& List() const { return list_; }

  /// Takes a list in the place of this one and writes it. A file that was damaged or could not be read is
  /// kept beside it first; while that fails, nothing is written. After a failure the list stays as it was.
  FileStatus Replace(FriendList list);

 private:
  Files& files_;
  const CodePage& ansi_;
  const Clock& clock_;
  Log& log_;
  Text path_;
  FriendList list_;
  bool keepOldFile_ = false;
};

}  // namespace jotlets
