#include "store/stored_rows.h"

#include <string>

#include "data/jotlet_line.h"

namespace jotlets {
namespace {

constexpr std::int64_t kVersion = 1;

}  // namespace

StoredNote StoredNoteAt(const Statement& row) {
  return {row.NumberAt(0), row.TextAt(1), ParseJotletLine(row.TextAt(3), JotletData(), [] { return Text(); }),
          (row.NumberAt(2) & kStoredLeaving) != 0};
}

StoreForm FormOfStore(Database& database) {
  Statement tables = database.Prepare("SELECT count(*) FROM sqlite_master WHERE name = 'jotlets'");
  const DatabaseResult counted = tables.Step();
  if (counted == DatabaseResult::kDamaged) return StoreForm::kOther;
  if (counted != DatabaseResult::kRow) return StoreForm::kUnknown;
  if (tables.NumberAt(0) != 1) return StoreForm::kOther;
  return database.Number("PRAGMA user_version", 0) > kVersion ? StoreForm::kNewer : StoreForm::kStore;
}

void StoreReader::SetPath(TextView path) {
  Close();
  path_ = path;
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

std::optional<StoreReader::Notes> StoreReader::Read(const char* condition, std::int64_t key,
                                                    std::int64_t maximum) {
  const Access access = Open();
  if (access == Access::kFails) return std::nullopt;
  Notes notes;
  if (access == Access::kNothingThere) return notes;
  Statement select = database_.Prepare((std::string(kSelectStored) + condition).c_str());
  select.Bind(key).Bind(maximum);
  DatabaseResult result = select.Step();
  for (; result == DatabaseResult::kRow; result = select.Step()) notes.push_back(StoredNoteAt(select));
  if (result == DatabaseResult::kDone) return notes;
  fault_ = database_.Fault();
  return std::nullopt;
}

std::optional<StoreReader::Notes> StoreReader::After(std::int64_t key, std::int64_t maximum) {
  return Read("WHERE key > ? ORDER BY key LIMIT ?", key, maximum);
}

std::optional<StoreReader::Notes> StoreReader::At(std::int64_t key) {
  return Read("WHERE key = ? LIMIT ?", key, 1);
}

}  // namespace jotlets
