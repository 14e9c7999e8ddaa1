#include "data/record_index.h"

namespace jotlets {

const JotletData* RecordIndex::Find(const std::vector<JotletData>& records, TextView id) {
  const Text folded = FoldCase(id);
  const auto at = [&]() -> const JotletData* {
    const auto found = places_.find(folded);
    if (found == places_.end() || found->second >= records.size()) return nullptr;
    const JotletData& record = records[found->second];
    return EqualIgnoreCase(record.id, id) ? &record : nullptr;
  };
  if (const JotletData* record = at()) return record;
  places_.clear();
  for (std::size_t i = 0; i < records.size(); ++i) places_.emplace(FoldCase(records[i].id), i);
  return at();
}

}  // namespace jotlets
