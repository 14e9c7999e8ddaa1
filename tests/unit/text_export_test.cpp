#include "data/text_export.h"

#include <gtest/gtest.h>

#include "desk/note_file.h"
#include "desk/note_message.h"

namespace jotlets {
namespace {

constexpr std::string_view kShopping =
    "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\b Buy} a<b & c\\par"
    "{\\pntext\\f0 \\'b7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}one \\i two\\i0\\par {\\pntext "
    "-\\tab}three\\par\\pard"
    "{\\*\\pn\\pnlvlbody\\pndec}first\\par\\pard\\par\\u9744 ? milk*\\par\\u9745 ? \\strike "
    "eggs\\strike0\\line x}";

TEST(TextExport, MakesAPageThatSaysWhatTheTextSaid) {
  EXPECT_EQ(
      ToUtf8(HtmlOfRtf(kShopping, u"a<\"'\r\n")),
      "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>a&lt;&quot;&#39; </title>\n</head>\n"
      "<body>\n<p><b>Buy</b> a&lt;b &amp; c</p>\n<ul>\n<li>one <i>two</i></li>\n<li>three</li>\n</ul>\n"
      "<ol>\n<li>first</li>\n</ol>\n<p>&nbsp;</p>\n<p>\xE2\x98\x90 milk*</p>\n"
      "<p>\xE2\x98\x91 <s>eggs</s><br>\nx</p>\n</body>\n</html>\n");
}

TEST(TextExport, MakesMarkdownWithListsAndTasks) {
  EXPECT_EQ(
      ToUtf8(MarkdownOfRtf(kShopping)),
      "**Buy** a\\<b \\& c\n\n- one *two*\n- three\n1. first\n\n\n- [ ] milk\\*\n- [x] ~~eggs~~\\\nx\n");
  EXPECT_EQ(MarkdownOfRtf("{\\rtf1\\b  a }"), u" **a** \n");
  EXPECT_EQ(MarkdownOfRtf("{\\rtf1 3. x (a). #b - c!\\line - d\\line #e\\par # f\\par 7}"),
            u"3\\. x (a). #b - c!\\\n\\- d\\\n#e\n\n\\# f\n\n7\n");
}

TEST(TextExport, ReadsAnyBytes) {
  for (const std::string_view broken : {"", "{\\rtf1 a{\\b", "}}}{\\b a", "{\\rtf1 a\\", "a{\\*\\pn"})
    EXPECT_LE(MarkdownOfRtf(broken).size(), 6u) << broken;
  std::string nested(1000, '{');
  nested.append("\\b a").append(1000, '}').push_back('b');
  EXPECT_EQ(MarkdownOfRtf(nested), u"**a**b\n");
}

TEST(TextExport, ProposesNamesThatTheSystemTakes) {
  EXPECT_EQ(FileNameOfTitle(u"caf\u00E9: a/b?"), u"caf\u00E9_ a_b_");
  EXPECT_EQ(FileNameOfTitle(u"..\\..\\x"), u".._.._x");
  EXPECT_EQ(FileNameOfTitle(u" end. . "), u"end");
  EXPECT_EQ(FileNameOfTitle(u"Com1.txt"), u"_Com1.txt");
  EXPECT_EQ(FileNameOfTitle(u"commode"), u"commode");
  for (const TextView none : {u"", u" ", u"...", u"\r\n"}) EXPECT_EQ(FileNameOfTitle(none), u"note");
  EXPECT_LE(FileNameOfTitle(Text(500, u'x')).size(), 80u);
}

TEST(NoteFile, GivesBackTheNoteThatItWasMadeOf) {
  JotletData record;
  record.title = u" a\u20ACb\n";
  record.source = u"ann";
  record.colour = {1, 2, 3};
  record.width = 321;
  const Text file = ComposeNoteFile(record, u"{\\rtf1 title:x\nSource:y}");
  const auto message = ParseNoteMessage(TextView(NoteMessageFromFile(file)).substr(8));
  ASSERT_TRUE(message);
  EXPECT_EQ(message->title, record.title);
  EXPECT_EQ(message->source, record.source);
  EXPECT_EQ(message->colour, record.colour);
  EXPECT_EQ(message->width, 321);
  EXPECT_EQ(message->content, u"{\\rtf1 title:x\nSource:y}");
  EXPECT_TRUE(message->isRtf);
}

}  // namespace
}  // namespace jotlets
