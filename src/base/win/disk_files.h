// The files of the disk.
#pragma once

#include "base/files.h"

namespace jotlets {

class DiskFiles final : public Files {
 public:
  bool Exists(TextView path) const override;
  std::uint64_t Size(TextView path) const override;
  FileContent Read(TextView path) const override;
  bool SameContent(TextView path, TextView other) const override;
  FileStatus Write(TextView path, std::string_view bytes) override;
  FileStatus Append(TextView path, std::string_view bytes) override;
  FileStatus Copy(TextView from, TextView to) override;
  FileStatus Rename(TextView from, TextView to) override;
  FileStatus Remove(TextView path) override;
  FileStatus MakeFolder(TextView path) override;
  std::vector<Text> ListFolders(TextView folder) const override;
  FileStatus RemoveFolder(TextView folder) override;
  std::vector<Text> List(TextView folder, TextView extension) const override;
};

}  // namespace jotlets
