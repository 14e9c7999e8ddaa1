#include "data/data_file.h"

#include <gtest/gtest.h>

#include "data/record_list.h"
#include "fakes.h"

namespace jotlets {
namespace {

DataFile Parse(TextView text, Options options = {}) {
  return ParseDataFile(text, {options, CountingIds(), 1000});
}

JotletData Note(TextView id) {
  JotletData record;
  record.Reset({}, 1000, Text(id));
  return record;
}

Text Ids(const std::vector<FiledJotlet>& jotlets) {
  Text ids;
  for (const FiledJotlet& jotlet : jotlets) ids.append(jotlet.record.id).push_back(u' ');
  return ids;
}

TEST(DataFile, IsWrittenInItsOrderAndReadBack) {
  const JotletData a = Note(u"A"), b = Note(u"B");
  std::vector<JotletData> deleted = {Note(u"C"), Note(u"D")};
  deleted[0].deletedTime = 1400000000;
  const std::vector<StackRecord> stacks = {ParseStackLine(u"<X>5<ID>4<TITLE>Work", 1)};
  const std::vector<Text> verbatim = {u"kept as it is", u"two:3"};
  const Text text = ComposeDataFile({u"ME", stacks, {&a, &b}, verbatim, {&deleted[0], &deleted[1]}, false});
  EXPECT_EQ(text, u"[Options]\niniver=3\nVersion=Jotlets v8.0c\nID=ME\n\n[Stacks]\n" +
                      MakeStackLine(stacks[0]) + u"\n\n[Jotlets]\n" + MakeJotletLine(a, false) + u"\n" +
                      MakeJotletLine(b, false) + u"\nkept as it is\ntwo:3\n\n[Deleted jotlets]\n1400000000|" +
                      MakeJotletLine(deleted[0], false) + u"\n" + MakeJotletLine(deleted[1], false) + u"\n");
  const DataFile file = Parse(text);
  EXPECT_TRUE(file.recognised && !file.cut && file.version == 3 && file.installId == u"ME");
  EXPECT_TRUE(file.stacks == stacks && file.verbatim == verbatim);
  ASSERT_TRUE(file.jotlets.size() == 2 && file.deleted.size() == 2);
  EXPECT_TRUE(file.jotlets[1].record == b && file.deleted[0].record == deleted[0]);
  EXPECT_EQ(ComposeDataFile({}),
            u"[Options]\niniver=3\nVersion=Jotlets v8.0c\nID=\n\n[Jotlets]\n\n[Deleted jotlets]\n");
}

TEST(Sections, AreNamedExactlyAndComeInAnyOrder) {
  const DataFile file = Parse(
      u"<ID>before<RTF>\r\n[jotlets]\r\n<ID>lower<RTF>\r\n[Deleted "
      u"jotlets]\r\n<ID>D<RTF>\r\n[Jotlets]\r\n\r\n"
      u"<ID>A<RTF>\r\n [Stacks]\r\n[Friends]\r\nann,10.0.0.1\r\n<ID>x<RTF>\r\n[Jotlets]\r\n<ID>B<RTF>\r\n");
  EXPECT_EQ(Ids(file.jotlets), u"A B ");
  EXPECT_EQ(Ids(file.deleted), u"D ");
  EXPECT_EQ(file.friendLines, (std::vector<Text>{u"ann,10.0.0.1", u"<ID>x<RTF>"}));
  EXPECT_TRUE(file.stacks.empty());
  EXPECT_FALSE(Parse(u"hello\n[Other]\n").recognised);
}

TEST(Version, AboveThreeEndsReading) {
  const auto notesWith = [](TextView version) {
    const DataFile file =
        Parse(Text(u"[Options]\niniver=").append(version).append(u"\n[Jotlets]\n<ID>A<RTF>\n"));
    EXPECT_EQ(file.version > kDataFileVersion, file.jotlets.empty());
    return file.jotlets.size();
  };
  for (const TextView newer : {u"4", u"10", u"99999999999"}) EXPECT_EQ(notesWith(newer), 0u) << ToUtf8(newer);
  for (const TextView known : {u"3", u"2", u"x", u""}) EXPECT_EQ(notesWith(known), 1u) << ToUtf8(known);
}

TEST(OldOptions, AreTakenFromTheDataFileBeforeItsRecords) {
  Options options;
  const DataFile file = ParseDataFile(
      u"[Options]\niniver=3\nVersion=x\nID=ME=1\nnonsense\nDefaultWidth=77\nUser2=1\n"
      u"Future=a=b\n[Jotlets]\n<X>1<RTF>\n",
      {options, CountingIds(), 1000});
  ASSERT_EQ(file.jotlets.size(), 1u);
  const JotletData& record = file.jotlets[0].record;
  EXPECT_TRUE(file.installId == u"ME=1" && record.width == 77 && record.user2 && record.created == 1000);
  EXPECT_EQ(options.others, (std::vector<std::pair<Text, Text>>{{u"Future", u"a=b"}}));
}

TEST(JotletLines, WithoutAnIdGetOneAndOtherLinesAreKept) {
  const DataFile file =
      Parse(u"[Jotlets]\n# comment\n<X>1<RTF>\n1:2:3:old\n<ID>A<RTF>\na:b\n\n:x\n12:30 dentist\n<ID><RTF>\n");
  EXPECT_EQ(Ids(file.jotlets), u"FRESH1 FRESH2 A FRESH3 ");
  EXPECT_EQ(file.verbatim, (std::vector<Text>{u"# comment", u"a:b", u":x", u"12:30 dentist"}));
}

TEST(DeletedLines, HaveATimeInFrontOfABar) {
  const DataFile file =
      Parse(u"[Deleted jotlets]\n1400000000|<ID>A<SKIN>x|y<RTF>\n<X>5<Y>6|<ID>B<RTF>\n-5|<ID>C<RTF>\n");
  EXPECT_EQ(Ids(file.deleted), u"A B C ");
  EXPECT_EQ(file.deleted.at(0).record.deletedTime, 1400000000);
  EXPECT_EQ(file.deleted.at(0).record.skin, u"x|y");
  EXPECT_EQ(file.deleted.at(1).record.deletedTime, kNotSet);
  EXPECT_EQ(file.deleted.at(2).record.deletedTime, -5);
}

TEST(InlineContent, IsTakenOffTheLine) {
  const DataFile file = Parse(
      u"[Jotlets]\n<ID>A<X>5<RTF>{\\rtf1 a^Mb<Y>6<RTF>}\n<ID>B<RTF>plain\n<ID>C<RTF>\n"
      u"[Deleted jotlets]\n1400000000|<ID>D<RTF>{\\rtf1 d}\n");
  ASSERT_EQ(Ids(file.jotlets) + Ids(file.deleted), u"A B C D ");
  EXPECT_EQ(file.jotlets[0].inlineContent, Text(u"{\\rtf1 a\r\nb<Y>6<RTF>}"));
  EXPECT_TRUE(file.jotlets[0].record.x == 5 && file.jotlets[0].record.y == kNotSet);
  EXPECT_FALSE(file.jotlets[1].inlineContent || file.jotlets[2].inlineContent);
  EXPECT_EQ(file.deleted[0].inlineContent, Text(u"{\\rtf1 d}"));
}

TEST(EncodedJotlet, TravelsInOneLine) {
  JotletData note = Note(u"A");
  note.source = u"<mail>";
  const Text line = MakeEncodedJotlet(note, false, u"{\\rtf1 a\r\nb\nc\rd}\r\n");
  EXPECT_EQ(line, MakeJotletLine(note, false) + u"<RTF>{\\rtf1 a^Mb^Mc^Md}^M");
  const FiledJotlet read = ParseEncodedJotlet(line, Note(u""), CountingIds());
  EXPECT_TRUE(read.record == note);
  EXPECT_EQ(read.inlineContent, Text(u"{\\rtf1 a\r\nb\r\nc\r\nd}\r\n"));
}

TEST(StackNumbers, AreTheLowestFreeOnes) {
  const auto numbers = [](TextView lines) {
    Text all;
    for (const StackRecord& s : Parse(Text(u"[Stacks]\n").append(lines)).stacks)
      all.append(IntText(s.number)).append(u" ");
    return all;
  };
  EXPECT_EQ(numbers(u"<ID>1\n<ID>2\n<ID>4\n<TITLE>x\n<X>1\n"), u"1 2 4 3 5 ");
  EXPECT_EQ(numbers(u"<ID>7\n<ID>7\n<ID>0\n<ID>-3\nx\n"), u"7 1 2 3 4 ");
  // A number that is still to come is not free.
  EXPECT_EQ(numbers(u"x\n<ID>1\n<ID>1\n<ID>2\n"), u"3 1 4 2 ");
  EXPECT_EQ(NewStackNumber(Parse(u"[Stacks]\n<ID>1\n<ID>2\n<ID>4\n").stacks), 3);
}

TEST(StackNumbers, NotesAreNotConfusedByFreshOnes) {
  const DataFile file = Parse(
      u"[Stacks]\n<ID>1\n<ID>1\n[Jotlets]\n<ID>A<STACK>1<RTF>\n<ID>B<STACK>2<RTF>\n<ID>C<STACK>9<RTF>\n");
  EXPECT_EQ(file.jotlets[0].record.stack, 1);
  EXPECT_EQ(file.jotlets[1].record.stack, kNone);
  EXPECT_EQ(file.jotlets[2].record.stack, 9);  // nobody's, and nobody gets it
}

TEST(ACutFile, IsToldByItsLastRecordLine) {
  for (const TextView cut : {u"[Jotlets]\n<ID>A<RTF>\n<ID>B<X>5", u"[Deleted jotlets]\n1400000",
                             u"[Options]\nVersion=Jotlets v8.0c\nID=",
                             u"[Options]\nVersion=Jotlets v8.0c\n[Jotlets]\n<ID>A<RTF>\n"})
    EXPECT_TRUE(Parse(cut).cut);
  for (const TextView whole : {u"[Jotlets]\n<ID>B<X>5<rtf>", u"[Jotlets]\n<ID>A<RTF>\n", u"[Jotlets]\n1:2:3",
                               u"[Options]\nVersion=Jotlets v8.0c\n[Deleted jotlets]\n"})
    EXPECT_FALSE(Parse(whole).cut);
}

TEST(ALostHeader, IsToldByTheRecordsBelowIt) {
  const auto lost = [](TextView text) { return Parse(text).headerLost; };
  for (const TextView text :
       {u"[Options]\niniver=2\n[Jotlevs]\n<X>1<ID>A<RTF>\n[Deleted jotlets]\n",
        u"[otlets]\n1:2:3:old\n[Stacks]\n", u"[Jotlets]\n[Friends]\nann,1\n[Deleted]\n<ID>A<rtf>{\\rtf1 }\n",
        u"[Deleted\n14|<ID>A<RTF>\n[Jotlets]\n",
        u"[Options]\nVersion=Jotlets v8.0c\n\n[Jotlets \n\n[Deleted jotlets]\n"})
    EXPECT_TRUE(lost(text)) << ToUtf8(text);
  for (const TextView text : {u"[Options]\nVersion=2\n[Deleted jotlets]\n<ID>A<RTF>\n",
                              u"[Other]\nkey=<b>\n12:30 dentist\n[Jotlets]\n",
                              u"[Options]\nVersion=Jotlets v8.0c\niniver=4\n[Notes]\n<ID>A<RTF>\n"})
    EXPECT_FALSE(lost(text)) << ToUtf8(text);
  const DataFile file = Parse(u"[Stacks]\n<ID>1<TITLE>a\n[Jotlet]\n<X>1<TITLE>b=c<ID>A<RTF>\n");
  EXPECT_TRUE(file.headerLost && file.stacks.size() == 1) << "a record is no stack";
}

TEST(RecordLines, AreNeverOlderThanTheirRecords) {
  std::vector<JotletData> records(4);
  for (std::size_t i = 0; i < records.size(); ++i) records[i].id = u"R" + IntText(static_cast<int>(i));
  records[1].altX = records[1].altY = 7;
  RecordLines lines;
  const auto expectSame = [&](bool alt = false) {
    DataFileView view{u"ME", {}, {}, {}, {}, alt};
    for (const JotletData& record : records) view.jotlets.push_back(&record);
    view.deleted = {&records.front()};
    Text text;
    AppendDataFile(text, view, lines);
    EXPECT_EQ(text, ComposeDataFile(view));
  };
  expectSame();
  records[2].title = u"changed";
  expectSame();
  expectSame(true);
  records.erase(records.begin());
  expectSame();
  records.insert(records.begin() + 1, records.back());
  records[1].id = u"new";
  expectSame();
}

}  // namespace
}  // namespace jotlets
