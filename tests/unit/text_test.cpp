#include "base/text.h"

#include <gtest/gtest.h>

#include <limits>

#include "fakes.h"

namespace jotlets {
namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

TEST(ParseInt, ReadsADecimalPrefixAndSaturates) {
  EXPECT_EQ(ParseInt(u"0005"), 5);
  EXPECT_EQ(ParseInt(u" -65535px3"), -65535);
  for (const TextView none : {u"", u"  ", u"-", u"abc", u"--5", u"- 5", u".5"}) EXPECT_EQ(ParseInt(none), 0);
  EXPECT_EQ(ParseInt(u"2147483648"), kMax);
  EXPECT_EQ(ParseInt(u"-2147483648"), kMin);
  EXPECT_EQ(ParseInt(Text(5000, u'9')), kMax);
  EXPECT_EQ(ParseInt(u"-" + Text(5000, u'9')), kMin);
}

TEST(PaddedInt, FillsFourPlacesSignIncluded) {
  Text all;
  for (const std::int32_t value : {0, 5, -5, -123, 12345, -65535, kMin}) {
    AppendPaddedInt(all, value);
    all.push_back(u' ');
  }
  EXPECT_EQ(all, u"0000 0005 -005 -123 12345 -65535 -2147483648 ");
}

TEST(Angles, AreEscapedWithoutASemicolon) {
  EXPECT_EQ(EscapeAngles(u"a<b>c"), u"a&ltb&gtc");
  EXPECT_EQ(UnescapeAngles(u"a&ltb&gtc&<t&"), u"a<b>c&<t&");
  EXPECT_EQ(UnescapeAngles(EscapeAngles(u"typed &lt")), u"typed <");
}

TEST(HexText, HoldsEveryCodeUnitAndReadsWholeGroups) {
  const Text odd{u'\0', u'<', u'\n', 0xD83D, 0xDE00, 0xDC00, 0xFFFF};
  EXPECT_EQ(HexTitle(odd), u"0000003C000AD83DDE00DC00FFFF");
  EXPECT_EQ(UnhexTitle(HexTitle(odd)), odd);
  EXPECT_EQ(UnhexTitle(u"00fc0048006"), u"\u00fcH");
}

TEST(Case, DoesNotCountInLettersOfAnyAlphabetInUse) {
  EXPECT_TRUE(EqualIgnoreCase(u"1aF-\u00c4\u0141\u0394\u0416\u0401", u"1Af-\u00e4\u0142\u03b4\u0436\u0451"));
  EXPECT_FALSE(EqualIgnoreCase(u"\u00d7", u"\u00f7"));  // multiplication and division signs
  EXPECT_FALSE(EqualIgnoreCase(u"[", u"{"));
  EXPECT_FALSE(EqualIgnoreCase(u"abc", u"ab") || EqualIgnoreCase(u"ab", u"abc"));
}

TEST(OneLine, TurnsEveryBreakIntoOneBlank) {
  EXPECT_EQ(OneLine(Text(u"a\r\nb\rc\nd\r\r\n\0", 12)), u"a b c d   ");
}

TEST(Utf8, KeepsAnyTextEvenUnpairedSurrogates) {
  Random random(1);
  const Text units = u"a\u00e9\u20ac\uffff" + Text{0xD800, 0xDBFF, 0xDC00, 0xDFFF};
  for (int round = 0; round < 2000; ++round) {
    bool valid = false;
    const Text text = random.Pick(units, 8);
    ASSERT_EQ(FromUtf8(ToUtf8(text), &valid), text);
    ASSERT_TRUE(valid);
  }
  EXPECT_EQ(ToUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
}

TEST(Utf8, TellsWhatIsMalformedAndKeepsTheRest) {
  for (const std::string bad : {"\xC3", "\xE2\x82", "\xF0\x9F\x98", "\x80", "\xC0\xAF", "\xE0\x80\xAF",
                                "\xFF", "\xF4\x90\x80\x80", "\xF0\x80\x80\xAF"}) {
    bool valid = true;
    const Text text = FromUtf8("a" + bad + "z", &valid);
    EXPECT_TRUE(!valid && text.starts_with(u"a\uFFFD") && text.back() == u'z') << bad;
  }
}

}  // namespace
}  // namespace jotlets
