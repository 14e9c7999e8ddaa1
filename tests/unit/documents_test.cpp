#include "../docs/documents.h"

#include <gtest/gtest.h>

#include <set>

#include "action/key_list.h"
#include "help/markdown.h"
#include "res/resource.h"

namespace jotlets {
namespace {

TEST(Documents, AreWhatTheirSourcesMakeOfThem) {
  for (const Document& page : MadeDocuments(".."))
    EXPECT_TRUE(FileOf("../docs/" + page.name) == page.bytes) << page.name << ": scripts/docs writes it anew";
}

// All values of an attribute in a page.
std::vector<std::string> ValuesOf(const std::string& page, const std::string& attribute) {
  std::vector<std::string> values;
  const std::string front = " " + attribute + "=\"";
  for (std::size_t at = page.find(front); at != std::string::npos; at = page.find(front, at + 1)) {
    const std::size_t from = at + front.size();
    values.push_back(page.substr(from, page.find('"', from) - from));
  }
  return values;
}

TEST(HelpPage, StandsAloneAndLeadsNowhereElse) {
  const std::string page = MadeDocuments("..").back().bytes;
  const std::vector<std::string> ids = ValuesOf(page, "id");
  const std::set<std::string> anchors(ids.begin(), ids.end());
  EXPECT_EQ(anchors.size(), ids.size()) << "an anchor is there twice";
  for (const std::string& link : ValuesOf(page, "href"))
    EXPECT_TRUE(link.starts_with("#") && anchors.contains(link.substr(1))) << link;
  EXPECT_TRUE(ValuesOf(page, "src").empty());
  for (const std::string_view tag : {"section", "ul", "li", "table", "tr", "td", "pre", "code", "em", "p"}) {
    const auto count = [&](const std::string& what) {
      std::size_t times = 0;
      for (std::size_t at = page.find(what); at != std::string::npos; at = page.find(what, at + 1)) ++times;
      return times;
    };
    const std::string name(tag);
    EXPECT_EQ(count("<" + name + ">") + count("<" + name + " "), count("</" + name + ">")) << name;
  }
}

std::string Body(std::string_view page) {
  const auto linkTo = [](std::string_view target) {
    return target == "b.md" ? std::string("#b") : std::string();
  };
  const std::string html = ChapterOf(page, "a", linkTo).html;
  constexpr std::string_view kFront = "<section class=\"chapter\" id=\"a\">\n";
  return html.substr(kFront.size(), html.rfind("</section>") - kFront.size());
}

TEST(Markdown, KeepsSignsOfHtmlAndMarksAsTheyAreMeant) {
  EXPECT_EQ(
      Body("`<RTF>` & \"a\" *b c*, 2 * 3 * 4 and `*x*`"),
      "<p><code>&lt;RTF&gt;</code> &amp; &quot;a&quot; <em>b c</em>, 2 * 3 * 4 and <code>*x*</code></p>\n");
  EXPECT_EQ(Body("[in *b*](b.md) [out](c.md) a[1] `open"),
            "<p><a href=\"#b\">in <em>b</em></a> out a[1] `open</p>\n");
  EXPECT_EQ(Body("| | |\n|---|---|\n| `a\\|b` | c |\n"),
            "<div class=\"table\"><table>\n<tbody>\n<tr><td><code>a|b</code></td><td>c</td></tr>\n"
            "</tbody></table></div>\n");
  EXPECT_EQ(Body("- one\n  more\n- two\n\n    code <\n\n    code\n\nend\nof it"),
            "<ul>\n<li>one\nmore</li>\n<li>two</li>\n</ul>\n<pre><code>code &lt;\n\ncode\n</code></pre>\n"
            "<p>end\nof it</p>\n");
  EXPECT_EQ(Body("```sh\n# a\n```\n## The `b`\nx"),
            "<pre><code># a\n</code></pre>\n<section id=\"a-the-b\">\n<h3>The <code>b</code></h3>\n<p>x</p>\n"
            "</section>\n");
}

TEST(KeyList, NamesEveryKeyOnceAndIsSearchedByWords) {
  EXPECT_EQ(PlainMenuText(u"Sa&ve && go...\tCtrl+S"), u"Save & go");
  std::vector<KeyRow> rows = NoteKeyRows([](std::uint32_t id) {
    if (id == IDS_KEY_ROW) return Text(u"0\tAlt+arrow keys\tMove the note");
    return id < IDS_ACTION || id >= IDS_KEY_ROW ? Text() : u"&Do " + IntText(id - IDS_ACTION) + u"...";
  });
  rows.push_back({KeyPlace::kProgram, u"Ctrl+N", u"is there already"});
  rows.push_back({KeyPlace::kManage, u"Ctrl+N", u"is another one there"});
  rows = Arranged(std::move(rows));
  const auto row = [&](TextView key) { return *std::ranges::find(rows, key, &KeyRow::key); };
  EXPECT_EQ(row(u"Ctrl+N"), (KeyRow{KeyPlace::kNote, u"Ctrl+N", u"Do 20"}));
  EXPECT_EQ(row(u"Ctrl+B"), (KeyRow{KeyPlace::kText, u"Ctrl+B", u"Do 50"}));
  EXPECT_TRUE(std::ranges::is_sorted(rows, {}, &KeyRow::place));
  EXPECT_EQ(std::ranges::count(rows, u"Ctrl+N", &KeyRow::key), 2);
  EXPECT_TRUE(IsFound(row(u"Alt+arrow keys"), u"  NOTE alt"));
  EXPECT_TRUE(IsFound(row(u"Alt+arrow keys"), u"jotlet"));
  EXPECT_FALSE(IsFound(row(u"Alt+arrow keys"), u"move ctrl"));
}

// Every key that the program lists has words in the resources.
TEST(KeyList, OfTheProgramSaysWhatEachKeyDoes) {
  const std::string page = ToUtf8(KeysPage(TextsOf("..")));
  EXPECT_EQ(page.find("|  |"), std::string::npos)
      << page.substr(0, page.find("|  |")).substr(page.rfind('\n'));
  for (const char* row : {"| Ctrl+M | Manage Jotlets |", "| Ctrl+F1 | Keyboard shortcuts |",
                          "| Win+Alt+S | New note |", "| Ctrl+Tab | Go to the next note |",
                          "| Ctrl+Shift+O | List: None |", "| Ctrl+S | Save everything now |"})
    EXPECT_NE(page.find(row), std::string::npos) << row;
}

}  // namespace
}  // namespace jotlets
