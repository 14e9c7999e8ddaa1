#include "desk/search_recorder.h"

#include <utility>

#include "data/rtf_text.h"

namespace jotlets {
namespace {

SearchEntry SleepingEntry(const JotletData& record) {
  return {IndexedNoteOf(record, record.sleep.recurring ? SearchPlace::kRecurring : SearchPlace::kSleeping),
          {}};
}

}  // namespace

SearchEntry SearchRecorder::OpenEntry(const JotletData& record) {
  SearchEntry entry{IndexedNoteOf(record, SearchPlace::kDesktop), {}};
  const NoteContent& content = windows_.ContentOf(record.id);
  if (content.HasUnsavedChanges()) entry.text = content.PlainText().substr(0, kMaximumSearchedText);
  return entry;
}

std::vector<SearchEntry> SearchRecorder::All() {
  std::vector<SearchEntry> all;
  for (const auto& record : lists_.desktop) all.push_back(OpenEntry(*record));
  for (const JotletData& record : lists_.attached)
    all.push_back({IndexedNoteOf(record, SearchPlace::kAttached), {}});
  for (const JotletData& record : lists_.sleeping) all.push_back(SleepingEntry(record));
  for (const JotletData& record : lists_.closed)
    all.push_back({IndexedNoteOf(record, SearchPlace::kClosed), {}});
  std::unordered_map<Text, bool> contained;
  lists_.MoveChangesTo(contained, ChangeReader::kSearch);
  store_.MoveChanges();
  return all;
}

std::optional<SearchEntry> SearchRecorder::EntryOf(const Text& id) {
  if (const JotletData* record = lists_.desktop.Find(id)) return OpenEntry(*record);
  if (const JotletData* record = std::as_const(lists_.attached).Find(id))
    return SearchEntry{IndexedNoteOf(*record, SearchPlace::kAttached), {}};
  if (const JotletData* record = std::as_const(lists_.sleeping).Find(id)) return SleepingEntry(*record);
  if (const JotletData* record = std::as_const(lists_.closed).Find(id))
    return SearchEntry{IndexedNoteOf(*record, SearchPlace::kClosed), {}};
  return std::nullopt;
}

SearchNews SearchRecorder::News() {
  std::unordered_map<Text, bool> changed;
  lists_.MoveChangesTo(changed, ChangeReader::kSearch);
  SearchNews news;
  for (const auto& [id, isImage] : changed) {
    if (auto entry = EntryOf(id)) {
      news.notes.push_back(std::move(*entry));
    } else {
      news.gone.push_back(id);
    }
  }
  const std::unordered_set<std::int64_t> stored = store_.MoveChanges();
  news.stored.assign(stored.begin(), stored.end());
  return news;
}

}  // namespace jotlets
