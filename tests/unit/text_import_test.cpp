#include "data/text_import.h"

#include <gtest/gtest.h>

#include "data/rtf_bounds.h"
#include "data/rtf_text.h"
#include "data/text_export.h"

namespace jotlets {
namespace {

// Paragraphs as short words: h1 for a heading, - and 1 for lists, B I U S in front of runs.
Text Said(const std::vector<TextParagraph>& paragraphs) {
  Text said;
  for (const TextParagraph& paragraph : paragraphs) {
    if (paragraph.heading > 0) said += u"h" + IntText(paragraph.heading) + u":";
    if (paragraph.list != TextParagraph::List::kNoList)
      said += paragraph.list == TextParagraph::List::kBullets ? u"-:" : u"1:";
    for (const TextRun& run : paragraph.runs) {
      if (run.bold) said += u"B";
      if (run.italic) said += u"I";
      if (run.underline) said += u"U";
      if (run.strikethrough) said += u"S";
      said += u"(" + run.text + u")";
    }
    said += u"/";
  }
  return said;
}

TEST(TextImport, ReadsMarkdownAsPeopleWriteIt) {
  const auto said = [](TextView markdown) { return ToUtf8(Said(TextOfMarkdown(markdown).paragraphs)); };
  EXPECT_EQ(said(u"# One #\nfirst line\nsecond  \nthird\\\nfourth\n\n\nnext\n###No\n#### Four"),
            "h1:(One)/(first line second\nthird\nfourth)/(next ###No)/h4:(Four)/");
  EXPECT_EQ(said(u"- a\n  goes on\n* b\n1. one\n2) two\n- [ ] open\n- [x] done\n---\n> quoted\n> more"),
            "-:(a goes on)/-:(b)/1:(one)/1:(two)/(\xE2\x98\x90 )(open)/(\xE2\x98\x91 )(done)/(quoted more)/");
  EXPECT_EQ(said(u"a **b** *c* ~~d~~ __e__ _f_ **x *y* z** snake_case_word 2 * 3 * 4 **open"),
            "(a )B(b)( )I(c)( )S(d)( )B(e)( )I(f)( )B(x )BI(y)B( z)( snake_case_word 2 * 3 * 4 **open)/");
  EXPECT_EQ(
      said(u"\\*no\\* `**code**` &amp;&#x41;&#66;&no; [site](http://a.b \"t\") [http://a.b](http://a.b) "
           u"[x](local.md) ![pic](p.png) <http://c.d> a<b"),
      "(*no* **code** &AB&no; site (http://a.b) http://a.b x pic http://c.d a<b)/");
  EXPECT_EQ(said(u"```\n# kept *as* is\n\n  x\n```\nafter"), "(# kept *as* is)//(  x)/(after)/");
  const ImportedText titled = TextOfMarkdown(u"---\ntags: a\nTitle: \"My list\"\n---\nwords");
  EXPECT_EQ(titled.title, u"My list");
  EXPECT_EQ(Said(titled.paragraphs), u"(words)/");
}

TEST(TextImport, ReadsTheWordsOfAPageAndNothingThatRuns) {
  const auto said = [](TextView page) { return ToUtf8(Said(TextOfHtml(page).paragraphs)); };
  EXPECT_EQ(said(u"<h2>One</h2><p>a <B>b</B>\r\n  c<br>d</p>loose<ul><li>x<li>y</ul><ol><li>z</ol>"),
            "h2:(One)/(a )B(b)( c\nd)/(loose)/-:(x)/-:(y)/1:(z)/");
  EXPECT_EQ(said(u"<p>a<script>if (a<b) alert('</p>')</SCRIPT>b<style>p{}</style><!-- <p>no --> c</p>"),
            "(ab c)/");
  EXPECT_EQ(said(u"<a href='http://a.b/?x&amp;y'>site</a> <a href=\"javascript:x()\">run</a> "
                 u"<a href=http://c.d>http://c.d</a>"),
            "(site (http://a.b/?x&y) run http://c.d)/");
  EXPECT_EQ(said(u"<pre>two\n  lines</pre>&lt;b&gt;&nbsp;&#0; 1 < 2 <3"),
            "(two\n  lines)/(<b>\xC2\xA0\xEF\xBF\xBD 1 < 2 <3)/");
  EXPECT_EQ(said(u"<table><tr><td>a<td>b<tr><td>c</table><input type=checkbox checked>x"),
            "(a\tb)/(c)/(\xE2\x98\x91 x)/");
  const ImportedText page =
      TextOfHtml(u"<html><head><title> My\n page</title><meta x></head><body>words</body>");
  EXPECT_EQ(page.title, u"My page");
  EXPECT_EQ(Said(page.paragraphs), u"(words)/");
  for (const TextView broken :
       {u"<", u"<p", u"<a href=", u"<a href='", u"</", u"<!--", u"<script>", u"&#", u"<p a=b"})
    EXPECT_LE(Said(TextOfHtml(broken).paragraphs).size(), 8u) << ToUtf8(broken);
}

// Texts made to keep a reader busy are read once through: what no person writes is words.
TEST(TextImport, SearchesNoFurtherThanPeopleWrite) {
  const auto said = [](TextView markdown) { return Said(TextOfMarkdown(markdown).paragraphs); };
  const Text ticks(32, u'`');
  EXPECT_EQ(said(u"a " + ticks + u"*b*" + ticks), u"(a *b*)/");
  EXPECT_EQ(said(u"a `" + ticks + u"b`" + ticks), u"(a `" + ticks + u"b`" + ticks + u")/");
  EXPECT_EQ(said(u"a<b <http://c<http://d>"), u"(a<b <http://chttp://d)/");
  const Text blank(2000, u' ');
  EXPECT_EQ(said(u"[a [b](http://c) ![d](e) [f" + blank + u"[g](h) [i](http://j) ["),
            u"(a [b (http://c) d [f" + blank + u"g i (http://j) [)/");
  Text open;
  for (int count = 0; count < 1000; ++count) open += u"<b><i><s>";
  EXPECT_EQ(Said(TextOfHtml(open + u"x").paragraphs), u"BIS(x)/");
}

TEST(TextImport, LooksForLongWordsOfALinkOnlyWhereTheyBeginOrEndItsTarget) {
  const Text words(300, u'w');
  const Text within = u"http://a/" + words + u"/";
  EXPECT_EQ(LinkWords(words, within), words + u" (" + within + u")");
  for (const TextView scheme : {u"https://", u"mailto:"}) {
    const Text target = Text(scheme) + words + u"/";
    EXPECT_EQ(LinkWords(words, target), target);
    EXPECT_EQ(LinkWords(target, target + u"x"), target + u"x");
    EXPECT_EQ(LinkWords(words, Text(scheme) + u"a/" + words), Text(scheme) + u"a/" + words);
  }
}

// What was saved from a note comes back as it was.
TEST(TextImport, TakesBackWhatTheNotesOfThisProgramWereSavedAs) {
  const std::string rtf =
      "{\\rtf1 {\\b Buy} a<b & c\\par{\\*\\pn\\pnlvlblt}one \\i two\\i0\\par three\\par\\pard"
      "{\\*\\pn\\pnlvlbody}first\\par\\pard \\u9744 ?milk*_x_ 1. 2\\par 7. {\\strike eggs}\\line - x \\\\ "
      "`\\{\\}}";
  const std::vector<TextParagraph> paragraphs = RtfParagraphs(rtf, 1000);
  const std::string composed = RtfOfParagraphs(paragraphs);
  EXPECT_EQ(RtfTrouble(composed, kSlowEditor), u"");
  EXPECT_EQ(Said(RtfParagraphs(composed, 1000)), Said(paragraphs));
  for (const ImportedText& back : {TextOfMarkdown(MarkdownOfRtf(rtf)), TextOfHtml(HtmlOfRtf(rtf, u"t"))})
    EXPECT_EQ(Said(RtfParagraphs(RtfOfParagraphs(back.paragraphs), 1000)), Said(paragraphs));
}

}  // namespace
}  // namespace jotlets
