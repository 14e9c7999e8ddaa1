#include "store/database.h"

#include <sqlite3.h>

#include <thread>

#include "base/natural_order.h"

namespace jotlets {
namespace {

// A program that copies the folder looks at the file for a moment.
constexpr std::chrono::milliseconds kBusy(1500);
// One that holds the file longer is waited for once, not anew by everything that wants to read it.
constexpr std::chrono::seconds kStillBusy(5);
constexpr std::chrono::milliseconds kPause(5);

constexpr int kLargestValue = 256 << 20;

DatabaseResult ResultOf(int code) {
  switch (code & 0xFF) {
    case SQLITE_ROW: return DatabaseResult::kRow;
    case SQLITE_OK:
    case SQLITE_DONE: return DatabaseResult::kDone;
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return DatabaseResult::kBusy;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: return DatabaseResult::kDamaged;
    default: return DatabaseResult::kFailed;
  }
}

void LeaveWithoutPower(sqlite3* handle) {
  for (const int power :
       {SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
    sqlite3_db_config(handle, power, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLargestValue);
}

}  // namespace

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Statement& Statement::Bind(std::int64_t number) {
  if (statement_ != nullptr) sqlite3_bind_int64(statement_.get(), ++bound_, number);
  return *this;
}

Statement& Statement::Bind(TextView text) {
  if (statement_ == nullptr) return *this;
  // An empty view may have no place in memory, which would be taken for no value.
  const char16_t* const units = text.empty() ? u"" : text.data();
  sqlite3_bind_text16(statement_.get(), ++bound_, units, static_cast<int>(text.size() * sizeof(char16_t)),
                      SQLITE_TRANSIENT);
  return *this;
}

DatabaseResult Statement::Step() {
  return statement_ == nullptr ? DatabaseResult::kFailed : ResultOf(sqlite3_step(statement_.get()));
}

void Statement::Reset() {
  if (statement_ == nullptr) return;
  sqlite3_reset(statement_.get());
  sqlite3_clear_bindings(statement_.get());
  bound_ = 0;
}

std::int64_t Statement::NumberAt(int column) const { return sqlite3_column_int64(statement_.get(), column); }

Text Statement::TextAt(int column) const {
  const void* const units = sqlite3_column_text16(statement_.get(), column);
  if (units == nullptr) return {};
  return {static_cast<const char16_t*>(units),
          static_cast<std::size_t>(sqlite3_column_bytes16(statement_.get(), column)) / sizeof(char16_t)};
}

void Database::Closer::operator()(sqlite3* database) const { sqlite3_close_v2(database); }

DatabaseResult Database::Open(TextView path, bool create) {
  Close();
  openFault_.clear();
  sqlite3* handle = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE | (create ? SQLITE_OPEN_CREATE : 0);
  const int opened = sqlite3_open_v2(ToUtf8(path).c_str(), &handle, flags, nullptr);
  handle_.reset(handle);
  DatabaseResult result = ResultOf(opened);
  if (result == DatabaseResult::kDone && sqlite3_db_readonly(handle, "main") == 1) {
    openFault_ = u"it can only be read";
    result = DatabaseResult::kFailed;
  }
  if (result == DatabaseResult::kDone) {
    WaitWhileBusy();
    LeaveWithoutPower(handle);
    // Until something is read, any file counts as a database.
    result = Run("SELECT count(*) FROM sqlite_master");
  }
  if (result == DatabaseResult::kDone) return result;
  if (openFault_.empty()) openFault_ = Fault();
  Close();
  return result;
}

void Database::WaitWhileBusy() {
  const auto wait = [](void* database, int waited) {
    using Clock = std::chrono::steady_clock;
    Waiting& waiting = static_cast<Database*>(database)->waiting_;
    const Clock::time_point now = Clock::now();
    if (waiting.gaveUp && now - *waiting.gaveUp < kStillBusy) return 0;
    if (waited == 0) waiting.since = now;
    if (now - waiting.since >= kBusy) {
      waiting.gaveUp = now;
      return 0;
    }
    std::this_thread::sleep_for(kPause);
    return 1;
  };
  sqlite3_busy_handler(handle_.get(), wait, this);
}

void Database::Watch(std::function<void(std::int64_t)> changed) {
  changed_ = std::move(changed);
  const auto tell = [](void* database, int, const char*, const char*, sqlite3_int64 key) {
    static_cast<Database*>(database)->changed_(key);
  };
  sqlite3_update_hook(handle_.get(), tell, this);
}

void Database::AddNaturalOrder() {
  const auto compare = [](void*, int sizeA, const void* a, int sizeB, const void* b) {
    const auto view = [](const void* bytes, int size) {
      return std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    };
    const auto order = NaturalOrder(view(a, sizeA), view(b, sizeB));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
  };
  sqlite3_create_collation(handle_.get(), "natural_order", SQLITE_UTF8, nullptr, compare);
}

void Database::KeepLog() {
  logPages_ = 0;
  const auto remember = [](void* database, sqlite3*, const char*, int pages) {
    static_cast<Database*>(database)->logPages_ = pages;
    return SQLITE_OK;
  };
  sqlite3_wal_hook(handle_.get(), remember, this);
}

void Database::EmptyLog() {
  constexpr int kLong = 1000;
  if (logPages_ < kLong) return;
  logPages_ = 0;
  // Where somebody reads an old part of it, the rest goes the next time.
  sqlite3_wal_checkpoint_v2(handle_.get(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

DatabaseResult Database::Run(const char* sql) {
  return handle_ == nullptr ? DatabaseResult::kFailed
                            : ResultOf(sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr));
}

Statement Database::Prepare(const char* sql) {
  Statement statement;
  sqlite3_stmt* prepared = nullptr;
  if (handle_ != nullptr) sqlite3_prepare_v2(handle_.get(), sql, -1, &prepared, nullptr);
  statement.statement_.reset(prepared);
  return statement;
}

std::int64_t Database::Number(const char* sql, std::int64_t otherwise) {
  Statement statement = Prepare(sql);
  return statement.Step() == DatabaseResult::kRow ? statement.NumberAt(0) : otherwise;
}

bool Database::HasTableOf(const char* form, TextView name) {
  Statement select = Prepare("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?");
  select.Bind(name);
  return select.Step() == DatabaseResult::kRow && FromUtf8(form).find(select.TextAt(0) + u";") != Text::npos;
}

bool Database::IsSound() {
  Statement check = Prepare("PRAGMA quick_check(1)");
  return check.Step() == DatabaseResult::kRow && check.TextAt(0) == u"ok";
}

std::int64_t Database::LastKey() const { return sqlite3_last_insert_rowid(handle_.get()); }

std::int64_t Database::Changed() const { return sqlite3_changes64(handle_.get()); }

void Database::Interrupt() const { sqlite3_interrupt(handle_.get()); }

Text Database::Fault() const {
  return handle_ == nullptr ? openFault_ : FromUtf8(sqlite3_errmsg(handle_.get()));
}

}  // namespace jotlets
