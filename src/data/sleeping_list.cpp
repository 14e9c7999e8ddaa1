#include "data/sleeping_list.h"

#include <utility>

namespace jotlets {

void SleepingList::push_back(JotletData record) {
  ++version_;
  records_.push_back(std::move(record));
  byId_.try_emplace(FoldCase(records_.back().id), std::prev(records_.end()));
}

const JotletData* SleepingList::Find(TextView id) const {
  const auto found = byId_.find(FoldCase(id));
  return found == byId_.end() ? nullptr : &*found->second;
}

JotletData* SleepingList::FindToChange(TextView id) {
  ++version_;
  return const_cast<JotletData*>(std::as_const(*this).Find(id));
}

std::optional<JotletData> SleepingList::Remove(TextView id) {
  const auto found = byId_.find(FoldCase(id));
  if (found == byId_.end()) return std::nullopt;
  ++version_;
  JotletData record = std::move(*found->second);
  records_.erase(found->second);
  byId_.erase(found);
  return record;
}

}  // namespace jotlets
