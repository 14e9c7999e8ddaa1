// The sleeping notes, in the order in which they were put to sleep. There may be very many: each is found by
// its id at once, and whoever remembers something about all of them can tell whether it still holds.
#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <unordered_map>
#include <vector>

#include "data/jotlet_data.h"

namespace jotlets {

class SleepingList {
 public:
  SleepingList() = default;
  SleepingList(const SleepingList&) = delete;
  SleepingList& operator=(const SleepingList&) = delete;

  /// Adds a note at the end. Ids are unique; of two notes with the same one, the first is found.
  void push_back(JotletData record);
  /// The note of this id, without regard to case, to be read or, with the second, changed; nullptr when there
  /// is none. Good until a note is removed.
  const JotletData* Find(TextView id) const;
  JotletData* FindToChange(TextView id);
  /// Takes the note of this id off the list; nothing when there is none.
  std::optional<JotletData> Remove(TextView id);

  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }
  std::size_t size() const { return records_.size(); }
  bool empty() const { return records_.empty(); }

  /// Another number after every change.
  std::uint64_t Version() const { return version_; }

 private:
  std::list<JotletData> records_;
  std::unordered_map<Text, std::list<JotletData>::iterator> byId_;  // by folded id
  std::uint64_t version_ = 1;
};

}  // namespace jotlets
