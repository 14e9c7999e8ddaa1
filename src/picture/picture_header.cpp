#include "picture/picture_header.h"

#include <algorithm>

#include "base/little_endian.h"
#include "picture/picture.h"

namespace jotlets {
namespace {

using Header = std::optional<PictureHeader>;

std::uint32_t BigEndian16(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at])) << 8 |
         static_cast<unsigned char>(bytes[at + 1]);
}

std::uint32_t BigEndian32(std::string_view bytes, std::size_t at) {
  return BigEndian16(bytes, at) << 16 | BigEndian16(bytes, at + 2);
}

Header Found(PictureFormat format, std::int64_t width, std::int64_t height,
             Orientation orientation = Orientation::kAsItIs) {
  if (width <= 0 || height <= 0) return std::nullopt;
  return PictureHeader{format, {Saturated(width), Saturated(height)}, orientation};
}

// The numbers of the first directory of a TIFF file, or of the same inside a JPEG file, by their tags.
class TiffDirectory {
 public:
  explicit TiffDirectory(std::string_view bytes) : bytes_(bytes) {
    if (bytes.size() < 8) return;
    isBig_ = bytes.starts_with("MM");
    if ((!isBig_ && !bytes.starts_with("II")) || Number16(2) != 42) return;
    const std::size_t start = Number32(4);
    if (start < 8 || start > bytes.size() - 2) return;
    entries_ = start + 2;
    count_ = std::min<std::size_t>(Number16(start), (bytes.size() - entries_) / kEntry);
  }

  // 0 when it is not among them.
  std::uint32_t Find(std::uint32_t tag) const {
    for (std::size_t i = 0; i < count_; ++i) {
      const std::size_t at = entries_ + i * kEntry;
      if (Number16(at) != tag || Number32(at + 4) != 1) continue;
      if (Number16(at + 2) == kShort) return Number16(at + 8);
      if (Number16(at + 2) == kLong) return Number32(at + 8);
    }
    return 0;
  }

  Orientation Lies() const {
    constexpr std::uint32_t kOrientation = 0x112;
    const std::uint32_t number = Find(kOrientation);
    return number >= 1 && number <= 8 ? static_cast<Orientation>(number) : Orientation::kAsItIs;
  }

 private:
  static constexpr std::size_t kEntry = 12;
  static constexpr std::uint32_t kShort = 3;
  static constexpr std::uint32_t kLong = 4;

  std::uint32_t Number16(std::size_t at) const {
    return isBig_ ? BigEndian16(bytes_, at) : LittleEndian16(bytes_, at);
  }
  std::uint32_t Number32(std::size_t at) const {
    return isBig_ ? BigEndian32(bytes_, at) : LittleEndian32(bytes_, at);
  }

  std::string_view bytes_;
  bool isBig_ = false;
  std::size_t entries_ = 0;
  std::size_t count_ = 0;
};

Header ReadTiff(std::string_view bytes) {
  const TiffDirectory directory(bytes);
  return Found(PictureFormat::kTiff, directory.Find(256), directory.Find(257), directory.Lies());
}

bool IsFrameOfJpeg(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// Goes from one segment to the next, up to the one that tells the size; what a camera says stands before it.
Header ReadJpeg(std::string_view bytes) {
  constexpr std::string_view kExif("Exif\0\0", 6);
  Orientation orientation = Orientation::kAsItIs;
  bool isKnown = false;
  std::size_t at = 2;
  while (at + 4 <= bytes.size() && static_cast<unsigned char>(bytes[at]) == 0xFF) {
    const unsigned marker = static_cast<unsigned char>(bytes[at + 1]);
    if (marker == 0xFF) {
      ++at;  // filling
      continue;
    }
    if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7)) {
      at += 2;
      continue;
    }
    const std::size_t length = BigEndian16(bytes, at + 2);
    if (length < 2 || marker == 0xD9 || marker == 0xDA) return std::nullopt;
    const std::string_view segment = bytes.substr(at + 4, length - 2);
    if (IsFrameOfJpeg(marker)) {
      if (segment.size() < 5) return std::nullopt;
      return Found(PictureFormat::kJpeg, BigEndian16(segment, 3), BigEndian16(segment, 1), orientation);
    }
    if (marker == 0xE1 && !isKnown && segment.starts_with(kExif)) {
      orientation = TiffDirectory(segment.substr(kExif.size())).Lies();
      isKnown = true;
    }
    at += 2 + length;
  }
  return std::nullopt;
}

Header ReadGif(std::string_view bytes) {
  if (bytes.size() < 10) return std::nullopt;
  return Found(PictureFormat::kGif, LittleEndian16(bytes, 6), LittleEndian16(bytes, 8));
}

Header ReadBmp(std::string_view bytes) {
  if (bytes.size() < 26) return std::nullopt;
  if (LittleEndian32(bytes, 14) == 12)
    return Found(PictureFormat::kBmp, LittleEndian16(bytes, 18), LittleEndian16(bytes, 20));
  const std::int64_t height = static_cast<std::int32_t>(LittleEndian32(bytes, 22));
  return Found(PictureFormat::kBmp, static_cast<std::int32_t>(LittleEndian32(bytes, 18)),
               height < 0 ? -height : height);
}

// An entry says at most 256; a PNG that it leads to may be larger.
Header ReadIcon(std::string_view bytes) {
  constexpr std::size_t kHead = 6;
  constexpr std::size_t kEntry = 16;
  Size largest;
  for (std::size_t i = 0; i < LittleEndian16(bytes, 4) && kHead + (i + 1) * kEntry <= bytes.size(); ++i) {
    const std::size_t at = kHead + i * kEntry;
    const auto side = [&](std::size_t place) {
      const auto byte = static_cast<unsigned char>(bytes[place]);
      return byte == 0 ? 256 : std::int32_t{byte};
    };
    Size size{side(at), side(at + 1)};
    const std::size_t start = LittleEndian32(bytes, at + 12);
    if (start < bytes.size()) size = SizeOfPng(bytes.substr(start)).value_or(size);
    if (std::int64_t{size.width} * size.height > std::int64_t{largest.width} * largest.height) largest = size;
  }
  return Found(PictureFormat::kIcon, largest.width, largest.height);
}

Header ReadWebp(std::string_view bytes) {
  constexpr std::uint32_t kSide = 0x3FFF;
  if (bytes.size() < 30) return std::nullopt;
  const std::string_view kind = bytes.substr(12, 4);
  if (kind == "VP8 ")
    return Found(PictureFormat::kWebp, LittleEndian16(bytes, 26) & kSide, LittleEndian16(bytes, 28) & kSide);
  if (kind == "VP8L") {
    const std::uint32_t sides = LittleEndian32(bytes, 21);
    return Found(PictureFormat::kWebp, std::int64_t{sides & kSide} + 1,
                 std::int64_t{(sides >> 14) & kSide} + 1);
  }
  if (kind != "VP8X") return std::nullopt;
  const auto side = [&](std::size_t at) { return std::int64_t{LittleEndian32(bytes, at - 1) >> 8} + 1; };
  return Found(PictureFormat::kWebp, side(24), side(27));
}

}  // namespace

std::optional<PictureHeader> ReadPictureHeader(std::string_view bytes) {
  if (bytes.size() < 8) return std::nullopt;
  if (const auto size = SizeOfPng(bytes)) return Found(PictureFormat::kPng, size->width, size->height);
  if (bytes.starts_with("\xFF\xD8\xFF")) return ReadJpeg(bytes);
  if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")) return ReadGif(bytes);
  if (bytes.starts_with("BM")) return ReadBmp(bytes);
  if (bytes.starts_with("II") || bytes.starts_with("MM")) return ReadTiff(bytes);
  if (bytes.starts_with(std::string_view("\0\0\1\0", 4))) return ReadIcon(bytes);
  if (bytes.starts_with("RIFF") && bytes.substr(8).starts_with("WEBP")) return ReadWebp(bytes);
  return std::nullopt;
}

}  // namespace jotlets
