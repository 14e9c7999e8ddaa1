#include "friends/friend_merging.h"

#include <algorithm>

#include "friends/friend_editing.h"

namespace jotlets {
namespace {

std::size_t FindTyped(const FriendList& list, const FriendEntry& wanted) {
  const auto found = std::find_if(list.entries.begin(), list.entries.end(), [&wanted](const FriendEntry& e) {
    return e.isGroup == wanted.isGroup && !e.IsSeparator() && e.name == wanted.name;
  });
  return found == list.entries.end() ? kNoFriend : static_cast<std::size_t>(found - list.entries.begin());
}

// The friend under his name, or else under one with a number: nothing that is known of him may be lost.
FriendEntry WithFreeName(const FriendList& list, FriendEntry entry) {
  const Text name = entry.name;
  for (std::int64_t number = 2;; ++number) {
    const std::size_t at = FindTyped(list, entry);
    if (at == kNoFriend) return entry;
    const FriendEntry& known = list.entries[at];
    if (known.address == entry.address && known.email == entry.email && known.extra == entry.extra)
      return entry;
    entry.name = name + u" " + IntText(number);
  }
}

// As the last member of the group at `group`, or at the end of the list.
std::size_t Append(FriendList& list, FriendEntry entry, std::size_t group) {
  const std::size_t at = group == kNoFriend ? list.entries.size() : EndOfGroup(list, group);
  entry.level = group == kNoFriend ? 1 : list.entries[group].level + 1;
  entry.isHome = entry.isHome && HomeGroup(list) == kNoFriend;
  list.entries.insert(list.entries.begin() + static_cast<std::ptrdiff_t>(at), std::move(entry));
  return at;
}

}  // namespace

std::size_t MergeFriends(FriendList& list, const FriendList& older) {
  if (list.lastUpdate.empty()) list.lastUpdate = older.lastUpdate;
  for (std::size_t slot = 0; slot < kFavouriteSlots; ++slot)
    if (list.favourites[slot].empty()) list.favourites[slot] = older.favourites[slot];
  const std::size_t before = list.entries.size();
  // By their names, since indices move: the groups around the entry that is looked at.
  std::vector<FriendEntry> around;
  for (const FriendEntry& entry : older.entries) {
    around.resize(std::min(around.size(), static_cast<std::size_t>(std::max(entry.level, 1) - 1)));
    if (entry.isGroup) around.push_back(entry);
    // Separators part what stands around them, which is not the same in both.
    if (entry.IsSeparator() && before != 0) continue;
    const FriendEntry added = entry.IsFriend() ? WithFreeName(list, entry) : entry;
    if (!entry.IsSeparator() && FindTyped(list, added) != kNoFriend) continue;
    const std::size_t depth = around.size() - (entry.isGroup ? 1 : 0);
    Append(list, added, depth == 0 ? kNoFriend : FindTyped(list, around[depth - 1]));
  }
  return list.entries.size() - before;
}

}  // namespace jotlets
