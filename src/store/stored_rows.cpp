#include "store/stored_rows.h"

#include <algorithm>
#include <string>

#include "data/jotlet_line.h"

namespace jotlets {
namespace {

constexpr std::int64_t kVersion = 1;

// Texts are kept as the program has them, code unit by code unit.
constexpr const char* kEncoding = "PRAGMA encoding = 'UTF-16le'";

// Whole or not at all: a store that is half made would count as damaged.
constexpr const char* kForm =
    "BEGIN IMMEDIATE;"
    "PRAGMA application_id = 1247763283;"
    "CREATE TABLE jotlets (key INTEGER PRIMARY KEY AUTOINCREMENT, category TEXT NOT NULL,"
    " text TEXT NOT NULL, flags INTEGER NOT NULL, record TEXT NOT NULL);"
    // What makes two ids the same is no matter of the database: they are folded before they come here.
    "CREATE UNIQUE INDEX jotlets_by_text ON jotlets (text);"
    "CREATE INDEX jotlets_by_category ON jotlets (category, key);"
    "PRAGMA user_version = 1;"
    "COMMIT;";

// Commands cannot name others, and the database has no key behind the last one.
bool KeysCanBeNamed(Database& database) {
  return database.Number("SELECT count(*) FROM jotlets WHERE key < 1", 1) == 0 &&
         database.Number("SELECT max(key) FROM jotlets", 0) <= kLargestStoredKey &&
         database.Number("SELECT max(seq) FROM sqlite_sequence", 0) <= kLargestStoredKey;
}

}  // namespace

StoredNote StoredNoteAt(const Statement& row) {
  StoredNote note{row.NumberAt(0), row.TextAt(1),
                  ParseJotletLine(row.TextAt(3), JotletData(), [] { return Text(); }),
                  (row.NumberAt(2) & kStoredLeaving) != 0};
  // Of a record that lost its id, the content is still known by the one beside it.
  if (note.record.id.empty()) note.record.id = row.TextAt(4);
  return note;
}

void StoredChanges::Add(std::int64_t key) {
  if (many) return;
  const auto at = std::ranges::lower_bound(keys, key);
  if (at != keys.end() && *at == key) return;
  keys.insert(at, key);
  if (keys.size() <= kMaximum) return;
  many = true;
  keys.clear();
}

void StoredChanges::Add(const StoredChanges& others) {
  for (const std::int64_t key : others.keys) Add(key);
  many = many || others.many;
  if (many) keys.clear();
}

bool MakeStoreForm(Database& database) {
  return database.Run(kEncoding) == DatabaseResult::kDone && database.Run(kForm) == DatabaseResult::kDone;
}

StoreForm FormOfStore(Database& database) {
  Statement tables = database.Prepare("SELECT count(*) FROM sqlite_master WHERE name = 'jotlets'");
  const DatabaseResult counted = tables.Step();
  if (counted == DatabaseResult::kDamaged) return StoreForm::kOther;
  if (counted != DatabaseResult::kRow) return StoreForm::kUnknown;
  if (tables.NumberAt(0) != 1) return StoreForm::kOther;
  if (database.Number("PRAGMA user_version", 0) > kVersion) return StoreForm::kNewer;
  return database.HasTableOf(kForm, u"jotlets") && KeysCanBeNamed(database) ? StoreForm::kStore
                                                                            : StoreForm::kOther;
}

void StoreReader::SetPath(TextView path) {
  Close();
  path_ = path;
  damaged_ = false;
}

StoreReader::Access StoreReader::Open() {
  if (database_.IsOpen()) return Access::kOpen;
  // An empty file is a store without notes.
  if (files_.Size(path_) == 0) return Access::kNothingThere;
  if (database_.Open(path_, false) == DatabaseResult::kDone) {
    const StoreForm form = FormOfStore(database_);
    if (form == StoreForm::kStore) return Access::kOpen;
    fault_ = form == StoreForm::kOther ? Text(u"it is no store") : database_.Fault();
    database_.Close();
    return form == StoreForm::kNewer ? Access::kNothingThere : Access::kFails;
  }
  fault_ = database_.Fault();
  return Access::kFails;
}

void StoreReader::Fail(DatabaseResult result) {
  damaged_ = damaged_ || result == DatabaseResult::kDamaged;
  fault_ = database_.Fault();
}

std::optional<StoreReader::Notes> StoreReader::Read(const char* condition,
                                                    const std::function<void(Statement&)>& bind) {
  const Access access = Open();
  if (access == Access::kFails) return std::nullopt;
  Notes notes;
  if (access == Access::kNothingThere) return notes;
  Statement select = database_.Prepare((std::string(kSelectStored) + condition).c_str());
  bind(select);
  DatabaseResult result = select.Step();
  for (; result == DatabaseResult::kRow; result = select.Step()) notes.push_back(StoredNoteAt(select));
  if (result == DatabaseResult::kDone) return notes;
  Fail(result);
  return std::nullopt;
}

std::optional<StoreReader::Notes> StoreReader::After(std::int64_t key, std::int64_t maximum) {
  return Read("WHERE key > ? ORDER BY key LIMIT ?",
              [=](Statement& select) { select.Bind(key).Bind(maximum); });
}

std::optional<StoreReader::Notes> StoreReader::After(std::int64_t key, std::int64_t maximum,
                                                     TextView category) {
  return Read("WHERE category = ? AND key > ? ORDER BY key LIMIT ?",
              [=](Statement& select) { select.Bind(category).Bind(key).Bind(maximum); });
}

std::optional<StoreReader::Notes> StoreReader::At(std::int64_t key) {
  return Read("WHERE key = ?", [=](Statement& select) { select.Bind(key); });
}

// The index of the categories alone has all of it, and is much smaller than the table. It is asked for one
// category at a time: else the library would go through all of one again for each part.
std::optional<std::vector<StoredName>> StoreReader::NamesAfter(std::int64_t key, std::int64_t maximum) {
  const Access access = Open();
  if (access == Access::kFails) return std::nullopt;
  std::vector<StoredName> names;
  if (access == Access::kNothingThere) return names;
  Statement select =
      database_.Prepare("SELECT key, text, flags FROM jotlets WHERE key > ? ORDER BY key LIMIT ?");
  select.Bind(key).Bind(maximum);
  DatabaseResult result = select.Step();
  for (; result == DatabaseResult::kRow; result = select.Step())
    names.push_back({select.NumberAt(0), select.TextAt(1), (select.NumberAt(2) & kStoredImage) != 0});
  if (result == DatabaseResult::kDone) return names;
  Fail(result);
  return std::nullopt;
}

std::optional<std::vector<StoredPlace>> StoreReader::PlacesAfter(const StoredPlace& place,
                                                                 std::int64_t maximum) {
  const Access access = Open();
  if (access == Access::kFails) return std::nullopt;
  std::vector<StoredPlace> places;
  if (access == Access::kNothingThere) return places;
  Statement own = database_.Prepare(
      "SELECT category, key FROM jotlets WHERE category = ? AND key > ? ORDER BY key LIMIT ?");
  Statement next = database_.Prepare(
      "SELECT category, key FROM jotlets WHERE category > ? ORDER BY category, key LIMIT ?");
  own.Bind(place.category).Bind(place.key).Bind(maximum);
  next.Bind(place.category).Bind(maximum);
  for (Statement* select : {&own, &next}) {
    DatabaseResult result = select->Step();
    for (; result == DatabaseResult::kRow; result = select->Step())
      places.push_back({select->TextAt(0), select->NumberAt(1)});
    if (result == DatabaseResult::kDone && places.empty()) continue;
    if (result == DatabaseResult::kDone) break;
    Fail(result);
    return std::nullopt;
  }
  return places;
}

}  // namespace jotlets
