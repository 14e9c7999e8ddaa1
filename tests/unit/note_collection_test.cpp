#include "data/note_collection.h"

#include <gtest/gtest.h>

#include "data/csv_notes.h"
#include "data/rtf_text.h"
#include "data/written_time.h"

namespace jotlets {
namespace {

std::vector<CollectedNote> All(NoteCollection& collection) {
  std::vector<CollectedNote> notes;
  CollectedNote note;
  for (auto state = collection.Next(note); state != NoteCollection::State::kEnd;
       state = collection.Next(note))
    if (state == NoteCollection::State::kNote) notes.push_back(std::move(note));
  return notes;
}

// Paragraphs as lines, items of lists with their depth.
Text WordsOf(const CollectedNote& note) {
  Text words;
  for (const TextParagraph& paragraph : note.paragraphs) {
    if (!words.empty()) words += u"|";
    if (paragraph.list != TextParagraph::List::kNoList) words.append(paragraph.level, u'>').append(u"- ");
    for (const TextRun& run : paragraph.runs) words += run.text;
  }
  return words;
}

TEST(Enex, GivesEachNoteWithItsTimesAndTagsAndNamesTheRest) {
  const std::string two =
      R"(<?xml version="1.0" encoding="UTF-8"?><!DOCTYPE en-export SYSTEM "http://x.invalid/en-export.dtd">
<en-export><note><title>Sh&amp;p</title><content><![CDATA[<?xml version="1.0"?><!DOCTYPE en-note SYSTEM "x">
<en-note><div>Milk &amp; <b>eggs</b></div><ul><li>a<ul><li>b</li></ul></li></ul><en-crypt>c2VjcmV0</en-crypt></en-note>]]></content>
<created>20201010T101010Z</created><updated>20211010T101010Z</updated><tag>to do</tag><tag>Caf)"
      "\xC3\xA9"
      R"(</tag>
<task><title>ring</title></task><resource><data encoding="base64">AAAA</data><mime>image/png</mime>
<resource-attributes><file-name>a.png</file-name></resource-attributes></resource><resource/></note>
<note><title>two</title><content>&lt;en-note&gt;x&lt;/en-note&gt;</content></note></en-export>)";
  const auto collection = NotesOfEnex(two);
  const std::vector<CollectedNote> notes = All(*collection);
  ASSERT_EQ(notes.size(), 2u);
  EXPECT_EQ(collection->Fault(), u"");
  EXPECT_EQ(notes[0].title, u"Sh&p");
  EXPECT_EQ(WordsOf(notes[0]), u"Milk & eggs|- a|>- b|#to-do #Caf\u00E9");
  EXPECT_EQ(notes[0].created, 1602324610);
  EXPECT_EQ(notes[0].modified, 1633860610);
  EXPECT_EQ(notes[0].left, (std::vector<Text>{u"its encrypted words", u"its task 'ring'", u"its file 'a.png'",
                                              u"a picture or file without a name"}));
  EXPECT_EQ(WordsOf(notes[1]), u"x");
  EXPECT_FALSE(notes[1].created);
}

TEST(Enex, KeepsWhatCouldBeReadOfABrokenOneAndNoMoreThanANoteMayHold) {
  const auto broken = NotesOfEnex("<en-export><note><title>a</title></note>\n<note></en-export>");
  EXPECT_EQ(All(*broken).size(), 1u);
  EXPECT_NE(broken->Fault().find(u"(line 2)"), Text::npos);

  const auto large = NotesOfEnex("<e><note><title>l</title><content>" + std::string(5 << 20, 'x') +
                                 "</content></note><note><title>s</title></note></e>");
  const std::vector<CollectedNote> notes = All(*large);
  ASSERT_EQ(notes.size(), 2u);
  EXPECT_EQ(notes[0].fault, u"the note is over 4 MB");
  EXPECT_EQ(notes[1].fault, u"");
}

// What would take memory or time out of all proportion, or look elsewhere.
TEST(Xml, IsBoundedAndFetchesNothing) {
  std::string laughs = "<!DOCTYPE e [<!ENTITY a0 \"" + std::string(1000, 'x') + "\">";
  for (int i = 1; i < 10; ++i) {
    laughs += "<!ENTITY a" + std::to_string(i) + " \"";
    for (int times = 0; times < 10; ++times) laughs += "&a" + std::to_string(i - 1) + ";";
    laughs += "\">";
  }
  laughs += "]><e><note><content>&a9;</content></note></e>";
  std::string deep;
  for (int i = 0; i < 100'000; ++i) deep += "<a>";
  const std::string outside =
      "<!DOCTYPE e [<!ENTITY f SYSTEM \"note_collection_test.cpp\">]><e><note><title>&f;</title></note></e>";
  const std::string tag = "<opml><outline text='" + std::string(9 << 20, 'x') + "'/></opml>";
  struct Case {
    const std::string& bytes;
    TextView fault;
  };
  for (const Case& each :
       {Case{laughs, u"amplification"}, Case{deep, u"too deep"}, Case{tag, u"over 8 MB"}}) {
    const auto collection = NotesOfEnex(each.bytes);
    All(*collection);
    EXPECT_NE(collection->Fault().find(each.fault), Text::npos) << ToUtf8(collection->Fault());
  }
  EXPECT_EQ(All(*NotesOfEnex(outside)).front().title, u"");
}

TEST(Opml, MakesANoteOfEachOutlineAtTheTop) {
  const auto collection = NotesOfOpml(
      "<opml version='2.0'><head><title>T</title></head><body><outline text='A' created='Sat, 10 Oct 2020 "
      "10:10:10 GMT'"
      " _note='l1&#10;l2'><outline text='b'><outline text='c'/></outline><outline text='see' "
      "xmlUrl='http://x.invalid/'/>"
      "</outline><outline title='E'/></body></opml>");
  const std::vector<CollectedNote> notes = All(*collection);
  ASSERT_EQ(notes.size(), 2u);
  EXPECT_EQ(notes[0].title, u"A");
  EXPECT_EQ(notes[0].created, 1602324610);
  EXPECT_EQ(WordsOf(notes[0]), u"l1|l2|- b|>- c|- see (http://x.invalid/)");
  EXPECT_NE(RtfOfParagraphs(notes[0].paragraphs).find("\\li720 "), std::string::npos) << "one inside another";
  EXPECT_EQ(notes[1].title, u"E");
}

TEST(Csv, FindsOutWhatPartsItsColumnsAndWhatTheyAre) {
  struct Case {
    TextView text;
    char16_t separator;
    CsvColumns columns;
  };
  const Case cases[] = {
      {u"Title,Text\na,b\n", u',', {0, 1, -1, -1, true}},
      {u"Datum;Titel;Inhalt;Ordner\n1,5;b;c;d\n", u';', {1, 2, 3, 0, true}},
      {u"x\tcreated_at\tBody\n1,2\t2,3\t3,4\n", u'\t', {-1, 2, -1, 1, true}},
      {u"sep=;\r\ntext;a,b\r\n", u';', {-1, 0, -1, -1, true}},
      {u"one,two\nthree,four\n", u',', {0, 1, -1, -1, false}},
      {u"just\nlines\n", u',', {-1, 0, -1, -1, false}},
  };
  for (const Case& each : cases) {
    const CsvPreview preview = PreviewOfCsv(each.text);
    EXPECT_EQ(preview.separator, each.separator) << ToUtf8(each.text);
    EXPECT_EQ(preview.columns, each.columns) << ToUtf8(each.text);
  }
  EXPECT_EQ(PreviewOfCsv(u"a,b\n1,2").rows, (std::vector<CsvRow>{{u"a", u"b"}, {u"1", u"2"}}));
}

TEST(Csv, TellsWhatItsColumnsAreCalledAndWhichAreLeft) {
  using Names = std::vector<Text>;
  const CsvPreview table = PreviewOfCsv(u"title, mood \n\"a\",b,c\n");
  EXPECT_EQ(NamesOfColumns(table, true, u"Column %n"), (Names{u"title", u"mood", u"Column 3"}));
  EXPECT_EQ(NamesOfColumns(table, false, u"%n"), (Names{u"1", u"2", u"3"}));
  EXPECT_EQ(ColumnsLeft(table, table.columns, u"%n"), (Names{u"mood", u"3"}));
  const CsvColumns twice{.title = 2, .text = 2, .category = 0, .created = 9, .header = true};
  EXPECT_EQ(ColumnsLeft(table, twice, u"%n"), Names{u"mood"}) << "one that is not there is none";
  EXPECT_EQ(table.fault, u"");
  // Why there is nothing to choose from.
  EXPECT_EQ(PreviewOfCsv(u"\r\n,,\n").fault, u"the table is empty");
  EXPECT_NE(PreviewOfCsv(Text(10'000, u',')).fault.find(u"1,000 columns"), Text::npos);
  EXPECT_NE(PreviewOfCsv(u"\"a,b\n1,2").fault.find(u"not closed"), Text::npos);
}

TEST(Csv, GivesANoteForEachRow) {
  const auto collection = NotesOfCsv(
      u"title,text,category,created,mood\r\n\"a "
      u"\"\"b\"\"\",\"x,\r\ny\",work,2020-10-10,fine\r\n,,,,\r\nshort\r\n"
      u"\"open,1\r\nc,2\r\n",
      std::nullopt);
  const std::vector<CollectedNote> notes = All(*collection);
  ASSERT_EQ(notes.size(), 3u);
  EXPECT_EQ(notes[0].title, u"a \"b\"");
  EXPECT_EQ(WordsOf(notes[0]), u"x,|y|mood: fine");
  EXPECT_EQ(notes[0].category, u"work");
  EXPECT_EQ(notes[0].created, 1602288000);
  EXPECT_EQ(notes[1].title, u"short");
  EXPECT_NE(notes[2].fault.find(u"not closed"), Text::npos);

  const auto chosen = NotesOfCsv(u"a,b,soon\n", CsvColumns{.title = 1, .text = -1, .created = 2});
  const std::vector<CollectedNote> own = All(*chosen);
  ASSERT_EQ(own.size(), 1u);
  EXPECT_EQ(own[0].title, u"b");
  EXPECT_EQ(WordsOf(own[0]), u"a|soon") << "what is no time is kept as words";

  // One compiler is wrong about texts whose large size it knows.
  const volatile std::size_t size = 3 << 20;
  Text rows(size, u'x');
  rows.append(u"\nsmall\n").append(size, u',');
  const auto large = All(*NotesOfCsv(std::move(rows), std::nullopt));
  ASSERT_EQ(large.size(), 3u);
  EXPECT_EQ(large[0].fault.substr(0, 20), u"the row is over 4 MB");
  EXPECT_EQ(large[1].fault, u"");
  EXPECT_NE(large[2].fault, u"");
}

TEST(WrittenTime, IsReadInTheFormsThatProgramsWrite) {
  for (const TextView same : {u"20201010T101010Z", u"2020-10-10T10:10:10Z", u" 2020-10-10 10:10:10 ",
                              u"2020-10-10T12:10:10.123+02:00", u"2020-10-10T09:40:10-0030",
                              u"Sat, 10 Oct 2020 10:10:10 GMT", u"10 Oct 2020 10:10:10 +0000"})
    EXPECT_EQ(ParseWrittenTime(same), 1602324610) << ToUtf8(same);
  for (const TextView none : {u"", u"soon", u"2020", u"2021-02-29", u"2020-10-10T25:00", u"1969-12-31",
                              u"2020-10-10 10:10 PST", u"10 Okt 2020", u"2020-10-10T10:10:10Z more"})
    EXPECT_FALSE(ParseWrittenTime(none)) << ToUtf8(none);
  EXPECT_EQ(WrittenTime(1602324610), u"2020-10-10T10:10:10Z");
}

}  // namespace
}  // namespace jotlets
