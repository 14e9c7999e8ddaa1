#include "picture/bmp_picture.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "base/little_endian.h"

namespace jotlets {
namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::uint32_t kCoreHeader = 12;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kHeaderWithAlphaMask = 56;
constexpr std::size_t kMasks = kFileHeader + kInfoHeader;  // inside longer headers, behind the short one

constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint32_t kBitFields = 3;

using Channels = std::array<std::uint8_t, 4>;  // blue, green, red, alpha

struct Header {
  std::uint32_t length = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;
  bool topDown = false;
  std::uint32_t bits = 0;
  bool masked = false;
  std::array<std::uint32_t, 4> masks{0x000000FF, 0x0000FF00, 0x00FF0000, 0xFF000000};  // as in Channels
  std::uint32_t paletteSize = 0;
  std::size_t pixels = 0;  // where they begin

  std::int64_t BytesOfRow() const { return (width * bits + 7) / 8; }
  std::int64_t Stride() const { return (BytesOfRow() + 3) / 4 * 4; }
};

void UseMasks(Header& header, const std::array<std::uint32_t, 4>& masks) {
  header.masked = true;
  header.masks = masks;
}

void ReadMasks(Header& header, std::string_view bytes) {
  const bool hasAlpha = header.length >= kHeaderWithAlphaMask;
  UseMasks(header, {LittleEndian32(bytes, kMasks + 8), LittleEndian32(bytes, kMasks + 4),
                    LittleEndian32(bytes, kMasks), hasAlpha ? LittleEndian32(bytes, kMasks + 12) : 0});
}

// The part of the header that follows its length; false when there is no picture that we read.
bool ReadInfoHeader(Header& header, std::string_view bytes) {
  const auto height = static_cast<std::int32_t>(LittleEndian32(bytes, 22));
  header.width = static_cast<std::int32_t>(LittleEndian32(bytes, 18));
  header.topDown = height < 0;
  header.height = header.topDown ? -std::int64_t{height} : height;
  header.bits = LittleEndian16(bytes, 28);
  const std::uint32_t compression = LittleEndian32(bytes, 30);
  header.paletteSize = LittleEndian32(bytes, 46);
  if (compression == kUncompressed) return true;
  const bool masksAreThere = bytes.size() >= kMasks + (header.length >= kHeaderWithAlphaMask ? 16 : 12);
  if (compression != kBitFields || (header.bits != 16 && header.bits != 32) || !masksAreThere) return false;
  ReadMasks(header, bytes);
  return true;
}

std::optional<Header> ReadHeader(std::string_view bytes, std::int64_t maximum) {
  if (bytes.size() < kFileHeader + kCoreHeader || !bytes.starts_with("BM")) return std::nullopt;
  Header header;
  header.pixels = LittleEndian32(bytes, 10);
  header.length = LittleEndian32(bytes, kFileHeader);
  if (header.length == kCoreHeader) {
    header.width = LittleEndian16(bytes, 18);
    header.height = LittleEndian16(bytes, 20);
    header.bits = LittleEndian16(bytes, 24);
  } else if (header.length < kInfoHeader || bytes.size() < kFileHeader + kInfoHeader ||
             !ReadInfoHeader(header, bytes)) {
    return std::nullopt;
  }
  if (header.bits == 16 && !header.masked) UseMasks(header, {0x1F, 0x1F << 5, 0x1F << 10, 0});
  constexpr std::array<std::uint32_t, 6> kDepths = {1, 4, 8, 16, 24, 32};
  if (std::find(kDepths.begin(), kDepths.end(), header.bits) == kDepths.end()) return std::nullopt;
  if (header.width <= 0 || header.height <= 0 || header.width > maximum / header.height) return std::nullopt;
  // The last row may lack its padding.
  const std::int64_t needed = header.Stride() * (header.height - 1) + header.BytesOfRow();
  if (header.pixels > bytes.size() || needed > static_cast<std::int64_t>(bytes.size() - header.pixels))
    return std::nullopt;
  return header;
}

// Indices beyond the palette are black.
std::array<Channels, 256> ReadPalette(const Header& header, std::string_view bytes) {
  std::array<Channels, 256> palette{};
  palette.fill({0, 0, 0, 255});
  const std::size_t entryLength = header.length == kCoreHeader ? 3 : 4;
  const std::size_t whole = std::size_t{1} << std::min(header.bits, 8U);
  const std::size_t count =
      header.paletteSize == 0 ? whole : std::min<std::size_t>(header.paletteSize, whole);
  std::size_t at = kFileHeader + std::size_t{header.length};
  for (std::size_t i = 0; i < count && at + 3 <= bytes.size(); ++i, at += entryLength) {
    for (std::size_t c = 0; c < 3; ++c) palette[i][c] = static_cast<std::uint8_t>(bytes[at + c]);
  }
  return palette;
}

// The bits of `value` under `mask`, brought to the range 0 to 255.
std::uint8_t Channel(std::uint32_t value, std::uint32_t mask) {
  if (mask == 0) return 0;
  const int shift = std::countr_zero(mask);
  const std::uint64_t maximum = mask >> shift;
  return static_cast<std::uint8_t>(((value & mask) >> shift) * std::uint64_t{255} / maximum);
}

Channels DirectPixel(const Header& header, std::string_view row, std::size_t x) {
  Channels pixel{0, 0, 0, 255};
  if (header.bits == 24) {
    for (std::size_t c = 0; c < 3; ++c) pixel[c] = static_cast<std::uint8_t>(row[x * 3 + c]);
  } else if (header.bits == 32 && !header.masked) {
    for (std::size_t c = 0; c < 4; ++c) pixel[c] = static_cast<std::uint8_t>(row[x * 4 + c]);
  } else {
    const std::uint32_t value = header.bits == 16 ? LittleEndian16(row, x * 2) : LittleEndian32(row, x * 4);
    for (std::size_t c = 0; c < 4; ++c) pixel[c] = Channel(value, header.masks[c]);
  }
  return pixel;
}

// Several pixels share a byte, the leftmost in its highest bits.
std::size_t PaletteIndex(const Header& header, std::string_view row, std::size_t x) {
  const std::size_t perByte = 8 / header.bits;
  const auto byte = static_cast<std::uint8_t>(row[x / perByte]);
  const std::size_t shift = (perByte - 1 - x % perByte) * header.bits;
  return (byte >> shift) & ((1U << header.bits) - 1);
}

void DecodeRow(const Header& header, const std::array<Channels, 256>& palette, std::string_view row,
               std::uint8_t* to) {
  for (std::size_t x = 0; x < static_cast<std::size_t>(header.width); ++x, to += 4) {
    const Channels pixel =
        header.bits <= 8 ? palette[PaletteIndex(header, row, x)] : DirectPixel(header, row, x);
    std::copy(pixel.begin(), pixel.end(), to);
  }
}

void OpaqueUnlessAlphaIsUsed(std::vector<std::uint8_t>& pixels) {
  for (std::size_t at = 3; at < pixels.size(); at += 4) {
    if (pixels[at] != 0) return;
  }
  for (std::size_t at = 3; at < pixels.size(); at += 4) pixels[at] = 255;
}

}  // namespace

std::optional<Picture> DecodeBmp(std::string_view bytes, std::int64_t maximum) {
  const auto header = ReadHeader(bytes, maximum);
  if (!header) return std::nullopt;
  const auto width = static_cast<std::size_t>(header->width);
  const auto height = static_cast<std::size_t>(header->height);
  StraightPicture picture;
  picture.size = {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
  picture.pixels.resize(width * height * 4);
  const auto palette = ReadPalette(*header, bytes);
  for (std::size_t y = 0; y < height; ++y) {
    const std::size_t stored = header->topDown ? y : height - 1 - y;
    DecodeRow(*header, palette,
              bytes.substr(header->pixels + stored * static_cast<std::size_t>(header->Stride())),
              picture.pixels.data() + y * width * 4);
  }
  OpaqueUnlessAlphaIsUsed(picture.pixels);
  return Premultiplied(std::move(picture));
}

std::optional<Picture> DecodePicture(std::string_view bytes) {
  return bytes.starts_with("BM") ? DecodeBmp(bytes) : DecodePng(bytes, kMaxSheetPixels);
}

}  // namespace jotlets
