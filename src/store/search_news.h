// What the search is told of notes: all of them at the start, and what has become of some since.
#pragma once

#include <optional>
#include <vector>

#include "data/jotlet_data.h"
#include "store/search_index.h"

namespace jotlets {

/// A note that is in one of the desk's lists.
struct SearchEntry {
  IndexedNote note;
  std::optional<Text> text;  // as it is on the screen; without one, what the content file has
};

struct SearchNews {
  std::vector<Text> gone;  // ids; told before the rest
  std::vector<SearchEntry> notes;
  std::vector<std::int64_t> stored;  // keys of notes that came into the store, left it or changed there

  bool IsEmpty() const { return gone.empty() && notes.empty() && stored.empty(); }
};

inline IndexedNote IndexedNoteOf(const JotletData& record, SearchPlace place) {
  IndexedNote note;
  note.id = record.id;
  note.place = place;
  note.image = record.IsImage();
  note.changed = record.modified > record.created ? record.modified : record.created;
  note.colour = record.colour;
  note.title = record.title;
  return note;
}

}  // namespace jotlets
