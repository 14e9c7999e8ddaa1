// A database in one file, and statements on it. Nothing throws: what failed is told, and why.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "base/text.h"

struct sqlite3;
struct sqlite3_stmt;

namespace jotlets {

/// How a call on the database ended.
enum class DatabaseResult : std::uint8_t {
  kRow,  // a row of a statement is there
  kDone,
  kBusy,     // another program holds the file
  kDamaged,  // the file is no database, or a broken one
  kFailed,
};

/// A prepared statement. Texts are exact, unpaired surrogates included.
class Statement {
 public:
  Statement& Bind(std::int64_t number);
  Statement& Bind(TextView text);

  DatabaseResult Step();
  /// Steps through a statement that gives no rows; whether it worked.
  bool Run() { return Step() == DatabaseResult::kDone; }

  /// Ready to be bound and stepped anew.
  void Reset();

  /// Columns of the row, counted from 0.
  std::int64_t NumberAt(int column) const;
  Text TextAt(int column) const;

 private:
  friend class Database;
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  int bound_ = 0;
};

class Database {
 public:
  Database() = default;
  ~Database() = default;
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  /// Opens the file at `path`, with separators as the system has them; makes it when `create`. Fails when it
  /// cannot be opened for writing, and when it is no database. An empty path makes a file of its own, which
  /// goes with this object. Triggers and views of the file do nothing, and values of more than 256 MB cannot
  /// be read: what came from elsewhere must not act, nor fill the memory.
  DatabaseResult Open(TextView path, bool create);
  void Close() { handle_.reset(); }
  bool IsOpen() const { return handle_ != nullptr; }
  /// Whom to tell of the key of every row that is put in, changed or removed from here on, by this object.
  void Watch(std::function<void(std::int64_t key)> changed);

  /// Statements may compare texts by the collation "natural_order", which is `NaturalOrder`.
  void AddNaturalOrder();

  /// From here on the log of this object's commits goes into the file by `EmptyLog` alone: else the commit
  /// that makes it long takes the time for it.
  void KeepLog();
  /// Puts the log into the file if it is long.
  void EmptyLog();

  /// Runs statements that give no rows.
  DatabaseResult Run(const char* sql);
  Statement Prepare(const char* sql);
  /// The first column of the first row; `otherwise` when there is none.
  std::int64_t Number(const char* sql, std::int64_t otherwise);
  /// Whether there is a table of this name, no view, that one of the statements of `form` has made: letter
  /// for letter, so that a form that has been in use is not written otherwise without another version.
  bool HasTableOf(const char* form, TextView name);
  /// Whether all pages can be read and fit each other; looks at the whole file.
  bool IsSound();
  /// The key of the row that was put in last.
  std::int64_t LastKey() const;
  /// How many rows the last statement changed.
  std::int64_t Changed() const;
  /// What went wrong last, in the library's words.
  Text Fault() const;
  /// Ends what another thread is doing with the database, which fails by that.
  void Interrupt() const;

 private:
  struct Closer {
    void operator()(sqlite3* database) const;
  };
  /// For somebody else who holds the file.
  void WaitWhileBusy();
  struct Waiting {
    std::chrono::steady_clock::time_point since;
    std::optional<std::chrono::steady_clock::time_point> gaveUp;
  };

  std::unique_ptr<sqlite3, Closer> handle_;
  Waiting waiting_;
  Text openFault_;
  std::function<void(std::int64_t)> changed_;
  int logPages_ = 0;
};

}  // namespace jotlets
