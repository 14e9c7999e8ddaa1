#include "store/search_builder.h"

#include <utility>

#include "data/data_folder.h"
#include "data/jotlet_line.h"
#include "data/rtf_text.h"
#include "store/note_store.h"

namespace jotlets {
namespace {

constexpr std::size_t kAtOnce = 200;
// As much of a text as is searched, and the largest file that it is read from.
constexpr std::size_t kMaximumText = 1 << 16;
constexpr std::uint64_t kLargestFile = 32 << 20;
// On its way out of the store: the desk has it.
constexpr std::int64_t kLeavingFlag = 2;
// The text is newer than the content file.
constexpr std::int64_t kUnsaved = -1;

}  // namespace

void SearchBuilder::Begin(TextView dataFolder, std::vector<SearchEntry> notes) {
  folder_ = dataFolder;
  notes_ = std::move(notes);
  listed_.clear();
  told_.clear();
  for (const SearchEntry& entry : notes_) listed_.insert(FoldCase(entry.note.id));
  phase_ = Phase::kListed;
  next_ = 0;
  lastKey_ = 0;
  lastId_.clear();
  failed_ = false;
}

bool SearchBuilder::End() {
  if (fine_) return index_.Commit();
  index_.RollBack();
  return false;
}

bool SearchBuilder::Step() {
  if (phase_ == Phase::kDone || index_.IsDamaged()) return false;
  index_.Begin();
  fine_ = true;
  bool more = false;
  switch (phase_) {
    case Phase::kListed: more = StepListed(); break;
    case Phase::kStored: more = StepStored(); break;
    case Phase::kGone: more = StepGone(); break;
    case Phase::kDone: break;
  }
  failed_ = !End() || failed_;
  if (!more) {
    phase_ = static_cast<Phase>(static_cast<int>(phase_) + 1);
    // Another program may want to copy or replace the store.
    if (phase_ == Phase::kDone) store_.Close();
  }
  return phase_ != Phase::kDone && !index_.IsDamaged();
}

bool SearchBuilder::StepListed() {
  for (std::size_t i = 0; i < kAtOnce && next_ < notes_.size(); ++i) {
    const SearchEntry entry = std::move(notes_[next_++]);
    if (!told_.contains(FoldCase(entry.note.id))) fine_ = AddNote(entry) && fine_;
  }
  return next_ < notes_.size();
}

Text SearchBuilder::TextOf(const IndexedNote& note) const {
  if (note.image || note.stamp > static_cast<std::int64_t>(kLargestFile)) return {};
  JotletData named;
  named.id = note.id;
  return RtfTextStart(files_.Read(folder_ + ContentPath(named)).bytes, kMaximumText);
}

bool SearchBuilder::AddNote(const SearchEntry& entry) {
  IndexedNote note = entry.note;
  JotletData named;
  named.id = note.id;
  named.isImage = note.image ? 1 : 0;
  note.stamp = entry.text ? kUnsaved : static_cast<std::int64_t>(files_.Size(folder_ + ContentPath(named)));
  if (entry.text) return index_.Put(note, *entry.text);
  const std::optional<IndexedNote> known = index_.Find(note.id);
  if (known == note) return true;
  if (known && known->stamp == note.stamp && known->changed == note.changed && known->image == note.image)
    return index_.PutRecord(note);
  return index_.Put(note, TextOf(note));
}

Statement SearchBuilder::SelectStored(const char* condition) {
  const Text path = folder_ + Text(kStoreFileName);
  if (!store_.IsOpen() && files_.Size(path) > 0) store_.Open(path, false);
  const std::string sql = std::string("SELECT key, category, flags, record FROM jotlets ") + condition;
  return store_.Prepare(sql.c_str());
}

std::optional<SearchEntry> SearchBuilder::StoredEntry(const Statement& row) const {
  if ((row.NumberAt(2) & kLeavingFlag) != 0) return std::nullopt;
  const JotletData record = ParseJotletLine(row.TextAt(3), JotletData(), [] { return Text(); });
  SearchEntry entry{IndexedNoteOf(record, SearchPlace::kStored), {}};
  entry.note.key = row.NumberAt(0);
  entry.note.category = row.TextAt(1);
  return entry;
}

bool SearchBuilder::StepStored() {
  std::vector<SearchEntry> entries;
  bool more = false;
  {
    Statement select = SelectStored("WHERE key > ? ORDER BY key LIMIT 200");
    select.Bind(lastKey_);
    while (select.Step() == DatabaseResult::kRow) {
      more = true;
      lastKey_ = select.NumberAt(0);
      if (auto entry = StoredEntry(select)) entries.push_back(std::move(*entry));
    }
  }
  for (const SearchEntry& entry : entries) {
    const Text id = FoldCase(entry.note.id);
    if (!told_.contains(id) && !listed_.contains(id)) fine_ = AddNote(entry) && fine_;
  }
  return more;
}

bool SearchBuilder::IsKnown(const IndexedNote& note) const {
  const Text id = FoldCase(note.id);
  return told_.contains(id) || listed_.contains(id);
}

bool SearchBuilder::StepGone() {
  const std::vector<IndexedNote> notes = index_.NotesAfter(lastId_, kAtOnce);
  std::vector<Text> gone;
  {
    Statement select = SelectStored("WHERE key = ?");
    for (const IndexedNote& note : notes) {
      lastId_ = FoldCase(note.id);
      if (IsKnown(note)) continue;
      select.Reset();
      select.Bind(note.key);
      const bool stored = note.place == SearchPlace::kStored && select.Step() == DatabaseResult::kRow &&
                          StoredEntry(select).has_value();
      if (!stored) gone.push_back(lastId_);
    }
  }
  for (const Text& id : gone) fine_ = index_.Remove(id) && fine_;
  return !notes.empty();
}

bool SearchBuilder::AddStored(std::int64_t key) {
  std::optional<SearchEntry> entry;
  {
    Statement select = SelectStored("WHERE key = ?");
    select.Bind(key);
    if (select.Step() == DatabaseResult::kRow) entry = StoredEntry(select);
  }
  if (!entry) {
    index_.RemoveKey(key);
    return !index_.IsDamaged();
  }
  told_.insert(FoldCase(entry->note.id));
  return AddNote(*entry);
}

bool SearchBuilder::Apply(const SearchNews& news) {
  fine_ = true;
  index_.Begin();
  for (const Text& id : news.gone) {
    told_.insert(FoldCase(id));
    fine_ = index_.Remove(id) && fine_;
  }
  // First what left the store: what came from it to the desktop has the same id.
  for (const std::int64_t key : news.stored) fine_ = AddStored(key) && fine_;
  for (const SearchEntry& entry : news.notes) {
    told_.insert(FoldCase(entry.note.id));
    fine_ = AddNote(entry) && fine_;
  }
  const bool applied = End();
  if (phase_ == Phase::kDone) {
    told_.clear();
    store_.Close();
  }
  return applied;
}

}  // namespace jotlets
