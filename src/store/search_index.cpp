#include "store/search_index.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>

#include "store/search_words.h"

namespace jotlets {
namespace {

constexpr std::int64_t kVersion = 1;
constexpr const char* kForm =
    "CREATE TABLE notes (key INTEGER PRIMARY KEY, folded TEXT NOT NULL UNIQUE, id TEXT NOT NULL,"
    " place INTEGER NOT NULL, stored INTEGER NOT NULL, image INTEGER NOT NULL, changed INTEGER NOT NULL,"
    " colour INTEGER NOT NULL, title TEXT NOT NULL, category TEXT NOT NULL, stamp INTEGER NOT NULL);"
    "CREATE INDEX notes_by_stored ON notes (stored) WHERE stored > 0;"
    "CREATE TABLE texts (key INTEGER PRIMARY KEY, text TEXT NOT NULL);"
    // The words are taken apart here, and so there is nothing that they could be shown from.
    "CREATE VIRTUAL TABLE words USING fts5 (title, text, category, tags, content = '',"
    " tokenize = 'unicode61 remove_diacritics 2', prefix = '1 2 3 4');"
    "CREATE VIRTUAL TABLE titles USING fts5 (title, content = '',"
    " tokenize = 'unicode61 remove_diacritics 2', prefix = '1 2 3 4');"
    // Filled from nothing, it is written in few large parts.
    "INSERT INTO words (words, rank) VALUES ('hashsize', 8000000);"
    "PRAGMA user_version = 1;";

// Who searches sees the last commit while the next one is being made. After a power cut the file is whole,
// and what the last commits held is found missing at the start.
constexpr const char* kHabits =
    "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; PRAGMA cache_size = -8000;";

constexpr const char* kNote =
    "SELECT key, id, place, stored, image, changed, colour, title, category, stamp FROM notes ";

void RemoveFiles(TextView path) {
  for (const TextView part : {TextView(), TextView(u"-wal"), TextView(u"-shm")}) {
    std::error_code ignored;
    std::filesystem::remove(Text(path) + Text(part), ignored);
  }
}

std::int64_t ColourNumber(Colour colour) { return colour.r << 16 | colour.g << 8 | colour.b; }

IndexedNote NoteAt(const Statement& row) {
  IndexedNote note;
  note.id = row.TextAt(1);
  note.place = static_cast<SearchPlace>(row.NumberAt(2));
  note.key = row.NumberAt(3);
  note.image = row.NumberAt(4) != 0;
  note.changed = static_cast<std::int32_t>(row.NumberAt(5));
  const auto part = [colour = row.NumberAt(6)](int shift) {
    return static_cast<std::uint8_t>(colour >> shift);
  };
  note.colour = {part(16), part(8), part(0)};
  note.title = row.TextAt(7);
  note.category = row.TextAt(8);
  note.stamp = row.NumberAt(9);
  return note;
}

// Numbers one after the other become ones all over the place: what an earlier run of the program has filled
// is not gone through again place by place.
std::uint64_t Scattered(std::uint64_t number) {
  constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
  return number * kGoldenRatio >> 16;
}

}  // namespace

void SearchIndex::Close() {
  for (Statement* statement : {&find_, &findRow_, &isTaken_, &text_, &insertNote_, &insertText_,
                               &insertWords_, &removeWords_, &insertTitle_, &removeTitle_})
    *statement = {};
  database_.Close();
}

void SearchIndex::Discard(TextView path) {
  Close();
  RemoveFiles(path);
}

bool SearchIndex::HasForm() {
  // It can be made anew: whatever is not as it was made here is not believed.
  return database_.Number("PRAGMA user_version", 0) == kVersion &&
         std::ranges::all_of(std::initializer_list<TextView>{u"notes", u"texts", u"words", u"titles"},
                             [this](TextView name) { return database_.HasTableOf(kForm, name); });
}

bool SearchIndex::OpenFile(TextView path) {
  Close();
  damaged_ = database_.Open(path, true) == DatabaseResult::kDamaged;
  if (!database_.IsOpen() || !Done(database_.Run(kHabits))) return false;
  if (database_.Number("SELECT count(*) FROM sqlite_master", -1) == 0 && !Done(database_.Run(kForm)))
    return false;
  damaged_ = damaged_ || !HasForm();
  if (!damaged_) database_.KeepLog();
  return !damaged_;
}

bool SearchIndex::Open(TextView path) {
  if (!OpenFile(path)) {
    if (!damaged_) return false;
    Discard(path);
    if (!OpenFile(path)) return false;
  }
  Prepare();
  return true;
}

bool SearchIndex::OpenToSearch(TextView path) {
  Close();
  damaged_ = false;
  if (database_.Open(path, false) != DatabaseResult::kDone || !Done(database_.Run(kHabits)) || !HasForm()) {
    Close();
    return false;
  }
  Prepare();
  return true;
}

void SearchIndex::Prepare() {
  find_ = database_.Prepare((std::string(kNote) + "WHERE folded = ?").c_str());
  findRow_ = database_.Prepare((std::string(kNote) + "WHERE key = ?").c_str());
  isTaken_ = database_.Prepare("SELECT 1 FROM notes WHERE key = ?");
  text_ = database_.Prepare("SELECT text FROM texts WHERE key = ?");
  insertNote_ = database_.Prepare("REPLACE INTO notes VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  insertText_ = database_.Prepare("REPLACE INTO texts VALUES (?, ?)");
  insertWords_ =
      database_.Prepare("INSERT INTO words (rowid, title, text, category, tags) VALUES (?, ?, ?, ?, ?)");
  removeWords_ = database_.Prepare(
      "INSERT INTO words (words, rowid, title, text, category, tags) VALUES ('delete', ?, ?, ?, ?, ?)");
  insertTitle_ = database_.Prepare("INSERT INTO titles (rowid, title) VALUES (?, ?)");
  removeTitle_ = database_.Prepare("INSERT INTO titles (titles, rowid, title) VALUES ('delete', ?, ?)");
}

bool SearchIndex::Done(DatabaseResult result) {
  damaged_ = damaged_ || result == DatabaseResult::kDamaged;
  return result == DatabaseResult::kDone;
}

void SearchIndex::Begin() { database_.Run("BEGIN"); }

bool SearchIndex::Commit() { return Done(database_.Run("COMMIT")); }

void SearchIndex::RollBack() { database_.Run("ROLLBACK"); }

// The row that a statement asks for, which is bound already and ready again afterwards.
std::optional<SearchIndex::Known> SearchIndex::KnownAt(Statement& select) {
  std::optional<Known> known;
  const DatabaseResult result = select.Step();
  if (result == DatabaseResult::kRow) {
    known = {select.NumberAt(0), NoteAt(select)};
  } else {
    Done(result);
  }
  select.Reset();
  return known;
}

std::optional<SearchIndex::Known> SearchIndex::FindRow(TextView id) {
  find_.Reset();
  find_.Bind(FoldCase(StorableText(id)));
  return KnownAt(find_);
}

std::optional<IndexedNote> SearchIndex::Find(TextView id) {
  std::optional<Known> known = FindRow(id);
  return known ? std::optional(std::move(known->note)) : std::nullopt;
}

Text SearchIndex::TextOf(std::int64_t row) {
  text_.Reset();
  text_.Bind(row);
  Text text = text_.Step() == DatabaseResult::kRow ? text_.TextAt(0) : Text();
  text_.Reset();
  return text;
}

// Notes by the thousand may have been changed in the same second, by an import: the more are there, the
// farther from it a place is looked for.
std::int64_t SearchIndex::FreeRow(std::int32_t changed) {
  const std::int64_t first = static_cast<std::int64_t>(std::max(changed, 0)) << kSearchRowBits;
  constexpr std::int64_t kWidest = std::int64_t{1} << 40;
  std::int64_t row = first;
  for (std::int64_t span = 1 << kSearchRowBits; span <= kWidest; span *= 2) {
    for (int i = 0; i < 4; ++i) {
      row = first + static_cast<std::int64_t>(Scattered(++tries_) % static_cast<std::uint64_t>(span));
      isTaken_.Reset();
      isTaken_.Bind(row);
      const DatabaseResult taken = isTaken_.Step();
      isTaken_.Reset();
      if (taken != DatabaseResult::kRow) return row;
    }
  }
  return row;
}

bool SearchIndex::Insert(std::int64_t row, const IndexedNote& note) {
  insertNote_.Reset();
  const Text id = StorableText(note.id);
  insertNote_.Bind(row)
      .Bind(FoldCase(id))
      .Bind(id)
      .Bind(static_cast<std::int64_t>(note.place))
      .Bind(note.key);
  insertNote_.Bind(note.image ? 1 : 0).Bind(note.changed).Bind(ColourNumber(note.colour));
  insertNote_.Bind(StorableText(note.title)).Bind(StorableText(note.category)).Bind(note.stamp);
  return Done(insertNote_.Step());
}

// Without content of its own the index has to be told the very words that it shall forget.
bool SearchIndex::ChangeWords(std::int64_t row, const IndexedNote& note, TextView text, bool removes) {
  const Text title = SpreadText(note.title);
  Statement& words = removes ? removeWords_ : insertWords_;
  words.Reset();
  words.Bind(row).Bind(title).Bind(SpreadText(text)).Bind(SpreadText(note.category));
  words.Bind(SpreadText(TagsIn(note.title) + u" " + TagsIn(text)));
  Statement& titles = removes ? removeTitle_ : insertTitle_;
  titles.Reset();
  titles.Bind(row).Bind(title);
  return Done(words.Step()) && (title.empty() || Done(titles.Step()));
}

bool SearchIndex::RemoveRow(const Known& known) {
  if (!ChangeWords(known.row, known.note, TextOf(known.row), true)) return false;
  for (const char* sql : {"DELETE FROM notes WHERE key = ?", "DELETE FROM texts WHERE key = ?"}) {
    Statement remove = database_.Prepare(sql);
    remove.Bind(known.row);
    if (!Done(remove.Step())) return false;
  }
  return true;
}

bool SearchIndex::Put(const IndexedNote& note, TextView text) {
  IndexedNote storable = note;
  storable.title = StorableText(note.title);
  storable.category = StorableText(note.category);
  const Text storableText = StorableText(text);
  if (const auto known = FindRow(note.id)) {
    const bool same = known->note.changed == note.changed && known->note.title == storable.title &&
                      known->note.category == storable.category && TextOf(known->row) == storableText;
    if (same) return known->note == storable || Insert(known->row, storable);
    if (!RemoveRow(*known)) return false;
  }
  const std::int64_t row = FreeRow(note.changed);
  insertText_.Reset();
  insertText_.Bind(row).Bind(storableText);
  return Insert(row, storable) && Done(insertText_.Step()) && ChangeWords(row, storable, storableText, false);
}

bool SearchIndex::PutRecord(const IndexedNote& note) {
  const auto known = FindRow(note.id);
  return Put(note, known ? TextOf(known->row) : Text());
}

bool SearchIndex::Remove(TextView id) {
  const auto known = FindRow(id);
  return !known || RemoveRow(*known);
}

bool SearchIndex::RemoveKey(std::int64_t key) {
  Statement select = database_.Prepare((std::string(kNote) + "WHERE stored = ? AND stored > 0").c_str());
  select.Bind(key);
  const DatabaseResult result = select.Step();
  if (result != DatabaseResult::kRow) return Done(result);
  const Known known{select.NumberAt(0), NoteAt(select)};
  select.Reset();
  return RemoveRow(known);
}

std::optional<std::vector<IndexedNote>> SearchIndex::NotesAfter(TextView id, std::size_t maximum) {
  std::vector<IndexedNote> notes;
  Statement select =
      database_.Prepare((std::string(kNote) + "WHERE folded > ? ORDER BY folded LIMIT ?").c_str());
  select.Bind(id).Bind(static_cast<std::int64_t>(maximum));
  DatabaseResult result = select.Step();
  for (; result == DatabaseResult::kRow; result = select.Step()) notes.push_back(NoteAt(select));
  return Done(result) ? std::optional(std::move(notes)) : std::nullopt;
}

bool SearchIndex::HoldsStored() {
  return database_.Number("SELECT EXISTS (SELECT 1 FROM notes WHERE stored > 0)", 0) == 1;
}

std::int64_t SearchIndex::Count() { return database_.Number("SELECT count(*) FROM notes", 0); }

}  // namespace jotlets
