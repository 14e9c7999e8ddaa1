// Files of which those that the database library writes itself lie on the disk.
#pragma once

#include <filesystem>

#include "data/data_folder.h"
#include "fakes.h"
#include "store/search_index.h"

namespace jotlets {

class StoreDisk : public FakeFiles {
 public:
  bool Exists(TextView path) const override {
    return IsOnDisk(path) ? std::filesystem::exists(path) : FakeFiles::Exists(path);
  }
  std::uint64_t Size(TextView path) const override {
    return IsOnDisk(path) ? std::filesystem::file_size(path) : FakeFiles::Size(path);
  }
  FileStatus Rename(TextView from, TextView to) override {
    if (!IsOnDisk(from)) return FakeFiles::Rename(from, to);
    if (!TakesChange()) return FileStatus::Failed(u"no");
    std::filesystem::rename(from, to);
    return {};
  }
  FileStatus Remove(TextView path) override {
    if (!IsOnDisk(path)) return FakeFiles::Remove(path);
    if (!TakesChange()) return FileStatus::Failed(u"no");
    std::filesystem::remove(path);
    return {};
  }

 private:
  static bool IsOnDisk(TextView path) {
    return path.find(kStoreFileName) != TextView::npos || path.find(kSearchIndexName) != TextView::npos;
  }
};

}  // namespace jotlets
