#include "data/record_list.h"

#include <utility>

namespace jotlets {

void RecordList::push_back(JotletData record) {
  ++version_;
  changes_.Add(record);
  records_.push_back(std::move(record));
  byId_.try_emplace(FoldCase(records_.back().id), std::prev(records_.end()));
}

void RecordList::push_front(JotletData record) {
  ++version_;
  changes_.Add(record);
  records_.push_front(std::move(record));
  byId_.try_emplace(FoldCase(records_.front().id), records_.begin());
}

const JotletData* RecordList::Find(TextView id) const {
  const auto found = byId_.find(FoldCase(id));
  return found == byId_.end() ? nullptr : &*found->second;
}

JotletData* RecordList::FindToChange(TextView id) {
  ++version_;
  auto* record = const_cast<JotletData*>(std::as_const(*this).Find(id));
  if (record != nullptr) changes_.Add(*record);
  return record;
}

std::optional<JotletData> RecordList::Remove(TextView id) {
  const auto found = byId_.find(FoldCase(id));
  if (found == byId_.end()) return std::nullopt;
  ++version_;
  JotletData record = std::move(*found->second);
  changes_.Add(record);
  records_.erase(found->second);
  byId_.erase(found);
  return record;
}

std::vector<Text> IdsOf(const RecordList& records) {
  std::vector<Text> ids;
  ids.reserve(records.size());
  for (const JotletData& record : records) ids.push_back(record.id);
  return ids;
}

}  // namespace jotlets
