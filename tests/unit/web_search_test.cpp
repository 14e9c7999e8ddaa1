#include "editor/web_search.h"

#include <gtest/gtest.h>

#include "editor/font_history.h"

namespace jotlets {
namespace {

TEST(WebSearch, PutsEncodedWordsIntoAnAddressOfAPage) {
  EXPECT_EQ(WebSearchAddress(u"https://a.example/?q=%s&x=1", u" caf\u00E9 & co\r\n"),
            u"https://a.example/?q=caf%C3%A9%20%26%20co&x=1");
  EXPECT_EQ(WebSearchAddress(u"HTTP://a.example/?q=", u"a_b-\U0001F600"),
            u"HTTP://a.example/?q=a_b-%F0%9F%98%80");
  EXPECT_EQ(WebSearchAddress(u"https://a.example/%s", u"%s"), u"https://a.example/%25s");
  for (const TextView none : {u"", u"https://", u"file:///c:/x.exe?%s", u"javascript:%s", u"a.example/%s",
                              u"https://a.example/ -x %s", u"c:\\x.exe"})
    EXPECT_EQ(WebSearchAddress(none, u"word"), u"") << ToUtf8(none);
  EXPECT_EQ(WebSearchAddress(u"https://a.example/%s", u" \r\n"), u"");
  EXPECT_LT(WebSearchAddress(u"https://a.example/%s", Text(100000, u'\u00E9')).size(), 7000u);
}

TEST(WebSearch, IsShownShortAndInOneLine) {
  EXPECT_EQ(ShortWords(u"salt\r\n& pepper"), u"salt && pepper");
  EXPECT_EQ(ShortWords(Text(30, u'x')), Text(30, u'x'));
  EXPECT_EQ(ShortWords(Text(31, u'x')), Text(30, u'x').append(1, u'\u2026'));
}

TEST(RecentFonts, KeepEightNamesTheLastOneFirst) {
  Text option;
  for (const TextView face : {u"A", u"B", u"C", u"a"}) option = WithRecentFont(option, face);
  EXPECT_EQ(option, u"a|C|B");
  for (char16_t face = u'D'; face < u'Z'; ++face) option = WithRecentFont(option, Text(1, face));
  EXPECT_EQ(RecentFonts(option).size(), 8u);
  EXPECT_EQ(WithRecentFont(u"A", u"x|y"), u"A");
  EXPECT_EQ(RecentFonts(u"| A||a|" + Text(40, u'x') + u"|B"), (std::vector<Text>{u"A", u"B"}));
}

}  // namespace
}  // namespace jotlets
