// Changing the friend list: what the "Edit Friends" dialog does, without a dialog.
#pragma once

#include <cstdint>

#include "friends/friend_list.h"

namespace jotlets {

/// Why an entry cannot be as the user wants it.
enum class FriendRefusal {
  kAccepted,
  kNameMissing,
  kFriendExists,
  kGroupExists,
  kNameNotHeld,     // "=" in a friend's name, a brace or a line break in any, or a name like a separator
  kAddressNotHeld,  // "|", a brace or a line break in the address or the e-mail address
};

/// Checks an entry that is to stand at `at`, or to be new for `kNoFriend`. Names are taken with the blanks at
/// their ends cut off; see `Trimmed`.
FriendRefusal CheckEntry(const FriendList& list, const FriendEntry& entry, std::size_t at);

/// The entry without blanks at the ends of its texts, which the file would not keep.
FriendEntry Trimmed(FriendEntry entry);

/// Puts a new entry where the user expects it: as the last member of the selected group, else behind the
/// selected entry, else at the end. Its level is set. Returns its index.
std::size_t InsertEntry(FriendList& list, FriendEntry entry, std::size_t selected);

/// Puts `entry` in the place of the one at `at`, with its level and its members. Favourites follow a new
/// name.
void ChangeEntry(FriendList& list, std::size_t at, FriendEntry entry);

/// Removes an entry, a group with its members, and the favourites among them.
void RemoveEntry(FriendList& list, std::size_t at);

/// Where a dragged entry is dropped, seen from the entry under the mouse.
enum class DropPlace { kBefore, kBehind, kInto };

/// Moves an entry, a group with its members. "Behind" a group is behind its members, "into" a group is behind
/// its last member, and into anything else is behind it; a `target` of `kNoFriend` is the end of the list.
/// Returns the new index; the old one, and nothing has changed, for a move into itself.
std::size_t MoveEntry(FriendList& list, std::size_t at, std::size_t target, DropPlace place);

/// Where a drop at `offset` pixels below the top of a row of `height` pixels goes: the edges of a group stand
/// for before and behind it.
DropPlace DropPlaceAt(int offset, int height, bool onGroup);

/// Moves an entry by one place with the keyboard: up and down among those of its level, out behind its group,
/// or into the group right above it. Returns the new index.
enum class MoveStep { kUp, kDown, kOut, kIn };
std::size_t StepEntry(FriendList& list, std::size_t at, MoveStep step);

/// The group that the entry at `at` is a member of; `kNoFriend` for none.
std::size_t GroupOf(const FriendList& list, std::size_t at);

/// Sorts the members of the group at `at` by name without regard to case, groups with theirs; `kNoFriend`
/// sorts the outermost entries. Separators stay where they are, and only what lies between two is sorted.
void SortGroup(FriendList& list, std::size_t at);

/// Makes a group the home group; `kNoFriend`, and what is no group, leave none.
void SetHomeGroup(FriendList& list, std::size_t at);

}  // namespace jotlets
