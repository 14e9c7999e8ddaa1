#include "base/win/disk_files.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <random>

#include "base/win/unique_handle.h"
#include "base/win/wide.h"

namespace jotlets {
namespace {

constexpr std::int64_t kLargestFile = 1LL << 30;
constexpr DWORD kChunk = 1 << 24;

bool IsMissing(DWORD error) { return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND; }

FileContent Unreadable(TextView call) {
  const DWORD error = GetLastError();
  if (IsMissing(error)) return {};
  return {FileContent::State::kUnreadable, {}, LastErrorText(call, error)};
}

FileStatus Outcome(bool ok, TextView call) {
  return ok ? FileStatus{} : FileStatus::Failed(LastErrorText(call));
}

// Another program that writes to the file may be done in a moment; a note that could not be read would be
// worse than the pause.
UniqueHandle OpenForReading(const Text& path) {
  constexpr int kTries = 20;
  constexpr DWORD kPauseMilliseconds = 50;
  constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  for (int tried = 1;; ++tried) {
    UniqueHandle file = OwnHandle(CreateFileW(Wide(path), GENERIC_READ, kShare, nullptr, OPEN_EXISTING,
                                              FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (file || GetLastError() != ERROR_SHARING_VIOLATION || tried == kTries) return file;
    Sleep(kPauseMilliseconds);
  }
}

// As many bytes as fit and are left; false when they cannot be read.
bool ReadPart(HANDLE file, std::string& part, DWORD& got) {
  return ReadFile(file, part.data(), static_cast<DWORD>(part.size()), &got, nullptr) != 0;
}

FileStatus WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto part = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kChunk));
    if (!WriteFile(file, bytes.data(), part, &written, nullptr)) return Outcome(false, u"WriteFile");
    bytes.remove_prefix(written);
  }
  return {};
}

// A file beside another whose name nobody can know before, and so put a link there that leads elsewhere.
Text NeighbourOf(const Text& path) {
  std::random_device random;
  Text name = path + u".";
  for (int part = 0; part < 2; ++part) AppendHex(name, random() | 0x10000000u);
  return name + Text(kNeighbourExtension);
}

UniqueHandle CreateNew(const Text& path) {
  return OwnHandle(
      CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
}

FileStatus WriteFlushed(const Text& path, std::string_view bytes) {
  const UniqueHandle file = CreateNew(path);
  if (!file) return Outcome(false, u"CreateFile");
  if (FileStatus written = WriteAll(file.get(), bytes); !written) return written;
  return Outcome(FlushFileBuffers(file.get()) != 0, u"FlushFileBuffers");
}

FileStatus FlushFile(const Text& path) {
  // A copy has the attributes of what was copied.
  SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_NORMAL);
  const UniqueHandle file = OwnHandle(
      CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return Outcome(false, u"CreateFile");
  return Outcome(FlushFileBuffers(file.get()) != 0, u"FlushFileBuffers");
}

// A file cannot be replaced while a virus scanner or a backup looks at it, which is soon over.
FileStatus PutInPlace(const Text& from, const Text& to) {
  constexpr int kTries = 10;
  constexpr DWORD kPauseMilliseconds = 20;
  for (int tried = 1;; ++tried) {
    if (MoveFileExW(Wide(from), Wide(to), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) return {};
    const DWORD error = GetLastError();
    const bool inUse = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (!inUse || tried == kTries) return FileStatus::Failed(LastErrorText(u"MoveFileEx", error));
    Sleep(kPauseMilliseconds);
  }
}

std::vector<Text> ListEntries(TextView folder,
                              const std::function<bool(TextView name, bool isFolder)>& wanted) {
  std::vector<Text> names;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(Wide(Text(folder).append(u"*")), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    const TextView name = FromWide(found.cFileName);
    if (wanted(name, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)) names.emplace_back(name);
  } while (FindNextFileW(search, &found));
  FindClose(search);
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

bool DiskFiles::Exists(TextView path) const {
  return GetFileAttributesW(Wide(Text(path))) != INVALID_FILE_ATTRIBUTES;
}

std::uint64_t DiskFiles::Size(TextView path) const {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!GetFileAttributesExW(Wide(Text(path)), GetFileExInfoStandard, &data)) return 0;
  return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

FileContent DiskFiles::Read(TextView path) const {
  const UniqueHandle file = OpenForReading(Text(path));
  if (!file) return Unreadable(u"CreateFile");
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file.get(), &size)) return Unreadable(u"GetFileSizeEx");
  if (size.QuadPart > kLargestFile) return {FileContent::State::kUnreadable, {}, u"the file is over 1 GiB"};
  FileContent content;
  content.bytes.resize(static_cast<std::size_t>(size.QuadPart));
  std::size_t have = 0;
  while (have < content.bytes.size()) {
    DWORD got = 0;
    const auto part = static_cast<DWORD>(std::min<std::size_t>(content.bytes.size() - have, kChunk));
    if (!ReadFile(file.get(), content.bytes.data() + have, part, &got, nullptr))
      return Unreadable(u"ReadFile");
    if (got == 0) break;
    have += got;
  }
  content.bytes.resize(have);
  content.state = FileContent::State::kRead;
  return content;
}

bool DiskFiles::SameContent(TextView path, TextView other) const {
  constexpr std::size_t kPart = 1 << 18;
  const UniqueHandle first = OpenForReading(Text(path));
  const UniqueHandle second = OpenForReading(Text(other));
  if (!first || !second) return false;
  std::string ours(kPart, '\0');
  std::string theirs(kPart, '\0');
  for (;;) {
    DWORD count = 0;
    DWORD theirCount = 0;
    if (!ReadPart(first.get(), ours, count) || !ReadPart(second.get(), theirs, theirCount)) return false;
    if (count != theirCount || std::memcmp(ours.data(), theirs.data(), count) != 0) return false;
    if (count == 0) return true;
  }
}

FileStatus DiskFiles::Write(TextView path, std::string_view bytes) {
  const Text target(path);
  const Text neighbour = NeighbourOf(target);
  // A read-only target stands for "do not touch": replacing it would go through, unlike writing to it.
  const DWORD attributes = GetFileAttributesW(Wide(target));
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    return FileStatus::Failed(u"the file is read-only");
  }
  FileStatus status = WriteFlushed(neighbour, bytes);
  if (status) status = PutInPlace(neighbour, target);
  if (!status) DeleteFileW(Wide(neighbour));
  return status;
}

FileStatus DiskFiles::Append(TextView path, std::string_view bytes) {
  const UniqueHandle file = OwnHandle(CreateFileW(Wide(Text(path)), FILE_APPEND_DATA,
                                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return Outcome(false, u"CreateFile");
  return WriteAll(file.get(), bytes);
}

FileStatus DiskFiles::Copy(TextView from, TextView to) {
  const Text target(to);
  const Text neighbour = NeighbourOf(target);
  FileStatus status = Outcome(CopyFileW(Wide(Text(from)), Wide(neighbour), TRUE) != 0, u"CopyFile");
  if (status) status = FlushFile(neighbour);
  if (status) status = PutInPlace(neighbour, target);
  if (!status) DeleteFileW(Wide(neighbour));
  return status;
}

FileStatus DiskFiles::Rename(TextView from, TextView to) {
  return Outcome(MoveFileExW(Wide(Text(from)), Wide(Text(to)), MOVEFILE_WRITE_THROUGH) != 0, u"MoveFileEx");
}

FileStatus DiskFiles::Remove(TextView path) {
  if (DeleteFileW(Wide(Text(path))) || IsMissing(GetLastError())) return {};
  return Outcome(false, u"DeleteFile");
}

FileStatus DiskFiles::MakeFolder(TextView path) {
  Text folder(path);
  while (folder.size() > 1 && (folder.back() == u'\\' || folder.back() == u'/')) folder.pop_back();
  if (CreateDirectoryW(Wide(folder), nullptr)) return {};
  const DWORD error = GetLastError();
  const std::size_t above = folder.find_last_of(u"\\/");
  if (error == ERROR_PATH_NOT_FOUND && above != Text::npos && above > 2) {
    if (FileStatus made = MakeFolder(folder.substr(0, above)); !made) return made;
    return Outcome(CreateDirectoryW(Wide(folder), nullptr) != 0, u"CreateDirectory");
  }
  const DWORD attributes = GetFileAttributesW(Wide(folder));
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {};
  return FileStatus::Failed(LastErrorText(u"CreateDirectory", error));
}

std::vector<Text> DiskFiles::List(TextView folder, TextView extension) const {
  // Patterns of the system match short names too (".rtfold"), so the extension is compared here.
  return ListEntries(folder, [extension](TextView name, bool isFolder) {
    return !isFolder && HasExtension(name, extension);
  });
}

std::vector<Text> DiskFiles::ListFolders(TextView folder) const {
  return ListEntries(folder,
                     [](TextView name, bool isFolder) { return isFolder && name != u"." && name != u".."; });
}

FileStatus DiskFiles::RemoveFolder(TextView folder) {
  const Text path = Text(folder) + (folder.ends_with(u"\\") ? u"" : u"\\");
  for (const Text& inner : ListFolders(path)) {
    // A link to a folder elsewhere is removed, not followed.
    const DWORD attributes = GetFileAttributesW(Wide(path + inner));
    const bool isLink = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    const FileStatus removed = isLink ? Outcome(RemoveDirectoryW(Wide(path + inner)) != 0, u"RemoveDirectory")
                                      : RemoveFolder(path + inner);
    if (!removed) return removed;
  }
  for (const Text& name : ListEntries(path, [](TextView, bool isFolder) { return !isFolder; })) {
    if (FileStatus removed = Remove(path + name); !removed) return removed;
  }
  if (RemoveDirectoryW(Wide(path)) || IsMissing(GetLastError())) return {};
  return Outcome(false, u"RemoveDirectory");
}

}  // namespace jotlets
