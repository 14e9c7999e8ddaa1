#include "editor/link_text.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

TEST(LinkText, OnlyAddressesOfHarmlessKindsAreOpened) {
  for (const TextView good :
       {u"http://a", u"HTTPS://a.b/c?d=e#f", u"mailto:a@b", u"file:///c:/a", u"\\\\host\\share"})
    EXPECT_EQ(LinkTarget(good), good);
  EXPECT_EQ(LinkTarget(u"www.a.example"), u"http://www.a.example");
  for (const TextView bad :
       {u"", u"http://", u"www.", u"news:a", u"javascript:a", u"calc.exe", u"\\\\", u" http://a",
        u"http://a b", u"http://a\nb", u"http://a\u2028b", u"http://a\"b", u"http:a", u"ftp://a"})
    EXPECT_EQ(LinkTarget(bad), u"") << ToUtf8(bad);
  EXPECT_EQ(LinkTarget(u"http://" + Text(5000, u'a')), u"");
}

TEST(LinkText, FilesAreShownAfterAQuestionAndNotAtAllForNotesFromOutside) {
  for (const bool outside : {false, true}) {
    EXPECT_EQ(UseOfLink(u"HTTP://a", outside), LinkUse::kOpened);
    EXPECT_EQ(UseOfLink(u"mailto:a@b", outside), LinkUse::kOpened);
    EXPECT_EQ(UseOfLink(u"javascript:a", outside), LinkUse::kNothing);
    const LinkUse asks = outside ? LinkUse::kRefused : LinkUse::kRevealed;
    for (const auto& [link, path] :
         {std::pair{u"file:///c:/a%20b/%C3%A4%2541.txt", u"c:\\a b\\\u00E4%41.txt"},
          {u"FILE:c:\\a.exe", u"c:\\a.exe"},
          {u"file://host/share/a", u"\\\\host\\share\\a"},
          {u"file://c:/a", u"c:\\a"},
          {u"file://///host/share", u"\\\\host\\share"},
          {u"\\\\host\\share\\a.exe", u"\\\\host\\share\\a.exe"}}) {
      EXPECT_EQ(PathOfLink(link), path);
      EXPECT_EQ(UseOfLink(link, outside), asks) << ToUtf8(link);
    }
    for (const TextView none : {u"file:a.exe", u"file:///etc/a", u"file:///c:/a%22b", u"file:///c:/a%0Ab",
                                u"\\\\.\\pipe\\a", u"\\\\?\\c:\\a", u"file://", u"file:///c:/a|b"})
      EXPECT_EQ(UseOfLink(none, outside), LinkUse::kNothing) << ToUtf8(none);
  }
  EXPECT_EQ(PathOfLink(u"http://a"), u"");
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
        u"javascript:a.b", u"a.example/\"b", u"http://a.example", u"www.a.example", u"(a.example)"})
    EXPECT_EQ(LinkFromText(none), u"") << ToUtf8(none);
}

}  // namespace
}  // namespace jotlets
