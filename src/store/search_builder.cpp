#include "store/search_builder.h"

#include <utility>

#include "data/data_folder.h"
#include "data/rtf_text.h"
#include "store/search_words.h"

namespace jotlets {
namespace {

constexpr std::int64_t kAtOnce = 200;
// Whoever waits for a step or a part of the news waits for one more file at most.
constexpr std::chrono::milliseconds kLongestStep{250};
// The text is newer than the content file, or the file could not be read.
constexpr std::int64_t kUnsaved = -1;

SearchEntry StoredEntry(const StoredNote& stored) {
  SearchEntry entry{IndexedNoteOf(stored.record, SearchPlace::kStored), {}};
  entry.note.key = stored.key;
  entry.note.category = stored.category;
  return entry;
}

}  // namespace

void SearchBuilder::Begin(TextView dataFolder, std::vector<SearchEntry> notes) {
  folder_ = dataFolder;
  store_.SetPath(folder_ + Text(kStoreFileName));
  notes_ = std::move(notes);
  listed_.clear();
  told_.clear();
  for (const SearchEntry& entry : notes_) listed_.insert(FoldCase(entry.note.id));
  phase_ = Phase::kListed;
  next_ = 0;
  lastKey_ = 0;
  lastId_.clear();
  storeIsRead_ = true;
  fault_.clear();
}

void SearchBuilder::BeginWriting() {
  until_ = std::chrono::steady_clock::now() + kLongestStep;
  fine_ = true;
  index_.Begin();
}

void SearchBuilder::Check(bool written) {
  if (!written && fault_.empty()) fault_ = u"The search index could not be written: " + index_.Fault();
  fine_ = fine_ && written;
}

bool SearchBuilder::EndWriting() {
  if (fine_) Check(index_.Commit());
  if (!fine_) index_.RollBack();
  // Who searches sees it by now.
  index_.Settle();
  return fine_;
}

// What the index has of the store is left alone: the notes are there, as far as anybody knows.
void SearchBuilder::FailToRead() {
  storeIsRead_ = false;
  if (fault_.empty()) fault_ = u"The store could not be read for the search: " + store_.Fault();
}

bool SearchBuilder::Step() {
  if (phase_ == Phase::kDone || index_.IsDamaged()) return false;
  BeginWriting();
  bool more = false;
  switch (phase_) {
    case Phase::kListed: more = StepListed(); break;
    case Phase::kStored: more = StepStored(); break;
    case Phase::kGone: more = StepGone(); break;
    case Phase::kDone: break;
  }
  EndWriting();
  if (!more) phase_ = static_cast<Phase>(static_cast<int>(phase_) + 1);
  if (phase_ == Phase::kDone) {
    // Another program may want to copy or replace the store.
    store_.Close();
    notes_ = {};
    listed_ = {};
    told_ = {};
  }
  return phase_ != Phase::kDone && !index_.IsDamaged();
}

bool SearchBuilder::StepListed() {
  while (next_ < notes_.size()) {
    const SearchEntry entry = std::move(notes_[next_++]);
    if (!WasTold(entry.note.id)) Check(AddNote(entry));
    if (!GoesOn()) break;
  }
  return next_ < notes_.size();
}

// One that cannot be read now is tried again at the next start; until then the index keeps what it has.
bool SearchBuilder::AddUnread(IndexedNote note) {
  note.stamp = kUnsaved;
  return index_.PutRecord(note);
}

bool SearchBuilder::AddNote(const SearchEntry& entry) {
  IndexedNote note = entry.note;
  JotletData named;
  named.id = note.id;
  named.isImage = note.image ? 1 : 0;
  const Text path = folder_ + ContentPath(named);
  note.stamp = entry.text ? kUnsaved : static_cast<std::int64_t>(files_.Size(path));
  if (entry.text) return index_.Put(note, *entry.text);
  const std::optional<IndexedNote> known = index_.Find(note.id);
  if (known == note) return true;
  if (known && known->stamp == note.stamp && known->changed == note.changed && known->image == note.image)
    return index_.PutRecord(note);
  if (note.image || note.stamp > static_cast<std::int64_t>(kLargestSearchedFile)) return index_.Put(note, {});
  const FileContent content = files_.Read(path);
  if (content.state == FileContent::State::kUnreadable) return AddUnread(std::move(note));
  return index_.Put(note, RtfTextStart(content.bytes, kMaximumSearchedText));
}

bool SearchBuilder::StepStored() {
  const std::optional<StoreReader::Notes> notes = store_.After(lastKey_, kAtOnce);
  if (!notes) FailToRead();
  if (!notes || notes->empty()) return false;
  for (const StoredNote& stored : *notes) {
    lastKey_ = stored.key;
    const Text& id = stored.record.id;
    // The desk has one that is on its way out.
    if (!stored.leaving && !WasTold(id) && !WasListed(id)) Check(AddNote(StoredEntry(stored)));
    if (!GoesOn()) break;
  }
  return true;
}

bool SearchBuilder::IsGone(const IndexedNote& note) {
  if (WasTold(note.id) || WasListed(note.id)) return false;
  if (note.place != SearchPlace::kStored) return true;
  if (!storeIsRead_) return false;
  const std::optional<StoreReader::Notes> stored = store_.At(note.key);
  if (!stored) FailToRead();
  if (!stored || stored->empty()) return stored.has_value();
  // Another store may have come into its place.
  const StoredNote& found = stored->front();
  return found.leaving || FoldCase(StorableText(found.record.id)) != FoldCase(note.id);
}

bool SearchBuilder::StepGone() {
  const auto notes = index_.NotesAfter(lastId_, kAtOnce);
  if (!notes) Check(false);
  if (!notes || notes->empty()) return false;
  for (const IndexedNote& note : *notes) {
    lastId_ = FoldCase(note.id);
    if (IsGone(note)) Check(index_.Remove(lastId_));
    if (!GoesOn()) break;
  }
  return true;
}

bool SearchBuilder::AddStored(std::int64_t key) {
  const std::optional<StoreReader::Notes> stored = store_.At(key);
  if (!stored) FailToRead();
  if (!stored) return true;
  if (stored->empty() || stored->front().leaving) return index_.RemoveKey(key);
  told_.insert(FoldCase(stored->front().record.id));
  return AddNote(StoredEntry(stored->front()));
}

bool SearchBuilder::Apply(const SearchNews& news) {
  const bool wasRead = std::exchange(storeIsRead_, true);
  BeginWriting();
  for (const Text& id : news.gone) {
    told_.insert(FoldCase(id));
    Check(index_.Remove(id));
  }
  // First what left the store: what came from it to the desktop has the same id.
  for (const std::int64_t key : news.stored)
    if (storeIsRead_ && !stops_) Check(AddStored(key));
  for (const SearchEntry& entry : news.notes) {
    if (stops_) break;
    told_.insert(FoldCase(entry.note.id));
    Check(AddNote(entry));
  }
  const bool applied = EndWriting() && storeIsRead_;
  storeIsRead_ = storeIsRead_ && wasRead;
  if (phase_ == Phase::kDone) {
    told_.clear();
    store_.Close();
  }
  return applied;
}

}  // namespace jotlets
