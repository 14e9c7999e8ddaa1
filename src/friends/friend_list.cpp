#include "friends/friend_list.h"

#include <algorithm>

namespace jotlets {
namespace {

template <typename Wanted>
std::size_t FindEntry(const FriendList& list, Wanted wanted) {
  const auto found = std::find_if(list.entries.begin(), list.entries.end(), wanted);
  return found == list.entries.end() ? kNoFriend : static_cast<std::size_t>(found - list.entries.begin());
}

}  // namespace

std::size_t EndOfGroup(const FriendList& list, std::size_t at) {
  std::size_t end = at + 1;
  if (!list.entries[at].isGroup) return end;
  while (end < list.entries.size() && list.entries[end].level > list.entries[at].level) ++end;
  return end;
}

std::size_t FindFriend(const FriendList& list, TextView name) {
  const std::size_t typed =
      FindEntry(list, [name](const FriendEntry& e) { return e.IsFriend() && e.name == name; });
  if (typed != kNoFriend) return typed;
  return FindEntry(list,
                   [name](const FriendEntry& e) { return e.IsFriend() && EqualIgnoreCase(e.name, name); });
}

std::size_t FindFriendByAddress(const FriendList& list, TextView address) {
  if (address.empty()) return kNoFriend;
  return FindEntry(
      list, [address](const FriendEntry& e) { return e.IsFriend() && EqualIgnoreCase(e.address, address); });
}

std::size_t HomeGroup(const FriendList& list) {
  return FindEntry(list, [](const FriendEntry& e) { return e.isHome; });
}

std::size_t CountFriends(const FriendList& list) {
  return static_cast<std::size_t>(std::count_if(list.entries.begin(), list.entries.end(),
                                                [](const FriendEntry& e) { return e.IsFriend(); }));
}

void CorrectLevels(FriendList& list) {
  std::int32_t deepest = 1;
  for (FriendEntry& entry : list.entries) {
    entry.level = std::clamp(entry.level, 1, deepest);
    deepest = entry.level + (entry.isGroup ? 1 : 0);
  }
}

}  // namespace jotlets
