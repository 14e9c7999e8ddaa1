#include "store/note_store.h"

#include <string>

#include "data/data_folder.h"
#include "data/jotlet_line.h"
#include "store/store_rescue.h"

namespace jotlets {
namespace {

// A change is on the disk when it is committed. The journal beside the file lives for the time of a change
// only, so that a copy of the file alone is whole.
constexpr const char* kHabits = "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL;";

// Larger ones are checked by whoever reads all of them anyway, beside the user's work.
constexpr std::uint64_t kLargestChecked = 4 << 20;

Statement PrepareSelect(Database& database, const char* condition) {
  return database.Prepare((std::string(kSelectStored) + condition).c_str());
}

}  // namespace

void NoteStore::Tell(TextView what) const { log_.Write(kLogLifecycle, u"The store '", path_, u"' ", what); }

void NoteStore::Refuse(Text why) {
  fault_ = std::move(why);
  Tell(fault_);
  Close();
}

StoreState NoteStore::Open(TextView dataFolder) {
  Close();
  fault_.clear();
  ++version_;
  shownChanges_.many = true;
  path_ = Text(dataFolder) + Text(kStoreFileName);
  // An empty file is a store without notes.
  if (!files_.Exists(path_) || files_.Size(path_) == 0)
    return StoreIsGone(files_, dataFolder) ? StoreState::kGone : StoreState::kNothingThere;
  const DatabaseResult opened = database_.Open(path_, false);
  const StoreForm form = opened == DatabaseResult::kDone ? FormOfStore(database_) : StoreForm::kUnknown;
  if (opened == DatabaseResult::kDamaged || form == StoreForm::kOther) {
    Close();
    return StoreState::kDamaged;
  }
  if (form == StoreForm::kNewer) {
    Refuse(u"was made by a newer version: its notes are left alone");
  } else if (form == StoreForm::kStore) {
    if (Prepare() && files_.Size(path_) <= kLargestChecked && !database_.IsSound()) {
      Close();
      return StoreState::kDamaged;
    }
  } else {
    Refuse(u"cannot be used: " + database_.Fault());
  }
  return IsOpen() ? StoreState::kOpen : StoreState::kUnusable;
}

bool NoteStore::Prepare() {
  if (database_.Run(kHabits) != DatabaseResult::kDone) {
    Refuse(u"cannot be used: " + database_.Fault());
  } else {
    database_.Watch([this](std::int64_t key) {
      changes_.insert(key);
      shownChanges_.Add(key);
    });
  }
  return database_.IsOpen();
}

// Opens the store, and makes it where there is none.
bool NoteStore::Provide() {
  if (database_.IsOpen()) return true;
  // One that is there but could not be opened is not ours to write to.
  if (path_.empty() || (files_.Exists(path_) && files_.Size(path_) > 0)) return false;
  if (database_.Open(path_, true) != DatabaseResult::kDone || !MakeStoreForm(database_)) {
    Tell(u"could not be made: " + database_.Fault());
    database_.Close();
    return false;
  }
  return Prepare();
}

std::optional<std::int64_t> NoteStore::Put(const JotletData& record, TextView category) {
  if (!Provide()) return std::nullopt;
  Statement insert =
      database_.Prepare("INSERT INTO jotlets (category, text, flags, record) VALUES (?, ?, ?, ?)");
  insert.Bind(category).Bind(FoldCase(record.id));
  insert.Bind(record.IsImage() ? kStoredImage : 0).Bind(MakeJotletLine(record, true));
  if (Change(insert)) return database_.LastKey();
  Tell(u"could not take jotlet " + record.id + u": " + database_.Fault());
  return std::nullopt;
}

// Whether something was changed.
bool NoteStore::Change(Statement& statement) {
  if (!statement.Run() || database_.Changed() == 0) return false;
  ++version_;
  return true;
}

std::vector<StoredNote> NoteStore::Select(Statement select, std::size_t maximum) {
  std::vector<StoredNote> notes;
  while (notes.size() < maximum && select.Step() == DatabaseResult::kRow)
    notes.push_back(StoredNoteAt(select));
  return notes;
}

std::optional<StoredNote> NoteStore::Find(std::int64_t key) {
  Statement select = PrepareSelect(database_, "WHERE key = ?");
  select.Bind(key);
  std::vector<StoredNote> found = Select(std::move(select), 1);
  return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

bool NoteStore::Has(TextView id) { return KeyOf(id).has_value(); }

std::optional<std::int64_t> NoteStore::KeyOf(TextView id) {
  Statement select = database_.Prepare("SELECT key FROM jotlets WHERE text = ?");
  select.Bind(FoldCase(id));
  if (select.Step() != DatabaseResult::kRow) return std::nullopt;
  return select.NumberAt(0);
}

void NoteStore::Settle(const std::function<bool(TextView id)>& isListed) {
  const std::vector<StoredNote> leaving = Select(PrepareSelect(database_, "WHERE flags & 2"), SIZE_MAX);
  if (leaving.empty()) return;
  BeginChange();  // after a rescue there are many of them
  for (const StoredNote& note : leaving)
    isListed(note.record.id) ? Remove(note.key) : MarkLeaving(note.key, false);
  EndChange();
}

void NoteStore::Close() {
  EndChange();
  database_.Close();
}

void NoteStore::BeginChange() {
  lost_ = false;
  changing_ = Provide() && database_.Run("BEGIN IMMEDIATE") == DatabaseResult::kDone;
}

bool NoteStore::EndChange() {
  if (!std::exchange(changing_, false)) return !std::exchange(lost_, false);
  if (database_.Run("COMMIT") == DatabaseResult::kDone) return true;
  Tell(u"could not be changed: " + database_.Fault());
  database_.Run("ROLLBACK");
  lost_ = true;
  ++version_;
  return false;
}

std::vector<StoredNote> NoteStore::Newest(const std::optional<Text>& category, std::size_t maximum) {
  Statement select =
      PrepareSelect(database_, category ? "WHERE category = ? ORDER BY key DESC" : "ORDER BY key DESC");
  if (category) select.Bind(*category);
  return Select(std::move(select), maximum);
}

std::vector<StoredCategory> NoteStore::Categories() {
  std::vector<StoredCategory> categories;
  Statement select =
      database_.Prepare("SELECT category, count(*) FROM jotlets GROUP BY category ORDER BY category");
  while (select.Step() == DatabaseResult::kRow)
    categories.push_back({select.TextAt(0), static_cast<std::size_t>(select.NumberAt(1))});
  return categories;
}

std::vector<Text> NoteStore::CategoryNames() {
  std::vector<Text> names;
  Statement first = database_.Prepare("SELECT category FROM jotlets ORDER BY category LIMIT 1");
  Statement next =
      database_.Prepare("SELECT category FROM jotlets WHERE category > ? ORDER BY category LIMIT 1");
  for (Statement* select = &first; select->Step() == DatabaseResult::kRow; select = &next) {
    names.push_back(select->TextAt(0));
    next.Reset();
    next.Bind(names.back());
  }
  return names;
}

bool NoteStore::HasMoreThan(std::size_t count, const std::optional<Text>& category) {
  Statement select = database_.Prepare(category ? "SELECT 1 FROM jotlets WHERE category = ? LIMIT 1 OFFSET ?"
                                                : "SELECT 1 FROM jotlets ORDER BY category LIMIT 1 OFFSET ?");
  if (category) select.Bind(*category);
  select.Bind(static_cast<std::int64_t>(count));
  return select.Step() == DatabaseResult::kRow;
}

StoredChanges NoteStore::MoveShownChanges() {
  return changing_ ? StoredChanges() : std::exchange(shownChanges_, {});
}

bool NoteStore::RenameCategory(TextView from, TextView to) {
  Statement update = database_.Prepare("UPDATE jotlets SET category = ? WHERE category = ?");
  update.Bind(to).Bind(from);
  EndChange();
  const bool renamed = Change(update);
  if (renamed) MoveCategoryLook(database_, from, to);
  if (!renamed) Tell(u"could not rename a category: " + database_.Fault());
  return renamed;
}

bool NoteStore::SetCategoryLook(TextView category, const CategoryLook& look) {
  EndChange();
  const bool written = IsOpen() && WriteCategoryLook(database_, category, look);
  if (written) ++version_;
  if (!written) Tell(u"could not mark a category: " + database_.Fault());
  return written;
}

bool NoteStore::SetCategory(std::int64_t key, TextView category) {
  Statement update = database_.Prepare("UPDATE jotlets SET category = ? WHERE key = ?");
  update.Bind(category).Bind(key);
  return Change(update);
}

bool NoteStore::SetRecord(std::int64_t key, const JotletData& record) {
  Statement update = database_.Prepare("UPDATE jotlets SET record = ? WHERE key = ?");
  update.Bind(MakeJotletLine(record, true)).Bind(key);
  return Change(update);
}

bool NoteStore::MarkLeaving(std::int64_t key, bool leaving) {
  Statement update = database_.Prepare("UPDATE jotlets SET flags = (flags & ~2) | ? WHERE key = ?");
  update.Bind(leaving ? kStoredLeaving : 0).Bind(key);
  return Change(update);
}

bool NoteStore::Remove(std::int64_t key) {
  Statement remove = database_.Prepare("DELETE FROM jotlets WHERE key = ?");
  remove.Bind(key);
  return Change(remove);
}

std::vector<std::int64_t> NoteStore::KeysOf(TextView category) {
  std::vector<std::int64_t> keys;
  Statement select = database_.Prepare("SELECT key FROM jotlets WHERE category = ? ORDER BY key");
  select.Bind(category);
  while (select.Step() == DatabaseResult::kRow) keys.push_back(select.NumberAt(0));
  return keys;
}

}  // namespace jotlets
