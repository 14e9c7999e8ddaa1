#include <gtest/gtest.h>

#include "app/startup_arguments.h"
#include "desk/note_file.h"
#include "desk/note_message.h"

namespace jotlets {
namespace {

StartKind Kind(TextView commandLine) { return ParseCommandLine(commandLine).kind; }

TEST(CommandLine, TellsTheKindOfStart) {
  EXPECT_EQ(Kind(u""), StartKind::kNormal);
  EXPECT_EQ(Kind(u"  "), StartKind::kNormal);
  EXPECT_EQ(Kind(u"-rescue"), StartKind::kRescue);
  EXPECT_EQ(Kind(u"/x -rescue "), StartKind::kRescue);
  EXPECT_EQ(Kind(u"-?"), StartKind::kUsage);
  EXPECT_EQ(Kind(u" ? "), StartKind::kUsage);
  EXPECT_EQ(Kind(u"-close"), StartKind::kClose);
  EXPECT_EQ(Kind(u"-closed.jtl"), StartKind::kNoteFile);
  EXPECT_EQ(Kind(u"what?"), StartKind::kNoteFile);
  EXPECT_TRUE(Kind(u"\"C:\\a b.JSK\"") == StartKind::kSkinFile && Kind(u"jsk") == StartKind::kNoteFile);
}

TEST(CommandLine, ANoteFileIsGivenWithOrWithoutQuotes) {
  EXPECT_EQ(ParseCommandLine(u" C:\\my notes\\a.jtl ").file, u"C:\\my notes\\a.jtl");
  EXPECT_EQ(ParseCommandLine(u"\"C:\\my notes\\a.jtl\"").file, u"C:\\my notes\\a.jtl");
  EXPECT_EQ(ParseCommandLine(u"\"").file, u"\"");
}

TEST(NoteFile, BecomesANoteMessage) {
  EXPECT_EQ(
      NoteMessageFromFile(
          u"col:255\r\nwidth: 200px\r\nTitle:Shop\r\nuTitle:00480069\r\nSource:Ann\r\n{\\rtf1 a\r\nb}\r\n"),
      u"#jotlet FORM=\nCOL=255\nW=200\nSOURCE=Ann\nUTITLE=00480069\nTITLE=Shop\nRTF={\\rtf1 a\r\nb}\r\n");
  EXPECT_EQ(NoteMessageFromFile(u"{milk\ntitle:eggs\n{\\rtf1"),
            u"#jotlet FORM=\nTEXT={milk\ntitle:eggs\n{\\rtf1");
  EXPECT_EQ(NoteMessageFromFile(u"utitle:0048\ntitle:a:b"), u"#jotlet FORM=\nUTITLE=0048\nTITLE=a:b\nTEXT=");
}

TEST(NoteMessage, CarriesTheNoteOver) {
  const auto note = ParseNoteMessage(
      u"FORM=\nCOL=11862015\nW=200\nSOURCE=Ann\nUTITLE=00480069\nTITLE=x\nNEW=1\nRTF={\\rtf1\nTEXT=}");
  ASSERT_TRUE(note);
  EXPECT_TRUE(note->colour == (Colour{255, 255, 180}) && note->width == 200 && note->source == u"Ann");
  EXPECT_EQ(note->title, u"Hi");
  EXPECT_TRUE(note->isRtf && note->content == u"{\\rtf1\nTEXT=}");
  const auto plain = ParseNoteMessage(u"TITLE=x\r\nTEXT=");
  EXPECT_TRUE(plain && plain->title == u"x" && !plain->isRtf && plain->content.empty() && !plain->colour);
  EXPECT_FALSE(ParseNoteMessage(u"") || ParseNoteMessage(u"hello") || ParseNoteMessage(u"TITLE=x"));
}

}  // namespace
}  // namespace jotlets
