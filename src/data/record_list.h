// Notes without a window in an order of their own: those that sleep, that wait for a window, or that were
// closed. There may be very many: each is found by its id at once, and whoever remembers something about all
// of them can tell whether it still holds.
#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/jotlet_data.h"

namespace jotlets {

/// Who is told of changes, each at its own time.
enum class ChangeReader : std::uint8_t { kJournal, kSearch };

/// Which notes came, went or may have been changed: folded ids, and whether the content is a picture.
class ChangedNotes {
 public:
  void Add(const JotletData& record) {
    for (auto& notes : notes_) notes.insert_or_assign(FoldCase(record.id), record.IsImage());
  }
  /// Moves what has been added since the last call for this reader; memory that is short leaves each on one
  /// side or the other.
  void MoveTo(std::unordered_map<Text, bool>& into, ChangeReader reader) {
    auto& notes = notes_[static_cast<std::size_t>(reader)];
    into.merge(notes);
    notes.clear();
  }

 private:
  std::array<std::unordered_map<Text, bool>, 2> notes_;
};

class RecordList {
 public:
  RecordList() = default;
  ~RecordList() = default;
  RecordList(const RecordList&) = delete;
  RecordList& operator=(const RecordList&) = delete;

  /// Adds a note at the end, or in front. Ids are unique; of two notes with the same one, the first that came
  /// is found.
  void push_back(JotletData record);
  void push_front(JotletData record);
  /// The note of this id, without regard to case, to be read or, with the second, changed; nullptr when there
  /// is none. Good until that note is removed.
  const JotletData* Find(TextView id) const;
  JotletData* FindToChange(TextView id);
  /// Takes the note of this id off the list; nothing when there is none.
  std::optional<JotletData> Remove(TextView id);

  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }
  const JotletData& back() const { return records_.back(); }
  std::size_t size() const { return records_.size(); }
  bool empty() const { return records_.empty(); }

  /// Another number after every change.
  std::uint64_t Version() const { return version_; }
  ChangedNotes& Changes() { return changes_; }

 private:
  std::list<JotletData> records_;
  std::unordered_map<Text, std::list<JotletData>::iterator> byId_;  // by folded id
  std::uint64_t version_ = 1;
  ChangedNotes changes_;
};

/// The ids of a list, in its order.
std::vector<Text> IdsOf(const RecordList& records);

}  // namespace jotlets
