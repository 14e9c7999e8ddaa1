#include "picture/picture_file.h"

#include <cstdint>

#include "base/little_endian.h"
#include "picture/bmp_picture.h"

namespace jotlets {
namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::uint32_t kBitFields = 3;

void AppendNumber(std::string& out, std::uint32_t number) {
  for (int shift = 0; shift < 32; shift += 8) out.push_back(static_cast<char>((number >> shift) & 0xFF));
}

}  // namespace

std::string PngOfPicture(std::string_view bytes) {
  if (DecodePng(bytes)) return std::string(bytes);
  const auto picture = DecodeBmp(bytes, kMaxPicturePixels);
  return picture ? EncodePng(*picture) : std::string();
}

std::string BmpOfClipboard(std::string_view bitmap) {
  if (bitmap.size() < kInfoHeader) return {};
  const std::uint32_t header = LittleEndian32(bitmap, 0);
  const std::uint32_t bits = LittleEndian16(bitmap, 14);
  const std::uint32_t colours = LittleEndian32(bitmap, 32);
  std::uint64_t pixels = std::uint64_t{kFileHeader} + header;
  if (header == kInfoHeader && LittleEndian32(bitmap, 16) == kBitFields) pixels += 12;
  pixels += std::uint64_t{4} * (colours == 0 && bits <= 8 ? 1u << bits : colours);
  if (pixels > kFileHeader + bitmap.size()) return {};
  std::string file = "BM";
  AppendNumber(file, static_cast<std::uint32_t>(kFileHeader + bitmap.size()));
  AppendNumber(file, 0);
  AppendNumber(file, static_cast<std::uint32_t>(pixels));
  return file.append(bitmap);
}

std::string ClipboardOfPng(std::string_view png) {
  const auto picture = DecodePng(png);
  if (!picture) return {};
  const auto row = static_cast<std::size_t>(picture->size.width) * 4;
  const auto rows = static_cast<std::size_t>(picture->size.height);
  std::string bitmap;
  bitmap.reserve(kInfoHeader + picture->pixels.size());
  AppendNumber(bitmap, kInfoHeader);
  AppendNumber(bitmap, static_cast<std::uint32_t>(picture->size.width));
  AppendNumber(bitmap, static_cast<std::uint32_t>(picture->size.height));
  AppendNumber(bitmap, 1 | 32 << 16);  // one plane, 32 bits
  bitmap.resize(kInfoHeader);
  // The bottom row comes first.
  for (std::size_t y = rows; y-- > 0;) {
    for (std::size_t at = y * row; at < (y + 1) * row; at += 4) {
      const int white = 255 - picture->pixels[at + 3];
      for (std::size_t part = 0; part < 3; ++part)
        bitmap.push_back(static_cast<char>(picture->pixels[at + part] + white));
      bitmap.push_back(static_cast<char>(255));
    }
  }
  return bitmap;
}

}  // namespace jotlets
