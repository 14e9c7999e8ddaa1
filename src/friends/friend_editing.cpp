#include "friends/friend_editing.h"

#include <algorithm>
#include <utility>

namespace jotlets {
namespace {

bool HoldsAny(TextView text, TextView units) {
  return text.find_first_of(units) != TextView::npos || text.find(u'\0') != TextView::npos;
}

constexpr TextView kNeverHeld = u"{}\r\n";

std::ptrdiff_t Offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }

}  // namespace

FriendEntry Trimmed(FriendEntry entry) {
  for (Text* text : {&entry.name, &entry.address, &entry.email}) *text = Text(TrimBlanks(*text));
  return entry;
}

FriendRefusal CheckEntry(const FriendList& list, const FriendEntry& wanted, std::size_t at) {
  const FriendEntry entry = Trimmed(wanted);
  if (entry.IsSeparator()) return FriendRefusal::kNameNotHeld;
  if (entry.name.empty()) return FriendRefusal::kNameMissing;
  if (HoldsAny(entry.name, kNeverHeld)) return FriendRefusal::kNameNotHeld;
  if (!entry.isGroup && HoldsAny(entry.name, u"=")) return FriendRefusal::kNameNotHeld;
  for (const Text* text : {&entry.address, &entry.email}) {
    if (HoldsAny(*text, kNeverHeld) || HoldsAny(*text, u"|")) return FriendRefusal::kAddressNotHeld;
  }
  for (std::size_t i = 0; i < list.entries.size(); ++i) {
    const FriendEntry& other = list.entries[i];
    if (i == at || other.isGroup != entry.isGroup || other.name != entry.name) continue;
    return entry.isGroup ? FriendRefusal::kGroupExists : FriendRefusal::kFriendExists;
  }
  return FriendRefusal::kAccepted;
}

std::size_t InsertEntry(FriendList& list, FriendEntry entry, std::size_t selected) {
  std::size_t at = list.entries.size();
  entry.level = 1;
  if (selected < list.entries.size()) {
    const FriendEntry& near = list.entries[selected];
    at = EndOfGroup(list, selected);
    entry.level = near.level + (near.isGroup ? 1 : 0);
  }
  list.entries.insert(list.entries.begin() + Offset(at), std::move(entry));
  return at;
}

void ChangeEntry(FriendList& list, std::size_t at, FriendEntry entry) {
  FriendEntry& old = list.entries[at];
  entry.level = old.level;
  if (old.IsFriend()) std::replace(list.favourites.begin(), list.favourites.end(), old.name, entry.name);
  old = std::move(entry);
}

void RemoveEntry(FriendList& list, std::size_t at) {
  const std::size_t end = EndOfGroup(list, at);
  for (std::size_t i = at; i < end; ++i) {
    const FriendEntry& gone = list.entries[i];
    if (gone.IsFriend()) std::replace(list.favourites.begin(), list.favourites.end(), gone.name, Text());
  }
  list.entries.erase(list.entries.begin() + Offset(at), list.entries.begin() + Offset(end));
}

std::size_t MoveEntry(FriendList& list, std::size_t at, std::size_t target, DropPlace place) {
  const std::size_t end = EndOfGroup(list, at);
  if (target != kNoFriend && target >= at && target < end) return at;
  std::size_t to = list.entries.size();
  std::int32_t level = 1;
  if (target != kNoFriend) {
    const FriendEntry& near = list.entries[target];
    to = place == DropPlace::kBefore ? target : EndOfGroup(list, target);
    level = near.level + (place == DropPlace::kInto && near.isGroup ? 1 : 0);
  }
  const std::int32_t deeper = level - list.entries[at].level;
  for (std::size_t i = at; i < end; ++i) list.entries[i].level += deeper;
  const auto first = list.entries.begin() + Offset(at);
  const auto last = list.entries.begin() + Offset(end);
  const auto goal = list.entries.begin() + Offset(to);
  if (to > at) {
    std::rotate(first, last, goal);
    return to - (end - at);
  }
  std::rotate(goal, first, last);
  return to;
}

DropPlace DropPlaceAt(int offset, int height, bool onGroup) {
  const int edge = onGroup ? height / 4 : height / 2;
  if (offset < edge) return DropPlace::kBefore;
  return onGroup && offset < height - edge ? DropPlace::kInto : DropPlace::kBehind;
}

std::size_t GroupOf(const FriendList& list, std::size_t at) {
  const std::int32_t level = list.entries[at].level;
  for (std::size_t i = at; i-- > 0;) {
    if (list.entries[i].level < level) return i;
  }
  return kNoFriend;
}

std::size_t StepEntry(FriendList& list, std::size_t at, MoveStep step) {
  const std::int32_t level = list.entries[at].level;
  const std::size_t group = GroupOf(list, at);
  // The one before it among those of its group.
  std::size_t before = kNoFriend;
  for (std::size_t i = at; i-- > (group == kNoFriend ? 0 : group + 1) && before == kNoFriend;) {
    if (list.entries[i].level == level) before = i;
  }
  switch (step) {
    case MoveStep::kUp: return before == kNoFriend ? at : MoveEntry(list, at, before, DropPlace::kBefore);
    case MoveStep::kIn:
      if (before == kNoFriend || !list.entries[before].isGroup) return at;
      return MoveEntry(list, at, before, DropPlace::kInto);
    case MoveStep::kOut: return group == kNoFriend ? at : MoveEntry(list, at, group, DropPlace::kBehind);
    case MoveStep::kDown: break;
  }
  const std::size_t next = EndOfGroup(list, at);
  const bool last = next >= list.entries.size() || list.entries[next].level < level;
  return last ? at : MoveEntry(list, at, next, DropPlace::kBehind);
}

void SortGroup(FriendList& list, std::size_t at) {
  const bool all = at == kNoFriend;
  const std::size_t first = all ? 0 : at + 1;
  const std::size_t last = all ? list.entries.size() : EndOfGroup(list, at);
  // Each direct member with what it holds.
  struct Member {
    std::size_t begin;
    std::size_t end;
    Text folded;
  };
  std::vector<Member> members;
  std::vector<FriendEntry> sorted;
  const auto take = [&] {
    std::stable_sort(members.begin(), members.end(),
                     [](const Member& a, const Member& b) { return a.folded < b.folded; });
    for (const Member& member : members) {
      for (std::size_t i = member.begin; i < member.end; ++i) sorted.push_back(list.entries[i]);
    }
    members.clear();
  };
  for (std::size_t i = first; i < last;) {
    const std::size_t end = EndOfGroup(list, i);
    if (list.entries[i].IsSeparator()) {
      take();
      sorted.push_back(list.entries[i]);
    } else {
      members.push_back({i, end, FoldCase(list.entries[i].name)});
    }
    i = end;
  }
  take();
  std::move(sorted.begin(), sorted.end(), list.entries.begin() + Offset(first));
}

void SetHomeGroup(FriendList& list, std::size_t at) {
  for (std::size_t i = 0; i < list.entries.size(); ++i) {
    list.entries[i].isHome = i == at && list.entries[i].isGroup;
  }
}

}  // namespace jotlets
