#include "data/rtf_bounds.h"

#include <gtest/gtest.h>

#include "data/letter_marks.h"
#include "data/rtf_bytes.h"
#include "data/rtf_fields.h"
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
  EXPECT_TRUE(Fits(Times(2000, "x") + "\\par " + Times(4000, "\\u12354?") + "\\par " + Times(3000, "\\'e0")));
  EXPECT_TRUE(Fits(Times(5000, "12:03:44 info: a line of a log: 17\\par ")));
  EXPECT_FALSE(Fits(Times(20'000, "htt\\'70://a.b\\par ")));
  EXPECT_TRUE(Fits(Times(400, "What somebody has written in one go: one paragraph, \\'fcsome signs. ")));
  for (const std::string& body :
       {Times(50'000, "x"), Times(50'000, "7"), Times(40'000, "_a"), Times(10'000, "word "),
        Times(300, Times(40, "x") + "{\\*\\x 1}"), Times(300, Times(40, "x") + "\\u65?"),
        Times(300, Times(40, "x") + "\\'31"), "\\bin1 " + Times(300, Times(40, "x") + "1"),
        Times(300, Times(40, "\xC4") + "1"), Times(20'000, "http://a.b\\par "), Times(20'000, "www.a\\line "),
        Times(20'000, "\\u-10179?\\u-8704?"), Times(20'000, "\\b a\\b0 b\\par "),
        Times(200'000, "short\\par "), Times(10'000, "\\'41")}) {
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
  EXPECT_TRUE(Fits("\\fi-360\\li360\\fs20\\tx720\\itap0\\li0000000000000000009 a"));
  for (const std::string& word : {"\\" + Times(65, "a") + "5 x", "\\b" + Times(21, "9") + " x"})
    EXPECT_FALSE(Fits(word, kSystemEditor)) << word;
  for (const char* measure : {"\\li-99999999 a", "\\fs99999 a", "\\tx2000000000000000 a",
                              "\\li0000000000000900000 a", "\\tx a", "\\intbl a", "\\itap1 a"})
    EXPECT_FALSE(Fits(measure));
  for (const TextView bad :
       {u"\\trowd\\cellx1000\\intbl a\\cell b\\cell\\row ", u"a\\cell", u"a\\row", u"\\trowd\\cellx1 a",
        u"\\trowd\\row", u"\\trowd\\cellx1\\cellx2 a\\cell\\row", u"a\\nestcell", u"a\x01"})
    EXPECT_FALSE(Fits(ToUtf8(bad), kSystemEditor)) << ToUtf8(bad);
  EXPECT_FALSE(Fits(std::string("a\0b", 3)));
  EXPECT_EQ(RtfTrouble(std::string("{\\rtf1 a}\r\n\0\0", 13), kSlowEditor), u"");
}

TEST(RtfBounds, WhatTheEditorLeavesOutIsSeen) {
  const auto more = [](std::string_view rtf, const EditorBounds& bounds = kSystemEditor) {
    return HoldsMoreThanText(rtf, bounds);
  };
  for (const std::string_view rtf :
       {"{\\rtf1 {\\*\\picture x}a{\\pict\\pngblip 00}b}", "{\\rtf1 {\\object\\objemb}}",
        "{\\rtf1 a\\}{b}}\r\nand more", "{\\rtf1 a{\\footnote b}}", "{\\rtf1{\\headerr b}a}",
        "{\\rtf1 \\u65?\\uc99 a}", "{\\rtf1\\ansi\\ansicpg99999 \\'e4}"})
    EXPECT_TRUE(more(rtf)) << rtf;
  EXPECT_FALSE(more(
      std::string_view("{\\rtf1\\ansicpg1252\\uc1 {\\*\\picture x}\\b pict\\} object \\\\pict}\r\n\0", 59)));
  const std::string_view link = "{\\rtf1 {\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt b}}}";
  EXPECT_TRUE(more(link, kSlowEditor));
  EXPECT_FALSE(more(link));
}

TEST(RtfBounds, FieldsSayWhatTheySayWithoutThem) {
  EXPECT_EQ(
      RtfWithoutFields(
          "{\\rtf1 See {\\field{\\*\\fldinst{HYPERLINK \"http://a.b/c\"}}{\\fldrslt{\\ul the list}}} now}"),
      "{\\rtf1 See {{\\ul the list}} (http://a.b/c) now}");
  EXPECT_EQ(
      RtfWithoutFields("{\\rtf1 {\\field{\\*\\fldinst{DATE}}{\\fldrslt 1 May}}{\\field\\fldedit{\\*\\fldinst "
                       "HYPERLINK \"x:y\"}{\\fldrslt x:y}}}"),
      "{\\rtf1 {1 May}{x:y}}");
  EXPECT_EQ(RtfWithoutFields("{\\rtf1 {\\field{\\*\\fldinst HYPERLINK \"a{b\"}}{\\fldrslt c}}}"),
            "{\\rtf1 {c}}")
      << "no brace is left over";
  EXPECT_EQ(RtfWithoutFields("{\\rtf1 {\\field{\\fldrslt a {\\field{\\fldrslt b}} c}}}"),
            "{\\rtf1 {a {b} c}}");
  for (const std::string_view odd : {"{\\rtf1 {\\field{\\fldrslt a}", "{\\rtf1 {\\fields{\\fldrslt a}}}",
                                     "{\\rtf1 {\\field a}}", "{\\rtf1 \\{\\field{\\fldrslt a}}"})
    EXPECT_EQ(RtfWithoutFields(odd), odd);
}

TEST(RtfBounds, SignsOverLettersDoNotReachAControlThatEndsOverThem) {
  const auto fits = [](TextView text) {
    const bool rich = Fits(RtfBytes(text));
    EXPECT_EQ(IsEditable(text, kSlowEditor), rich) << ToUtf8(text);
    EXPECT_TRUE(IsEditable(text, kSystemEditor));
    EXPECT_EQ(WithoutMarks(Text(text)) == text, rich);
    return rich;
  };
  for (const TextView text : {u"", u"ab", u"\u0628 \u0644", u"e\u0301 \u0301", u"\u05D0\u05C0"})
    EXPECT_TRUE(fits(text)) << ToUtf8(text);
  for (const TextView text : {u"\u0650", u"\u0628\u0651\u0670", u"x\u06D6", u"\u05D0\u05B0", u"\u0661\u064B"})
    EXPECT_FALSE(fits(text)) << ToUtf8(text);
  EXPECT_EQ(WithoutMarks(u"\u0633\u064E\u0628\u05B0 x"), u"\u0633\u0628 x");
  for (const char* body : {"\\u1576?\\u1575?", "\\'f0 \\'e9", "{\\fonttbl\\f0\\fcharset178}\\'e8"})
    EXPECT_TRUE(Fits(body)) << body;
  for (const char* body :
       {"\\u1576?{\\b \\u1611?}", "\\uc0\\u1576\\u1611", "{\\fonttbl\\f0\\fcharset178} \\'f0",
        "\\ansicpg1255\\'c0", "\\u1576?\\par\\u1611?"}) {
    EXPECT_FALSE(Fits(body)) << body;
    EXPECT_TRUE(Fits(body, kSystemEditor)) << body;
  }
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
