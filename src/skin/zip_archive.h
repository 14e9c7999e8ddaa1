// Reading files out of a zip archive in memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jotlets {

/// No file is taken out of an archive that is larger when inflated, whatever its size is declared to be.
inline constexpr std::size_t kMaxInflated = 64 * 1024 * 1024;

/// The stored and deflated files of one archive. Archives that are damaged, span several disks or need 64-bit
/// sizes hold nothing.
class ZipArchive {
 public:
  /// `bytes` are looked into at every `Read`, and must stay.
  explicit ZipArchive(std::string_view bytes);

  /// The file called `name`, which is compared byte by byte but without regard to ASCII case. Nothing when
  /// there is none, when the name holds a path separator, or when the file is encrypted, compressed in
  /// another way, damaged (its checksum is looked at), or larger than `most` bytes.
  std::optional<std::string> Read(std::string_view name, std::size_t maximum = kMaxInflated) const;

 private:
  struct Entry {
    std::string_view name;
    std::uint32_t flags;
    std::uint32_t method;
    std::uint32_t crc;
    std::uint32_t packedSize;
    std::uint32_t size;
    std::uint32_t offset;  // of its local header
  };
  void ReadDirectory(std::size_t end);
  std::optional<std::string_view> PackedBytes(const Entry& entry) const;

  std::string_view bytes_;
  std::vector<Entry> entries_;
};

}  // namespace jotlets
