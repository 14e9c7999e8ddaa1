// What the search is told of the desk: all notes once, and from then on those that have changed.
#pragma once

#include "desk/note_lists.h"
#include "desk/note_windows.h"
#include "store/note_store.h"
#include "store/search_news.h"

namespace jotlets {

class SearchRecorder {
 public:
  SearchRecorder(NoteLists& lists, NoteWindows& windows, NoteStore& store)
      : lists_(lists), windows_(windows), store_(store) {}

  /// All notes in the lists, with the texts that are not in their files yet; what has changed so far is
  /// contained in them.
  std::vector<SearchEntry> All();
  /// What has changed since the last call of either.
  SearchNews News();

 private:
  SearchEntry OpenEntry(const JotletData& record);
  std::optional<SearchEntry> EntryOf(const Text& id);

  NoteLists& lists_;
  NoteWindows& windows_;
  NoteStore& store_;
};

}  // namespace jotlets
