// The friends file "friends.ini" and the [Friends] section of older data files: text to list and back.
#pragma once

#include "base/files.h"
#include "base/log.h"
#include "friends/friend_list.h"

namespace jotlets {

/// Takes the lines of a [Friends] section one at a time. Any lines give a list: what is no entry is passed
/// over, a block that is not closed is closed by the end, and entries behind a brace too many are kept.
class FriendReader {
 public:
  /// One line without its line break.
  void LoadFriendLine(TextView line);
  /// What has been read so far.
  const FriendList& List() const { return list_; }
  /// Whether a line was passed over that says something: the list alone would not give it back.
  bool PassedOver() const { return passedOver_; }

 private:
  enum class Place { kBefore, kInside, kBehind };
  bool ParseSetting(TextView line);
  void ParseEntry(TextView line);
  void Close();

  FriendList list_;
  Place place_ = Place::kBefore;
  std::int32_t level_ = 1;
  std::size_t home_ = kNoFriend;
  bool passedOver_ = false;
};

/// The list in a whole text; `passedOver`, when given, tells `FriendReader::PassedOver`.
FriendList ParseFriends(TextView text, bool* passedOver = nullptr);

/// The text of the file. What its form cannot hold is replaced, so that it cannot break other entries; see
/// `FriendRefusal`, which keeps such texts out.
Text ComposeFriends(const FriendList& list);

/// Writes the file as a whole: after any failure the old one stands.
FileStatus SaveFriends(Files& files, Log& log, TextView path, const FriendList& list);

}  // namespace jotlets
