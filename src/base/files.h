// The file system as the rules see it: whole files, by full path with "\" between folders. One implementation
// reaches the disk; tests use one in memory whose writes can be made to fail.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace jotlets {

/// The outcome of a file operation; `reason` names the failed call and why, and is empty when all went well.
struct FileStatus {
  bool ok = true;
  Text reason;

  explicit operator bool() const { return ok; }
  static FileStatus Failed(Text why) { return {false, std::move(why)}; }
};

struct FileContent {
  enum class State { kRead, kMissing, kUnreadable };
  State state = State::kMissing;
  std::string bytes;
  Text reason;  // why it is unreadable
};

/// Files are written under a name beside their own first; its last part. What a kill leaves of them is of no
/// use.
inline constexpr TextView kNeighbourExtension = u".new";

class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(TextView path) const = 0;

  /// Bytes of the file, 0 for a missing one.
  virtual std::uint64_t Size(TextView path) const = 0;

  /// All bytes of the file. A file too large to be held (over 1 GiB) is unreadable.
  virtual FileContent Read(TextView path) const = 0;

  /// Whether both files can be read and have the same bytes, however large they are.
  virtual bool SameContent(TextView path, TextView other) const = 0;

  /// Replaces the file as a whole: the bytes go to a neighbour, are flushed to the disk, and take the place
  /// of the old file in one step. Whatever happens meanwhile, the file is the old one or the new one.
  virtual FileStatus Write(TextView path, std::string_view bytes) = 0;

  /// Appends to the file, creating it when missing. Not flushed to the disk.
  virtual FileStatus Append(TextView path, std::string_view bytes) = 0;

  /// Copies one file, flushed to the disk; the target is replaced in one step.
  virtual FileStatus Copy(TextView from, TextView to) = 0;

  /// Renames one file or folder within a volume; never replaces.
  virtual FileStatus Rename(TextView from, TextView to) = 0;

  /// Removes one file; a missing one is no failure.
  virtual FileStatus Remove(TextView path) = 0;

  /// Creates a folder and what lies above it; an existing one is no failure.
  virtual FileStatus MakeFolder(TextView path) = 0;

  /// Names of the folders inside `folder` (given with its "\" at the end), sorted.
  virtual std::vector<Text> ListFolders(TextView folder) const = 0;

  /// Removes a folder with all its files and folders; a missing one is no failure.
  virtual FileStatus RemoveFolder(TextView folder) = 0;

  /// Names (not paths) of the files of `folder` (given with its "\" at the end) whose names end in
  /// `extension`
  /// (".rtf", without regard to case), sorted.
  virtual std::vector<Text> List(TextView folder, TextView extension) const = 0;
};

}  // namespace jotlets
