#include "data/rtf_text.h"

#include <gtest/gtest.h>

#include "data/rtf_bytes.h"

namespace jotlets {
namespace {

TEST(RtfBytes, WhatAControlWroteReadsBackAsTheSame) {
  EXPECT_EQ(MendedRtf("{\\pard\\sl--300\\slmult0 a\\par\\sl--15 b}"),
            "{\\pard\\sl-300\\slmult0 a\\par\\sl-15 b}");
  EXPECT_EQ(MendedRtf(std::string("{a\0}\0", 6)), "{a}");
  const std::string words = "{\\\\sl--3 \\sl-3 \\{\\}\\";
  EXPECT_EQ(MendedRtf(words), words);
}

using namespace std::string_literals;

constexpr std::size_t kAll = 1000;

TEST(RtfText, KeepsTheWordsAndNothingElse) {
  EXPECT_EQ(
      RtfTextStart("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1;}{\\*\\generator x{y}z;}\r\n"
                   "\\pard\\b Bold\\b0  not\\par{\\field{\\*\\fldinst HYPERLINK \"h\"}{\\fldrslt shown}}"
                   "\\tab\\'e9\\{\\~\\bullet{\\pict\\bin4 }}}}ab}end}",
                   kAll),
      u"Bold not\r\nshown\t\u00E9{\u00A0\u2022end");
  EXPECT_EQ(RtfTextStart("{\\rtf1\\uc2\\u8364 ??a\\u-10179?\\'3f\\u-8704 ??\\uc0\\u97 b{\\uc1\\u99}d", kAll),
            u"\u20ACa\U0001F600abcd");
  EXPECT_EQ(RtfTextStart("{\\rtf1\\ansi \\'80\\'96\x92\\'9f\\'a0\\'81}", kAll),
            u"\u20AC\u2013\u2019\u0178\u00A0\u0081");
}

TEST(RtfText, BytesAreInTheCodePageOfTheirFont) {
  const std::string fonts =
      "{\\fonttbl{\\f0\\fcharset204 A;}{\\f1\\fcharset161 B;}{\\f2\\fcharset128 C;}{\\f3\\fcharset2 D;}}";
  const auto words = [&](const std::string& body) {
    return RtfTextStart("{\\rtf1\\ansicpg1250\\deff1" + body, kAll);
  };
  EXPECT_EQ(words(fonts + "\\'e1{\\f0\\'e1\xE1}\\'e1\\f3\\'b9\\f9\\'b9\\plain\\'e1}"),
            u"\u03B1\u0431\u0431\u03B1\u0105\u0105\u03B1");
  EXPECT_EQ(words(fonts + "\\f2\\'82\\'a0\\'83A\\'b1\\'82\\b\\'82}x\\f2\\'82"), u"\u3042\u30A2\uFF71x")
      << "half a character is none";
  EXPECT_EQ(words("\\'b9\\ansicpg874\\'a1\\ansicpg7\\'a1}"), u"\u0105\u0E01\u0E01");
}

TEST(RtfText, OfATroublemakerIsShownWithoutWhatFewFontsHave) {
  const Text words = u"Caf\u00E9 \u4E00\r\n\u0628\u0651 \u0670\U0001F600\u202Ex\0"s;
  EXPECT_EQ(HarmlessWords(words), u"Caf\u00E9 \u4E00\r\n\u0628\uFFFD \uFFFD\uFFFD\uFFFD\uFFFDx\uFFFD");
}

TEST(RtfText, StopsWhereItIsToldAndAtAnyEnd) {
  EXPECT_EQ(RtfTextStart("{\\rtf1 abcdef}", 3), u"abc");
  EXPECT_EQ(RtfTextStart("{\\rtf1 ab\\par}", 3), u"ab\r");
  for (const char* broken : {"{\\rtf1 a\\", "{\\rtf1 a\\'", "{\\rtf1 a\\u", "}}{\\rtf1 a{\\*",
                             "a\\bin99999999999 b", "a{\\pict\\bin-5 b"})
    EXPECT_EQ(RtfTextStart(broken, kAll), u"a") << broken;
}

}  // namespace
}  // namespace jotlets
