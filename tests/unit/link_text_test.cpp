#include "note/link_text.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

TEST(LinkText, OnlyAddressesOfHarmlessKindsAreOpened) {
  for (const TextView good :
       {u"http://a", u"HTTPS://a.b/c?d=e#f", u"ftp://a", u"mailto:a@b", u"file:///c:/a"})
    EXPECT_EQ(LinkTarget(good), good);
  EXPECT_EQ(LinkTarget(u"www.a.example"), u"http://www.a.example");
  for (const TextView bad :
       {u"", u"http://", u"www.", u"news:a", u"javascript:a", u"calc.exe", u"\\\\host\\share", u" http://a",
        u"http://a b", u"http://a\nb", u"http://a\u2028b", u"http:a"})
    EXPECT_EQ(LinkTarget(bad), u"") << ToUtf8(bad);
  EXPECT_EQ(LinkTarget(u"http://" + Text(5000, u'a')), u"");
}

TEST(LinkText, TheWordUnderTheCaretLosesWhatSurroundsIt) {
  constexpr TextView kText = u"See (http://a.b/c?), or\u00A0\"x\".\r--";
  for (const std::size_t at : {5u, 12u, 20u}) EXPECT_EQ(WordAt(kText, at), u"http://a.b/c") << at;
  EXPECT_EQ(WordAt(kText, 26), u"x");
  EXPECT_EQ(WordAt(kText, 1000), u"--");
  EXPECT_EQ(WordAt(u"a  b", 2), u"");
  EXPECT_EQ(WordAt(u"((.))", 3), u"");
}

TEST(LinkText, AddressesGetWhatIsMissingInFront) {
  EXPECT_EQ(LinkFromText(u" a.example/b@c "), u"");
  EXPECT_EQ(LinkFromText(u"a.example/b "), u"http://a.example/b");
  EXPECT_EQ(LinkFromText(u"me@a.example"), u"mailto:me@a.example");
  for (const TextView none :
       {u"", u"word", u"two.words here", u".hidden", u"me@host", u"@a.example", u"c:\\a.exe",
        u"javascript:a.b", u"http://a.example", u"www.a.example", u"(a.example)"})
    EXPECT_EQ(LinkFromText(none), u"") << ToUtf8(none);
}

}  // namespace
}  // namespace jotlets
