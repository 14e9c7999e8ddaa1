// A file that grows by frames and is emptied now and then, as the journal sees it. One implementation keeps a
// handle to the disk; tests use one in memory that forgets what was not flushed.
#pragma once

#include <string_view>

#include "base/files.h"

namespace jotlets {

class JournalFile {
 public:
  virtual ~JournalFile() = default;

  /// All that it holds. Nothing for one that is not open.
  virtual FileContent Read() const = 0;
  /// Appends the bytes; after a failure it is as long as before. Flushed to the disk soon afterwards, not at
  /// once.
  virtual FileStatus Append(std::string_view bytes) = 0;
  /// Holds no more than its first `length` bytes from now on.
  virtual FileStatus Truncate(std::size_t length) = 0;
  /// Holds nothing but these bytes from now on.
  virtual FileStatus Reset(std::string_view bytes) = 0;
  /// What was written is on the disk when this returns.
  virtual FileStatus Flush() = 0;
};

}  // namespace jotlets
