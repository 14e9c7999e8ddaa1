#include "desk/note_saver.h"

#include <gtest/gtest.h>

#include "data/text_file.h"
#include "fake_desk.h"

namespace jotlets {
namespace {

JotletData Note(TextView id) {
  JotletData record;
  record.id = id;
  return record;
}

class Saving : public testing::Test {
 protected:
  Saving() {
    saver.SetFolder(u"D:\\", u"ME");
    files.MakeFolder(u"D:\\rtf");
  }
  // The ids in the data file, in its order.
  Text Saved(TextView path = u"D:\\jotlets.ini") const {
    Options ignored;
    const Text text = DecodeTextFile(files.Get(path), Latin1()).text;
    const DataFile file = ParseDataFile(text, {ignored, CountingIds(), 0});
    Text ids;
    for (const FiledJotlet& jotlet : file.jotlets) ids.append(jotlet.record.id).append(u" ");
    return ids;
  }

  FakeFiles files;
  FakeClock clock;
  FakeLog log;
  Options options;
  // Opens a note, as the desk does.
  void Open(TextView id) {
    lists.desktop.Add(std::make_shared<JotletData>(Note(id)));
    windows.Open(*lists.desktop.begin());
  }
  NoteLists lists;
  FakeWindows windows{files};
  FakeJournalFile journalFile{files};
  NoteJournal journal{journalFile, files, log, options, lists, windows};
  NoteSaver saver{files, clock, log, options, lists, windows, journal};
};

TEST_F(Saving, WritesOpenThenAttachedThenSleepingNotes) {
  lists.sleeping.push_back(Note(u"C"));
  lists.attached.push_back(Note(u"B"));
  Open(u"A");
  EXPECT_TRUE(saver.SaveIfDirty());
  EXPECT_TRUE(files.Paths().empty());
  saver.SetDirty();
  EXPECT_TRUE(saver.SaveIfDirty() && !saver.IsDirty());
  EXPECT_EQ(Saved(), u"A B C ");
  EXPECT_EQ(log.lines,
            (std::vector<Text>{u"SaveJotlets started for 'D:\\jotlets.ini'", u"SaveJotlets completed OK"}));
  windows.Type(u"A", u"more");
  EXPECT_TRUE(saver.IsDirty());
}

TEST_F(Saving, ACopyLeavesTheDirtyFlagAndTheContentToRemove) {
  files.Put(u"D:\\rtf\\X.rtf", "");
  saver.SetDirty();
  saver.RemoveContentLater(Note(u"X"));
  EXPECT_TRUE(saver.SaveJotlets(u"D:\\jotlets.bye", false));
  EXPECT_TRUE(saver.IsDirty() && files.Exists(u"D:\\rtf\\X.rtf") && !files.Exists(u"D:\\jotlets.ini"));
  EXPECT_TRUE(saver.SaveIfDirty() && !files.Exists(u"D:\\rtf\\X.rtf"));
}

TEST_F(Saving, AFailureKeepsEverythingForTheNextTime) {
  files.Put(u"D:\\rtf\\X.rtf", "");
  saver.RemoveContentLater(Note(u"X"));
  saver.SetDirty();
  files.unchangeable.insert(u"d:\\jotlets.ini");
  EXPECT_FALSE(saver.SaveIfDirty());
  files.unchangeable.clear();
  Open(u"A");
  windows.Type(u"A", u"more");
  files.unchangeable.insert(u"d:\\rtf\\a.rtf");
  EXPECT_FALSE(saver.SaveIfDirty());
  EXPECT_TRUE(saver.IsDirty() && files.Exists(u"D:\\rtf\\X.rtf") && log.Holds(u"disk full"));
  files.unchangeable.clear();
  EXPECT_TRUE(saver.SaveIfDirty() && !saver.IsDirty() && !files.Exists(u"D:\\rtf\\X.rtf"));
  files.Put(u"D:\\rtf\\X.rtf", "");  // a later note of that id keeps its content
  files.Put(u"D:\\rtf\\Y.rtf", "");
  for (const TextView gone : {u"x", u"Y"}) saver.RemoveContentLater(Note(gone));
  lists.desktop.Remove(u"A");
  Open(u"X");
  lists.closed.push_back(Note(u"y"));
  EXPECT_TRUE(saver.SaveJotlets(saver.MainPath(), true) && files.Exists(u"D:\\rtf\\X.rtf") &&
              files.Exists(u"D:\\rtf\\Y.rtf"));
}

TEST_F(Saving, AFileThatWasNotReadIsPutAsideBeforeItIsReplaced) {
  files.Put(u"D:\\jotlets.ini", "unread");
  files.unchangeable.insert(u"d:\\jotlets.ini");
  saver.KeepUnreadFile();
  EXPECT_FALSE(saver.SaveJotlets(saver.MainPath(), true));
  EXPECT_EQ(files.Get(u"D:\\jotlets.ini"), "unread");
  files.unchangeable.clear();
  EXPECT_TRUE(saver.SaveJotlets(saver.MainPath(), true) && saver.SaveJotlets(saver.MainPath(), true));
  EXPECT_TRUE(files.Keeps("unread") && Saved().empty() && files.Get(u"D:\\jotlets.ini") != "unread");
  EXPECT_EQ(files.Paths().size(), 2u);
}

}  // namespace
}  // namespace jotlets
