#include "skin/zip_archive.h"

#include <zlib.h>

#include <algorithm>

#include "base/little_endian.h"

namespace jotlets {
namespace {

constexpr std::string_view kEndMark = "PK\x05\x06";
constexpr std::string_view kDirectoryMark = "PK\x01\x02";
constexpr std::string_view kLocalMark = "PK\x03\x04";
constexpr std::size_t kEndLength = 22;
constexpr std::size_t kDirectoryLength = 46;
constexpr std::size_t kLocalLength = 30;
constexpr std::size_t kLongestComment = 0xFFFF;

constexpr std::uint32_t kEncrypted = 1;
constexpr std::uint32_t kStored = 0;
constexpr std::uint32_t kDeflated = 8;

char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return FoldAscii(x) == FoldAscii(y); });
}

// The record at the end of an archive, which only a comment may follow.
std::size_t FindEnd(std::string_view bytes) {
  if (bytes.size() < kEndLength) return std::string_view::npos;
  const std::size_t last = bytes.size() - kEndLength;
  const std::size_t first = last > kLongestComment ? last - kLongestComment : 0;
  for (std::size_t at = bytes.rfind(kEndMark, last); at != std::string_view::npos && at >= first;
       at = at == 0 ? std::string_view::npos : bytes.rfind(kEndMark, at - 1)) {
    if (at + kEndLength + LittleEndian16(bytes, at + 20) == bytes.size()) return at;
  }
  return std::string_view::npos;
}

// Ends the inflation on every way out.
struct Inflation {
  z_stream stream{};
  bool started = false;
  Inflation() { started = inflateInit2(&stream, -MAX_WBITS) == Z_OK; }
  ~Inflation() {
    if (started) inflateEnd(&stream);
  }
  Inflation(const Inflation&) = delete;
  Inflation& operator=(const Inflation&) = delete;
};

// Grows with what really comes out: the declared size is not believed.
std::optional<std::string> Inflate(std::string_view packed, std::size_t maximum) {
  Inflation inflation;
  if (!inflation.started || packed.size() > kMaxInflated) return std::nullopt;
  z_stream& stream = inflation.stream;
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  std::string out;
  for (int result = Z_OK; result != Z_STREAM_END;) {
    const std::size_t filled = out.size();
    // One byte more than is allowed, so that what is too long can be told.
    const std::size_t room = std::min(std::max<std::size_t>(filled, 65536), maximum + 1 - filled);
    out.resize(filled + room);
    stream.next_out = reinterpret_cast<Bytef*>(out.data() + filled);
    stream.avail_out = static_cast<uInt>(room);
    result = inflate(&stream, Z_NO_FLUSH);
    out.resize(out.size() - stream.avail_out);
    if ((result != Z_OK && result != Z_STREAM_END) || out.size() > maximum) return std::nullopt;
  }
  return out;
}

}  // namespace

ZipArchive::ZipArchive(std::string_view bytes) : bytes_(bytes) {
  const std::size_t end = FindEnd(bytes);
  if (end != std::string_view::npos) ReadDirectory(end);
}

void ZipArchive::ReadDirectory(std::size_t end) {
  const bool oneDisk = LittleEndian16(bytes_, end + 4) == 0 && LittleEndian16(bytes_, end + 6) == 0 &&
                       LittleEndian16(bytes_, end + 8) == LittleEndian16(bytes_, end + 10);
  // An archive with 64-bit numbers has all bits set here; such an offset lies behind the end.
  std::size_t at = LittleEndian32(bytes_, end + 16);
  if (!oneDisk || at > end) return;
  for (std::uint32_t left = LittleEndian16(bytes_, end + 10); left > 0; --left) {
    if (end - at < kDirectoryLength || bytes_.substr(at, 4) != kDirectoryMark) return entries_.clear();
    const std::size_t nameLength = LittleEndian16(bytes_, at + 28);
    const std::size_t length =
        kDirectoryLength + nameLength + LittleEndian16(bytes_, at + 30) + LittleEndian16(bytes_, at + 32);
    if (end - at < length) return entries_.clear();
    entries_.push_back({bytes_.substr(at + kDirectoryLength, nameLength), LittleEndian16(bytes_, at + 8),
                        LittleEndian16(bytes_, at + 10), LittleEndian32(bytes_, at + 16),
                        LittleEndian32(bytes_, at + 20), LittleEndian32(bytes_, at + 24),
                        LittleEndian32(bytes_, at + 42)});
    at += length;
  }
}

std::optional<std::string_view> ZipArchive::PackedBytes(const Entry& entry) const {
  const std::size_t at = entry.offset;
  if (at > bytes_.size() || bytes_.size() - at < kLocalLength) return std::nullopt;
  if (bytes_.substr(at, 4) != kLocalMark) return std::nullopt;
  // The lengths of name and extra field are the local header's own: they may differ from the directory's.
  const std::size_t begin =
      at + kLocalLength + LittleEndian16(bytes_, at + 26) + LittleEndian16(bytes_, at + 28);
  if (begin > bytes_.size() || bytes_.size() - begin < entry.packedSize) return std::nullopt;
  return bytes_.substr(begin, entry.packedSize);
}

std::optional<std::string> ZipArchive::Read(std::string_view name, std::size_t maximum) const {
  if (name.find_first_of("/\\") != std::string_view::npos) return std::nullopt;
  const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                  [name](const Entry& candidate) { return SameName(candidate.name, name); });
  maximum = std::min(maximum, kMaxInflated);
  if (entry == entries_.end() || (entry->flags & kEncrypted) != 0 || entry->size > maximum)
    return std::nullopt;
  const auto packed = PackedBytes(*entry);
  if (!packed) return std::nullopt;
  const auto unpacked = [&]() -> std::optional<std::string> {
    if (entry->method == kDeflated) return Inflate(*packed, entry->size);
    return entry->method == kStored ? std::optional<std::string>(*packed) : std::nullopt;
  };
  const std::optional<std::string> bytes = unpacked();
  if (!bytes || bytes->size() != entry->size) return std::nullopt;
  const auto crc = crc32(0, reinterpret_cast<const Bytef*>(bytes->data()), static_cast<uInt>(bytes->size()));
  return crc == entry->crc ? bytes : std::nullopt;
}

}  // namespace jotlets
