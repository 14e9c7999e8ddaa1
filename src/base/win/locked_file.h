// A file that is held open as long as the program runs, and by nobody else: the journal, and by that the lock
// of the data folder.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include "base/journal_file.h"
#include "base/win/unique_handle.h"

namespace jotlets {

class LockedFile final : public JournalFile {
 public:
  LockedFile() = default;
  ~LockedFile() override;
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;

  enum class Opened { kYes, kInUse, kFailed };
  /// Opens the file, which is made when it is not there. One that somebody else holds is tried again for some
  /// seconds: a program that is being restarted is soon gone.
  Opened Open(TextView path);
  /// Why it could not be opened.
  const Text& Reason() const { return reason_; }

  /// Gives it up to others.
  void Close();

  FileContent Read() const override;
  FileStatus Append(std::string_view bytes) override;
  FileStatus Truncate(std::size_t length) override;
  FileStatus Reset(std::string_view bytes) override;
  FileStatus Flush() override;

 private:
  FileStatus WriteAt(std::uint64_t at, std::string_view bytes) const;
  FileStatus ReopenIfGone();
  void FlushSoon();
  void FlushNowAndThen();

  Text path_;
  Text reason_;
  UniqueHandle file_;
  std::uint64_t length_ = 0;
  // The worker flushes: on a slow disk that takes longer than a key may.
  std::mutex mutex_;
  std::condition_variable wake_;
  bool unflushed_ = false;
  bool ends_ = false;
  std::thread worker_;
};

}  // namespace jotlets
