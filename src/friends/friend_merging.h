// Bringing two friend lists together.
#pragma once

#include "friends/friend_list.h"

namespace jotlets {

/// Adds what `older` has and `list` has not, which stays as it is, and returns how many entries that were.
/// Friends and groups are the same by their names as typed; members go to the group of their group's name. A
/// friend of whom `older` knows something else is added under a name with a number. Favourites, the home
/// group and the date are taken where `list` has none. Adding the same again adds nothing.
std::size_t MergeFriends(FriendList& list, const FriendList& older);

}  // namespace jotlets
