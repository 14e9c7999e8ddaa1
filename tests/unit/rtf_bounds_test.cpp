#include "data/rtf_bounds.h"

#include <gtest/gtest.h>

#include "data/rtf_text.h"

namespace jotlets {
namespace {

std::string Times(std::size_t count, std::string_view what) {
  std::string all;
  while (count-- > 0) all += what;
  return all;
}

bool Fits(const std::string& body, const EditorBounds& bounds = kSlowEditor) {
  return RtfTrouble("{\\rtf1 " + body + "}", bounds).empty();
}

TEST(RtfBounds, OrdinaryTextsFitAndWhatTakesTheControlTooLongDoesNot) {
  EXPECT_TRUE(Fits(
      Times(400, "A paragraph of a usual length, with \\b bold\\b0  words and http://a.example .\\par\r\n")));
  EXPECT_TRUE(Fits(Times(2000, "x")));
  for (const std::string& body :
       {Times(50'000, "x"), Times(10'000, "word "), Times(20'000, "http://a.b\\par "),
        Times(20'000, "www.a\\line "), Times(20'000, "\\u-10179?\\u-8704?"),
        Times(20'000, "\\b a\\b0 b\\par "), Times(200'000, "short\\par "), Times(10'000, "\\'41")}) {
    EXPECT_FALSE(Fits(body)) << body.substr(0, 20);
    EXPECT_TRUE(Fits(body, kSystemEditor)) << body.substr(0, 20);
  }
  EXPECT_TRUE(Fits(Times(27, "{") + "x" + Times(27, "}")));
  EXPECT_FALSE(Fits(Times(28, "{") + "x" + Times(28, "}")));
  EXPECT_FALSE(Fits(Times(100'000, "{"), kSystemEditor));
}

TEST(RtfBounds, DamagedTablesAndNoiseDoNotReachTheControl) {
  const std::string row = "\\trowd\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\row ";
  EXPECT_TRUE(Fits(row + row + "\\pard x\\par ", kSystemEditor));
  EXPECT_FALSE(Fits(row));
  EXPECT_TRUE(Fits("\\fi-360\\li360\\fs20 a"));
  for (const char* measure : {"\\li-99999999 a", "\\fs99999 a", "\\tx2000000000000000 a"})
    EXPECT_FALSE(Fits(measure));
  for (const TextView bad :
       {u"\\trowd\\cellx1000\\intbl a\\cell b\\cell\\row ", u"a\\cell", u"a\\row", u"\\trowd\\cellx1 a",
        u"\\trowd\\row", u"\\trowd\\cellx1\\cellx2 a\\cell\\row", u"a\\nestcell", u"a\x01"})
    EXPECT_FALSE(Fits(ToUtf8(bad), kSystemEditor)) << ToUtf8(bad);
  EXPECT_FALSE(Fits(std::string("a\0b", 3)));
  EXPECT_EQ(RtfTrouble(std::string("{\\rtf1 a}\r\n\0\0", 13), kSlowEditor), u"");
}

TEST(RtfBounds, WordsInBoundedLinesKeepTheTextAndFitEveryControl) {
  Text long_(200'000, u'x');
  long_.insert(119, u"\U0001F600");
  const Text words = BoundedWords(long_);
  EXPECT_LE(TextWork(words), kSlowEditor.work);
  EXPECT_TRUE(ReplaceAll(words, u"\r\n", u"").starts_with(long_.substr(0, 1000)));
  EXPECT_NE(words.find(u"\U0001F600"), Text::npos) << "no pair is divided";
  EXPECT_EQ(BoundedWords(u"a\r\nb"), u"a\r\nb");
  const Text plain = u"{a}\\\r\n\t\u00E4\U0001F600\r\n";
  EXPECT_EQ(RtfTextStart(RtfOfPlainText(plain), 100), plain);
}

}  // namespace
}  // namespace jotlets
