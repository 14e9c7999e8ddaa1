#include "desk/jotlet_lists.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace jotlets {

std::vector<JotletData> JotletLists::Take(DataFile file) {
  std::vector<JotletData> desktop;
  for (FiledJotlet& jotlet : file.jotlets) {
    if (jotlet.record.sleep.asleep) {
      sleeping.push_back(std::move(jotlet.record));
    } else {
      (jotlet.record.IsAttached() ? attached : desktop).push_back(std::move(jotlet.record));
    }
  }
  for (FiledJotlet& jotlet : file.deleted) deleted.push_back(std::move(jotlet.record));
  verbatim = std::move(file.verbatim);
  stacks = std::move(file.stacks);
  return desktop;
}

std::vector<JotletData> JotletLists::AddClosed(JotletData record, std::int32_t closedAt,
                                               std::int32_t keepDeleted) {
  record.deletedTime = closedAt;
  deleted.insert(deleted.begin(), std::move(record));
  const auto most = static_cast<std::size_t>(std::max(keepDeleted, 0));
  if (deleted.size() <= most) return {};
  const auto firstDropped = deleted.begin() + static_cast<std::ptrdiff_t>(most);
  std::vector<JotletData> dropped(std::make_move_iterator(firstDropped),
                                  std::make_move_iterator(deleted.end()));
  deleted.erase(firstDropped, deleted.end());
  return dropped;
}

std::vector<JotletData> JotletLists::TakeClosed(const std::vector<Text>& ids) {
  std::unordered_set<Text> wanted;
  for (const Text& id : ids) wanted.insert(FoldCase(id));
  const auto taken = std::stable_partition(deleted.begin(), deleted.end(), [&](const JotletData& record) {
    return !wanted.contains(FoldCase(record.id));
  });
  std::vector<JotletData> records(std::make_move_iterator(taken), std::make_move_iterator(deleted.end()));
  deleted.erase(taken, deleted.end());
  return records;
}

std::vector<NotesOfKind> JotletLists::ByKind(std::vector<const JotletData*> desktop) const {
  std::vector<NotesOfKind> kinds{
      {u"Desktop", std::move(desktop)}, {u"Attached", {}}, {u"Sleeping/recurring", {}}, {u"Closed", {}}};
  for (const JotletData& record : attached) kinds[1].notes.push_back(&record);
  for (const JotletData& record : sleeping) kinds[2].notes.push_back(&record);
  for (const JotletData& record : deleted) kinds[3].notes.push_back(&record);
  return kinds;
}

StackRecord* JotletLists::FindStack(std::int32_t number) {
  const auto at = std::find_if(stacks.begin(), stacks.end(),
                               [number](const StackRecord& stack) { return stack.number == number; });
  return at == stacks.end() ? nullptr : &*at;
}

const StackRecord* JotletLists::FindStack(std::int32_t number) const {
  return const_cast<JotletLists*>(this)->FindStack(number);
}

namespace {

// Hidden in a stack that is gone, it would come back where nobody finds it.
void TakeOut(JotletData& record) {
  record.stack = kNone;
  record.hidden = false;
}

}  // namespace

void JotletLists::LeaveStack(std::int32_t number) {
  for (auto* list : {&attached, &deleted}) {
    for (JotletData& record : *list) {
      if (record.stack == number) TakeOut(record);
    }
  }
  for (const JotletData& record : sleeping) {
    if (record.stack == number) TakeOut(*sleeping.FindToChange(record.id));
  }
}

bool JotletLists::Holds(TextView id) const {
  if (sleeping.Find(id) != nullptr) return true;
  for (const auto* list : {&attached, &deleted}) {
    if (std::any_of(list->begin(), list->end(),
                    [id](const JotletData& r) { return EqualIgnoreCase(r.id, id); })) {
      return true;
    }
  }
  return false;
}

namespace {

template <typename Records>
std::vector<Text> CollectIds(const Records& records) {
  std::vector<Text> ids;
  ids.reserve(records.size());
  for (const JotletData& record : records) ids.push_back(record.id);
  return ids;
}

}  // namespace

std::vector<Text> IdsOf(const std::vector<JotletData>& records) { return CollectIds(records); }

std::vector<Text> IdsOf(const SleepingList& records) { return CollectIds(records); }

}  // namespace jotlets
