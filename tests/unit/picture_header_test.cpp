#include "picture/picture_header.h"

#include <gtest/gtest.h>

#include "picture/picture.h"

namespace jotlets {
namespace {

std::string Bytes(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text.push_back(static_cast<char>(byte));
  return text;
}

std::string Number(std::uint32_t number, int bytes, bool big) {
  std::string text;
  for (int i = 0; i < bytes; ++i) {
    const auto byte = static_cast<char>(number >> 8 * i & 0xFF);
    text.insert(big ? text.begin() : text.end(), byte);
  }
  return text;
}

// A directory of short numbers.
std::string Tiff(bool big, std::initializer_list<std::pair<std::uint32_t, std::uint32_t>> entries) {
  std::string text = (big ? "MM" : "II") + Number(42, 2, big) + Number(8, 4, big) +
                     Number(static_cast<std::uint32_t>(entries.size()), 2, big);
  for (const auto& [tag, value] : entries)
    text += Number(tag, 2, big) + Number(3, 2, big) + Number(1, 4, big) + Number(value, 2, big) +
            std::string(2, '\0');
  return text + std::string(4, '\0');
}

std::string Segment(int marker, const std::string& content) {
  return Bytes({0xFF, marker}) + Number(static_cast<std::uint32_t>(content.size() + 2), 2, true) + content;
}

std::string Jpeg(const std::string& before) {
  return Bytes({0xFF, 0xD8}) + Segment(0xE0, "JFIF") + before + Bytes({0xFF}) +
         Segment(0xC2, Bytes({8, 0x0B, 0xB8, 0x0F, 0xA0, 3})) + Bytes({0xFF, 0xDA});
}

const std::string kExif("Exif\0\0", 6);

TEST(PictureHeader, TellsTheSizeOfEveryFormat) {
  const struct {
    PictureFormat format;
    Size size;
    std::string bytes;
  } kCases[] = {
      {PictureFormat::kPng, {3, 2}, EncodePng(BlankPicture({3, 2}))},
      {PictureFormat::kJpeg, {4000, 3000}, Jpeg("")},
      {PictureFormat::kGif, {300, 2}, "GIF89a" + Bytes({0x2C, 1, 2, 0, 0})},
      {PictureFormat::kBmp,
       {5, 6},
       "BM" + std::string(12, 'x') + Number(40, 4, false) + Number(5, 4, false) +
           Number(static_cast<std::uint32_t>(-6), 4, false)},
      {PictureFormat::kBmp,
       {5, 6},
       "BM" + std::string(12, 'x') + Number(12, 4, false) + Number(5, 2, false) + Number(6, 2, false) +
           "xxxx"},
      {PictureFormat::kTiff, {70, 80}, Tiff(false, {{256, 70}, {257, 80}, {274, 6}})},
      {PictureFormat::kIcon,
       {256, 48},
       Bytes({0, 0, 1, 0, 2, 0, 16, 16}) + std::string(14, '\0') + Bytes({0, 48}) + std::string(14, '\xFF')},
      {PictureFormat::kIcon,
       {300, 300},
       Bytes({0, 0, 1, 0, 1, 0, 0, 0}) + std::string(10, '\0') + Number(22, 4, false) +
           EncodePng(BlankPicture({300, 300}))},
      {PictureFormat::kWebp,
       {550, 368},
       "RIFFxxxxWEBPVP8 xxxx" + Bytes({0, 0, 0, 0x9D, 1, 0x2A, 0x26, 0x42, 0x70, 0x81})},
      {PictureFormat::kWebp,
       {386, 395},
       "RIFFxxxxWEBPVP8Lxxxx" + Bytes({0x2F, 0x81, 0x81, 0x62, 0}) + "xxxxx"},
      {PictureFormat::kWebp, {65537, 2}, "RIFFxxxxWEBPVP8Xxxxx" + Bytes({0, 0, 0, 0, 0, 0, 1, 1, 0, 0})},
  };
  for (const auto& c : kCases) {
    const auto header = ReadPictureHeader(c.bytes);
    ASSERT_TRUE(header) << static_cast<int>(c.format);
    EXPECT_EQ(header->format, c.format);
    EXPECT_EQ(header->size, c.size) << static_cast<int>(c.format);
    for (std::size_t length = 0; length < c.bytes.size(); ++length)
      ReadPictureHeader(c.bytes.substr(0, length));
    EXPECT_FALSE(ReadPictureHeader(c.bytes.substr(0, 7)));
  }
  EXPECT_FALSE(ReadPictureHeader("GIF89a" + Bytes({0, 0, 2, 0})));
  EXPECT_FALSE(ReadPictureHeader("not a picture at all"));
}

TEST(PictureHeader, TellsHowTheCameraLay) {
  for (std::uint32_t number = 0; number <= 9; ++number) {
    for (const bool big : {false, true}) {
      const std::string tiff = Tiff(big, {{256, 70}, {257, 80}, {274, number}});
      const auto expected =
          number >= 1 && number <= 8 ? static_cast<Orientation>(number) : Orientation::kAsItIs;
      EXPECT_EQ(ReadPictureHeader(tiff)->orientation, expected);
      const auto jpeg = ReadPictureHeader(Jpeg(Segment(0xE1, kExif + tiff)));
      ASSERT_TRUE(jpeg);
      EXPECT_EQ(jpeg->orientation, expected);
      EXPECT_EQ(jpeg->size, (Size{4000, 3000}));
    }
  }
  const std::string lies = kExif + Tiff(true, {{274, 6}});
  // Other segments of that marker do not count, and of several only the first.
  EXPECT_EQ(ReadPictureHeader(Jpeg(Segment(0xE1, "http://") + Segment(0xE1, lies) +
                                   Segment(0xE1, kExif + Tiff(true, {{274, 3}}))))
                ->orientation,
            Orientation::kTurnedRight);
  for (std::size_t length = 0; length < lies.size(); ++length)
    EXPECT_TRUE(ReadPictureHeader(Jpeg(Segment(0xE1, lies.substr(0, length))))) << length;
}

}  // namespace
}  // namespace jotlets
