// Any text as a friends file. What was read once is written and read as it was, whatever is done to it.
#include "friends/friend_editing.h"
#include "friends/friends_file.h"
#include "fuzz.h"

namespace {

using namespace jotlets;

void CheckLevels(const FriendList& list) {
  FriendList corrected = list;
  CorrectLevels(corrected);
  Check(corrected == list);
}

void Edit(FriendList& list, unsigned command) {
  if (list.entries.empty()) return;
  const std::size_t count = list.entries.size();
  const std::size_t at = command / 8 % count;
  const std::size_t target = command / 5 % (count + 1);
  switch (command % 4) {
    case 0: RemoveEntry(list, at); break;
    case 1:
      MoveEntry(list, at, target == count ? kNoFriend : target, static_cast<DropPlace>(command / 64 % 3));
      break;
    case 2: SortGroup(list, target == count ? kNoFriend : target); break;
    default: InsertEntry(list, FriendEntry{u"n", {}, {}, command % 8 == 3}, at); break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 4 || size > 20'000) return 0;
  const std::string_view bytes = Bytes(data + 4, size - 4);
  FriendList list = ParseFriends((data[0] & 1) != 0 ? Units(bytes) : FromUtf8(bytes));
  CheckLevels(list);
  const FriendList again = ParseFriends(ComposeFriends(list));
  Check(again.entries.size() == list.entries.size());
  Check(ParseFriends(ComposeFriends(again)) == again);
  for (unsigned i = 0; i < 4; ++i) {
    Edit(list, data[i] * 3u + i);
    CheckLevels(list);
  }
  Check(ParseFriends(ComposeFriends(list)).entries.size() == list.entries.size());
  return 0;
}
