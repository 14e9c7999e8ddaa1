#include "base/win/locked_file.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <optional>

#include "base/win/wide.h"

namespace jotlets {
namespace {

constexpr std::uint64_t kLargest = 1ull << 30;
constexpr std::size_t kChunk = 1 << 24;
constexpr auto kFlushAfter = std::chrono::seconds(1);

UniqueHandle OpenAlone(const Text& path) {
  // Overlapped: a write waits for no flush of the same file.
  return OwnHandle(CreateFileW(Wide(path), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OVERLAPPED, nullptr));
}

FileStatus Failed(TextView call) { return FileStatus::Failed(LastErrorText(call)); }

// Waits for what a read or a write at a place of the file has begun; how many bytes it was, nothing after a
// failure.
template <typename Begin>
std::optional<DWORD> Transfer(HANDLE file, std::uint64_t at, Begin begin) {
  const UniqueHandle done = OwnHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  if (!done) return std::nullopt;
  OVERLAPPED where{};
  where.Offset = static_cast<DWORD>(at);
  where.OffsetHigh = static_cast<DWORD>(at >> 32);
  where.hEvent = done.get();
  if (!begin(&where) && GetLastError() != ERROR_IO_PENDING) return std::nullopt;
  DWORD count = 0;
  if (!GetOverlappedResult(file, &where, &count, TRUE)) return std::nullopt;
  return count;
}

}  // namespace

LockedFile::~LockedFile() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  wake_.notify_all();
  if (worker_.joinable()) worker_.join();
}

LockedFile::Opened LockedFile::Open(TextView path) {
  constexpr int kTries = 100;
  constexpr DWORD kPauseMilliseconds = 50;
  path_ = path;
  UniqueHandle file;
  for (int tried = 1;; ++tried) {
    file = OpenAlone(path_);
    if (file) break;
    const DWORD error = GetLastError();
    reason_ = LastErrorText(u"CreateFile", error);
    if (error != ERROR_SHARING_VIOLATION) return Opened::kFailed;
    if (tried == kTries) return Opened::kInUse;
    Sleep(kPauseMilliseconds);
  }
  LARGE_INTEGER size{};
  const bool known = GetFileSizeEx(file.get(), &size) != 0;
  {
    const std::lock_guard lock(mutex_);
    file_ = std::move(file);
    length_ = known ? static_cast<std::uint64_t>(size.QuadPart) : 0;
  }
  // It may have been open before.
  if (!worker_.joinable()) worker_ = std::thread([this] { FlushNowAndThen(); });
  return Opened::kYes;
}

void LockedFile::Close() {
  const std::lock_guard lock(mutex_);
  file_.reset();
  length_ = 0;
}

FileContent LockedFile::Read() const {
  FileContent content;
  if (!file_) return content;
  if (length_ > kLargest) return {FileContent::State::kUnreadable, {}, u"the file is over 1 GiB"};
  content.bytes.resize(static_cast<std::size_t>(length_));
  std::size_t have = 0;
  while (have < content.bytes.size()) {
    const auto part = static_cast<DWORD>(std::min(content.bytes.size() - have, kChunk));
    const auto got = Transfer(file_.get(), have, [&](OVERLAPPED* where) {
      return ReadFile(file_.get(), content.bytes.data() + have, part, nullptr, where);
    });
    if (!got) return {FileContent::State::kUnreadable, {}, LastErrorText(u"ReadFile")};
    if (*got == 0) break;
    have += *got;
  }
  content.bytes.resize(have);
  content.state = FileContent::State::kRead;
  return content;
}

FileStatus LockedFile::WriteAt(std::uint64_t at, std::string_view bytes) const {
  while (!bytes.empty()) {
    const auto part = static_cast<DWORD>(std::min(bytes.size(), kChunk));
    const auto written = Transfer(file_.get(), at, [&](OVERLAPPED* where) {
      return WriteFile(file_.get(), bytes.data(), part, nullptr, where);
    });
    if (!written) return Failed(u"WriteFile");
    if (*written == 0) return FileStatus::Failed(u"WriteFile: nothing was written");
    bytes.remove_prefix(*written);
    at += *written;
  }
  return {};
}

FileStatus LockedFile::Append(std::string_view bytes) {
  if (!file_) return FileStatus::Failed(u"not open");
  // After a failure the next frame takes the place of what was written of this one.
  if (FileStatus written = WriteAt(length_, bytes); !written) return written;
  length_ += bytes.size();
  FlushSoon();
  return {};
}

FileStatus LockedFile::Truncate(std::size_t length) {
  if (!file_) return FileStatus::Failed(u"not open");
  // What follows is written there in any case.
  length_ = length;
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(length);
  return SetFileInformationByHandle(file_.get(), FileEndOfFileInfo, &end, sizeof end)
             ? FileStatus()
             : Failed(u"SetEndOfFile");
}

FileStatus LockedFile::Reset(std::string_view bytes) {
  if (!file_) return FileStatus::Failed(u"not open");
  if (FileStatus reopened = ReopenIfGone(); !reopened) return reopened;
  if (FileStatus emptied = Truncate(0); !emptied) return emptied;
  return Append(bytes);
}

// With its folder the file may have gone, under our handle.
FileStatus LockedFile::ReopenIfGone() {
  if (GetFileAttributesW(Wide(path_)) != INVALID_FILE_ATTRIBUTES) return {};
  UniqueHandle again = OpenAlone(path_);
  if (!again) return Failed(u"CreateFile");
  const std::lock_guard lock(mutex_);
  file_ = std::move(again);
  length_ = 0;
  return {};
}

FileStatus LockedFile::Flush() {
  if (!file_) return FileStatus::Failed(u"not open");
  return FlushFileBuffers(file_.get()) ? FileStatus() : Failed(u"FlushFileBuffers");
}

void LockedFile::FlushSoon() {
  {
    const std::lock_guard lock(mutex_);
    unflushed_ = true;
  }
  wake_.notify_all();
}

void LockedFile::FlushNowAndThen() {
  std::unique_lock lock(mutex_);
  while (!ends_) {
    wake_.wait(lock, [this] { return unflushed_ || ends_; });
    if (ends_) return;
    // What is written meanwhile is flushed along with it.
    wake_.wait_for(lock, kFlushAfter, [this] { return ends_; });
    unflushed_ = false;
    if (!file_) continue;
    HANDLE copy = nullptr;
    const HANDLE self = GetCurrentProcess();
    if (!DuplicateHandle(self, file_.get(), self, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS)) continue;
    const UniqueHandle flushed = OwnHandle(copy);
    lock.unlock();
    FlushFileBuffers(flushed.get());
    lock.lock();
  }
}

}  // namespace jotlets
