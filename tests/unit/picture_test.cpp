#include "picture/picture.h"
#include "picture/picture_file.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <limits>

#include "picture/bmp_picture.h"
#include "picture/picture_file.h"

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

TEST(Pictures, AreShownAsLargeAsTheScaleMakesThemOrAsFits) {
  const Rect area{10, 20, 210, 120};
  EXPECT_EQ(PicturePlace({50, 40}, area, 96), (Rect{10, 20, 60, 60}));
  EXPECT_EQ(PicturePlace({50, 40}, area, 192), (Rect{10, 20, 110, 100}));
  EXPECT_EQ(PicturePlace({50, 40}, area, 288), (Rect{47, 20, 172, 120}));
  EXPECT_EQ(PicturePlace({400, 100}, area, 96), (Rect{10, 45, 210, 95}));
  EXPECT_EQ(PicturePlace({}, area, 96), Rect{});
}

TEST(Pictures, TellTheirSizeAndAreMadeSmallerByMeans) {
  EXPECT_EQ(SizeOfPng(kHuge), (Size{100'000, 100'000}));
  EXPECT_EQ(SizeOfPng("GIF89a"), std::nullopt);
  const Picture wide{{4, 1}, {10, 0, 0, 255, 20, 0, 0, 255, 7, 0, 0, 9, 9, 2, 0, 9}};
  const Picture half = Shrunk(wide, {2, 100});
  EXPECT_EQ(half.size, (Size{2, 1}));
  EXPECT_EQ(half.pixels, (Pixels{15, 0, 0, 255, 8, 1, 0, 9}));
  EXPECT_EQ(Shrunk(wide, {4, 1}).pixels, wide.pixels);
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

TEST(PictureFile, GoesToTheClipboardAndComesBack) {
  // One pixel solid, one half transparent, one clear; the last two stand on white there.
  const Picture picture{{1, 3}, {1, 2, 3, 255, 10, 20, 30, 128, 0, 0, 0, 0}};
  const auto pasted = DecodePng(PngOfPicture(BmpOfClipboard(ClipboardOfPng(EncodePng(picture)))));
  ASSERT_TRUE(pasted);
  EXPECT_EQ(pasted->size, picture.size);
  EXPECT_EQ(pasted->pixels, (Pixels{1, 2, 3, 255, 137, 147, 157, 255, 255, 255, 255, 255}));
  EXPECT_EQ(PngOfPicture("no picture") + ClipboardOfPng("no picture"), "");
}

TEST(EncodePng, IsReadBack) {
  const Picture picture{{2, 2}, {1, 2, 3, 255, 10, 20, 30, 128, 0, 0, 0, 0, 255, 254, 0, 255}};
  const auto read = DecodePng(EncodePng(picture));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->size, picture.size);
  EXPECT_EQ(read->pixels, picture.pixels);
  EXPECT_EQ(EncodePng({}), "");
}

// A BMP with a 40-byte header; `table` is what stands between it and the pixels.
std::string Bmp(std::int32_t width, std::int32_t height, int bits, std::string_view table,
                std::string_view pixels, int compression = 0) {
  std::string bytes = "BM";
  const auto put = [&bytes](std::int64_t value, int length) {
    for (int i = 0; i < length; ++i) bytes.push_back(static_cast<char>(i < 8 ? value >> 8 * i : 0));
  };
  put(0, 8);
  put(54 + static_cast<std::int64_t>(table.size()), 4);
  put(40, 4), put(width, 4), put(height, 4), put(1, 2), put(bits, 2), put(compression, 4), put(0, 20);
  return bytes.append(table).append(pixels);
}

const std::string kTwoColours = FromHex("0302010032649600");
const std::string kMaskTable = FromHex("000000FF0000FF0000FF0000");

// 524,288 pixels wide, of one bit.
std::string WideBlackPng(int height) {
  const auto big = [](std::size_t value) {
    return std::string{static_cast<char>(value >> 24), static_cast<char>(value >> 16),
                       static_cast<char>(value >> 8), static_cast<char>(value)};
  };
  const auto chunk = [&big](const std::string& named) {
    return big(named.size() - 4) + named +
           big(crc32(0, reinterpret_cast<const Bytef*>(named.data()), static_cast<uInt>(named.size())));
  };
  const std::string rows(static_cast<std::size_t>(height) * ((1 << 16) + 1), '\0');
  auto length = compressBound(static_cast<uLong>(rows.size()));
  std::string packed(length, '\0');
  EXPECT_EQ(compress(reinterpret_cast<Bytef*>(packed.data()), &length,
                     reinterpret_cast<const Bytef*>(rows.data()), static_cast<uLong>(rows.size())),
            Z_OK);
  return kAlpha.substr(0, 8) +
         chunk("IHDR" + big(1 << 19) + big(static_cast<std::size_t>(height)) + FromHex("0100000000")) +
         chunk("IDAT" + packed.substr(0, length)) + chunk("IEND");
}

TEST(DecodeBmp, UnderstandsEveryDepth) {
  const Pixels one{3, 2, 1, 255}, other{50, 100, 150, 255};
  const struct {
    std::string bytes;
    std::vector<Pixels> pixels;  // 2 x 2, top row first
  } kCases[] = {
      // The bottom row comes first; rows are filled up to four bytes, but for the last.
      {Bmp(2, 2, 1, kTwoColours, FromHex("8000000040")), {one, other, other, one}},
      {Bmp(2, -2, 1, kTwoColours, FromHex("8000000040")), {other, one, one, other}},
      {Bmp(2, 2, 4, kTwoColours, FromHex("100000000F")), {one, {0, 0, 0, 255}, other, one}},
      {Bmp(2, 2, 8, kTwoColours, FromHex("010000000001")), {one, other, other, one}},
      {Bmp(2, 2, 24, "", FromHex("0A0B0C3264960000030201030201")), {one, one, {10, 11, 12, 255}, other}},
      // No alpha anywhere means opaque.
      {Bmp(2, 2, 32, "", FromHex("03020100326496000302010003020100")), {one, one, one, other}},
      {Bmp(2, 2, 32, "", FromHex("646464800302010000000000326496FF")),
       {{0, 0, 0, 0}, other, {50, 50, 50, 128}, {0, 0, 0, 0}}},
      // Sixteen bits are five of each colour, or what masks say.
      {Bmp(2, 2, 16, "", FromHex("1F00E003007CFF7F")),
       {{0, 0, 255, 255}, {255, 255, 255, 255}, {255, 0, 0, 255}, {0, 255, 0, 255}}},
      {Bmp(2, 2, 16, FromHex("00F80000E00700001F000000"), FromHex("1F00E00700F8FFFF"), 3),
       {{0, 0, 255, 255}, {255, 255, 255, 255}, {255, 0, 0, 255}, {0, 255, 0, 255}}},
      {Bmp(2, 2, 32, kMaskTable, FromHex("FF030201003264960003020100030201"), 3), {one, one, one, other}},
  };
  for (const auto& c : kCases) {
    const auto picture = DecodePicture(c.bytes);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->size, (Size{2, 2}));
    Pixels expected;
    for (const Pixels& pixel : c.pixels) expected.insert(expected.end(), pixel.begin(), pixel.end());
    EXPECT_EQ(picture->pixels, expected);
    for (std::size_t length = 0; length < c.bytes.size(); ++length)
      EXPECT_FALSE(DecodePicture(c.bytes.substr(0, length))) << length;
    // The clipboard holds the same without the file header, and names how long its colour table is.
    std::string bitmap = c.bytes.substr(14);
    const bool indexed = bitmap[14] <= 8;
    if (indexed) bitmap[32] = 2;
    const auto pasted = DecodePicture(BmpOfClipboard(bitmap));
    ASSERT_TRUE(pasted);
    EXPECT_EQ(pasted->pixels, picture->pixels);
    EXPECT_EQ(BmpOfClipboard(bitmap.substr(0, 39)), "");
    bitmap[35] = 127;
    EXPECT_EQ(BmpOfClipboard(bitmap), "");
  }
  const auto old = DecodePicture(FromHex("424D00000000000000001D0000000C0000000100010001001800030201"));
  EXPECT_FALSE(old);  // its pixels would begin behind their place
  const auto core = DecodePicture(FromHex("424D00000000000000001A0000000C0000000100010001001800030201"));
  ASSERT_TRUE(core);
  EXPECT_EQ(core->pixels, one);
  const auto corePalette =
      DecodePicture(FromHex("424D0000000000000000200000000C00000001000100010001000000000302018000"));
  ASSERT_TRUE(corePalette);
  EXPECT_EQ(corePalette->pixels, one);
}

TEST(DecodeBmp, UnderstandsEveryHeaderOfTheClipboard) {
  for (const std::uint32_t header : {52u, 56u, 108u, 124u}) {
    for (const bool topDown : {false, true}) {
      std::string bitmap = Bmp(1, topDown ? -2 : 2, 32, kMaskTable, "", 3).substr(14);
      bitmap[0] = static_cast<char>(header);
      // Red, green and blue from the highest byte on; longer headers have alpha in the lowest.
      if (header > 52) bitmap += FromHex("FF000000");
      bitmap.resize(header, '\0');
      bitmap += FromHex("80C86432FF0A141E");
      const auto read = DecodeBmp(BmpOfClipboard(bitmap));
      ASSERT_TRUE(read) << header;
      Pixels first = header > 52 ? Pixels{100, 50, 25, 128} : Pixels{200, 100, 50, 255};
      Pixels second = {10, 20, 30, 255};
      if (!topDown) first.swap(second);
      first.insert(first.end(), second.begin(), second.end());
      EXPECT_EQ(read->pixels, first) << header;
      for (std::size_t length = 0; length < bitmap.size(); ++length)
        EXPECT_FALSE(DecodeBmp(BmpOfClipboard(bitmap.substr(0, length)))) << length;
    }
  }
  // A grab of several screens is larger than a skin may be.
  std::string large = Bmp(5000, 4000, 1, kTwoColours, std::string(628u * 4000, '\0'));
  EXPECT_FALSE(DecodeBmp(large));
  EXPECT_TRUE(DecodeBmp(large, kMaxPicturePixels));
}

TEST(DecodePicture, RefusesSheetsItCannotReadOrThatAreTooLarge) {
  const std::string row(1 << 19, '\0');
  EXPECT_TRUE(DecodePicture(Bmp(1 << 22, 1, 1, kTwoColours, row)));
  std::string rows;
  for (int i = 0; i < 5; ++i) rows += row;
  EXPECT_FALSE(DecodePicture(Bmp(1 << 22, 5, 1, kTwoColours, rows)));
  EXPECT_FALSE(DecodePicture(Bmp(2, 2, 8, kTwoColours, FromHex("0100000000010000"), 1)));
  EXPECT_FALSE(DecodePicture(Bmp(1, 1, 2, kTwoColours, FromHex("00000000"))));
  const std::int32_t least = std::numeric_limits<std::int32_t>::min();
  for (const Size wrong :
       {Size{0, 1}, {1, 0}, {-1, 1}, {least, 1}, {1, least}, {-(least + 1), 1}, {1, -(least + 1)}})
    EXPECT_FALSE(DecodePicture(Bmp(wrong.width, wrong.height, 24, "", FromHex("00000000"))));
  EXPECT_TRUE(DecodePng(EncodePng({{2, 1}, Pixels(8)}), 2));
  EXPECT_FALSE(DecodePng(EncodePng({{2, 1}, Pixels(8)}), 1));
  EXPECT_TRUE(DecodePicture(WideBlackPng(1)));
  EXPECT_FALSE(DecodePicture(WideBlackPng(33)));
}

}  // namespace
}  // namespace jotlets
