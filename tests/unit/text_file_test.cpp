#include "data/text_file.h"

#include <gtest/gtest.h>

#include "data/rtf_bytes.h"
#include "fakes.h"

namespace jotlets {
namespace {

TextFile Decode(std::string_view bytes) { return DecodeTextFile(bytes, Latin1()); }

TEST(TextFile, IsWrittenAsUtf16LittleEndianWithItsMark) {
  EXPECT_EQ(EncodeTextFile(u"A\u20ac"), "\xFF\xFE" + std::string("A\0\xAC\x20", 4));
  EXPECT_EQ(EncodeTextFile(u""), "\xFF\xFE");
}

TEST(TextFile, ReadsTheSameInEveryEncoding) {
  const Text text = u"[Jotlets]\r\n\u00fc\u00e9";
  for (const std::string& bytes :
       {EncodeTextFile(text), "\xEF\xBB\xBF" + ToUtf8(text), Latin1().Encode(text)}) {
    EXPECT_EQ(Decode(bytes).text, text);
    EXPECT_FALSE(Decode(bytes).damaged);
  }
  const Text unpaired{0xDC00, u'x', 0xD800, u'\n'};
  EXPECT_EQ(Decode(EncodeTextFile(unpaired)).text, unpaired);
}

TEST(TextFile, TellsDamage) {
  const std::string whole = EncodeTextFile(u"ab\n");
  EXPECT_TRUE(Decode(whole.substr(0, whole.size() - 1)).damaged);
  EXPECT_TRUE(Decode(EncodeTextFile(u"ab" + Text{0xD83D})).damaged);
  EXPECT_TRUE(Decode("\xEF\xBB\xBF"
                     "ab\xC3")
                  .damaged);
  for (const std::size_t zeros : {std::size_t{1}, std::size_t{2}, std::size_t{4096}}) {
    EXPECT_TRUE(Decode(whole + std::string(zeros, '\0')).damaged) << zeros;
    EXPECT_EQ(Decode(whole + std::string(zeros, '\0')).text, u"ab\n");
    EXPECT_TRUE(Decode(std::string(zeros, '\0')).damaged);
  }
}

TEST(Lines, EndInALineFeedWithOrWithoutACarriageReturn) {
  LineReader reader(u"a\r\n\nb\rc\n\r\nd");
  std::vector<Text> lines;
  for (TextView line; reader.Next(line);) lines.emplace_back(line);
  EXPECT_EQ(lines, (std::vector<Text>{u"a", u"", u"b\rc", u"", u"d"}));
}

TEST(RtfBytes, AreAsciiWhateverTheText) {
  EXPECT_EQ(RtfBytes(u"{\\rtf1 a\r\n}"), "{\\rtf1 a\r\n}");
  EXPECT_EQ(RtfBytes(u"\u00fc\u20ac" + Text{0xD83D}), "\\u252?\\u8364?\\u-10179?");
}

}  // namespace
}  // namespace jotlets
