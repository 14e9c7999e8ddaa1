#include "data/jotlet_data.h"

#include <utility>

namespace jotlets {

void JotletData::Reset(const RecordDefaults& defaults, std::int32_t now, Text freshId) {
  *this = JotletData{};
  width = defaults.width;
  user1 = defaults.user1;
  user2 = defaults.user2;
  user3 = defaults.user3;
  created = now;
  id = std::move(freshId);
}

Text ContentPath(const JotletData& record) {
  return record.IsImage() ? u"images\\" + record.id + u".png" : u"rtf\\" + record.id + u".rtf";
}

}  // namespace jotlets
