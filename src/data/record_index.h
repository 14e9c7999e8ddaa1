// Finding a record of a list by its id without walking the list.
#pragma once

#include <unordered_map>
#include <vector>

#include "data/jotlet_data.h"

namespace jotlets {

/// Remembers where the ids of one list stood when it last looked, and looks again when that no longer holds:
/// whoever changes the list need not know of it.
class RecordIndex {
 public:
  /// The record with this id, without regard to case; nullptr when there is none.
  const JotletData* Find(const std::vector<JotletData>& records, TextView id);

 private:
  std::unordered_map<Text, std::size_t> places_;  // by folded id
};

}  // namespace jotlets
