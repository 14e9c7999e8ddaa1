// The friend list: people on other machines, in groups, as one ordered list whose nesting is a level number.
// Nothing here knows of files or windows.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/text.h"

namespace jotlets {

/// The name of a separator.
inline constexpr TextView kSeparatorName = u"-";

struct FriendEntry {
  Text name;
  Text address;  // a dotted IPv4 address or a host name; empty for groups and separators
  Text email;
  bool isGroup = false;
  std::int32_t level = 1;  // 1 outside of all groups, in a group one more than the group
  Text extra;              // carried through unchanged
  bool isHome = false;     // the home group; at most one of the list is

  /// A friend who is called "-" is none as long as something else is known of him.
  bool IsSeparator() const {
    return !isGroup && name == kSeparatorName && address.empty() && email.empty() && extra.empty();
  }
  bool IsFriend() const { return !isGroup && !IsSeparator(); }
  friend bool operator==(const FriendEntry&, const FriendEntry&) = default;
};

inline constexpr std::size_t kFavouriteSlots = 10;
inline constexpr std::size_t kNoFriend = static_cast<std::size_t>(-1);

struct FriendList {
  std::vector<FriendEntry> entries;              // a group is followed by its members
  std::array<Text, kFavouriteSlots> favourites;  // names of friends
  Text lastUpdate;                               // when the list last came from the server
  friend bool operator==(const FriendList&, const FriendList&) = default;
};

/// The index behind the last member of the group at `at`; `at + 1` for what is no group and for an empty one.
std::size_t EndOfGroup(const FriendList& list, std::size_t at);

/// The index of a friend by name: as it is typed, or else without regard to case; `kNoFriend` for none.
std::size_t FindFriend(const FriendList& list, TextView name);
/// The index of the first friend with this address, without regard to case. An empty address is nobody's.
std::size_t FindFriendByAddress(const FriendList& list, TextView address);
/// The index of the home group.
std::size_t HomeGroup(const FriendList& list);
/// Friends alone, neither groups nor separators.
std::size_t CountFriends(const FriendList& list);

/// Brings every level into what nesting allows: at least 1, and deeper than the entry before only in a group.
void CorrectLevels(FriendList& list);

}  // namespace jotlets
