#include "skin/picture.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

std::string FromHex(std::string_view hex) {
  std::string bytes;
  for (std::size_t at = 0; at + 2 <= hex.size(); at += 2) {
    bytes.push_back(static_cast<char>(std::stoi(std::string(hex.substr(at, 2)), nullptr, 16)));
  }
  return bytes;
}

// 3 x 1 with alpha: opaque (10, 20, 30), half red, invisible (9, 9, 9).
const std::string kAlpha = FromHex(
    "89504E470D0A1A0A0000000D4948445200000003000000010806000000"
    "1BE014B4000000154944415478DA63E01291FBFF9F81A181"
    "9393930100164D02D6C8687DF60000000049454E44AE426082");
// 2 x 2 of one bit over the palette (1, 2, 3), (200, 100, 50): the second, and the opposite corner, are set.
const std::string kPalette = FromHex(
    "89504E470D0A1A0A0000000D494844520000000200000002010300000048789F6700000006504C5445010203C8643250B4AE3F00"
    "00000C"
    "4944415478DA637060680000014400C10487CFFA0000000049454E44AE426082");
// Claims 100,000 x 100,000.
const std::string kHuge = FromHex(
    "89504E470D0A1A0A0000000D49484452000186A0000186A00806000000A8520BC80000000B4944415478DA6360800100000A0001"
    "EC2403B9"
    "0000000049454E44AE426082");

using Pixels = std::vector<std::uint8_t>;

TEST(DecodePng, GivesColoursMultipliedByAlphaInBlueGreenRedOrder) {
  const auto picture = DecodePng(kAlpha);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->size, (Size{3, 1}));
  EXPECT_EQ(picture->pixels, (Pixels{30, 20, 10, 255, 0, 0, 128, 128, 0, 0, 0, 0}));
}

TEST(DecodePng, UnderstandsPalettes) {
  const auto picture = DecodePng(kPalette);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->size, (Size{2, 2}));
  EXPECT_EQ(picture->pixels, (Pixels{3, 2, 1, 255, 50, 100, 200, 255, 50, 100, 200, 255, 3, 2, 1, 255}));
}

TEST(DecodePng, RefusesWhatIsNoPngTooLargeOrCut) {
  for (const std::string& bytes : {std::string("GIF89a"), kHuge}) EXPECT_FALSE(DecodePng(bytes));
  const std::size_t pixelsEnd = kAlpha.find("IEND") - 8;
  for (std::size_t length = 0; length < pixelsEnd; ++length)
    EXPECT_FALSE(DecodePng(kAlpha.substr(0, length))) << length;
}

TEST(DecodePng, RefusesChangedPixels) {
  const std::size_t pixels = kAlpha.find("IDAT") + 4;
  for (std::size_t bit = pixels * 8; bit < (kAlpha.find("IEND") - 4) * 8; ++bit) {
    std::string bytes = kAlpha;
    bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ (1 << bit % 8));
    EXPECT_FALSE(DecodePng(bytes)) << bit;
  }
}

TEST(EncodePng, IsReadBack) {
  const Picture picture{{2, 2}, {1, 2, 3, 255, 10, 20, 30, 128, 0, 0, 0, 0, 255, 254, 0, 255}};
  const auto read = DecodePng(EncodePng(picture));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->size, picture.size);
  EXPECT_EQ(read->pixels, picture.pixels);
  EXPECT_EQ(EncodePng({}), "");
}

}  // namespace
}  // namespace jotlets
