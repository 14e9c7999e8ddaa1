#include "desk/folder_import.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/data_folder.h"
#include "desk/note_import.h"
#include "desk/undo_import.h"
#include "fake_desk.h"

namespace jotlets {
namespace {

class FolderImportTest : public ::testing::Test {
 protected:
  FolderImportTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    home.store.Open(folder_);
  }
  ~FolderImportTest() override {
    home.store.Close();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  const Text folder_ = FromUtf8(::testing::TempDir()) + u"jotlets folder import/";
  FakeDesk home;
};

TEST_F(FolderImportTest, MakesStoredNotesOfWhatItCanReadAndNamesTheRest) {
  home.files.Put(u"E:\\in\\plain.txt", "caf\xC3\xA9");
  home.files.Put(u"E:\\in\\list.md", "---\ntitle: Mine\n---\n- a\n");
  home.files.Put(u"E:\\in\\sub\\page.htm", "<p>words</p>");
  home.files.Put(u"E:\\in\\sub\\note.jtl", "Title: T\nhello");
  home.files.Put(u"E:\\in\\sub\\noise.txt", std::string("a\0b", 3));
  home.files.Put(u"E:\\in\\program.exe", "MZ");
  for (int i = 0; i < 250; ++i) home.files.Put(u"E:\\in\\many\\" + IntText(i) + u".txt", "x");
  home.files.unreadable.insert(u"e:\\in\\many\\7.txt");
  Latin1 ansi;
  FolderImport job({home.files, ansi, home.log, home.desk, home.store, 2000}, u"E:\\in\\");
  EXPECT_EQ(job.Step(3), Job::State::kRunning);
  EXPECT_EQ(job.Finish(), Job::State::kDone);
  EXPECT_EQ(job.Imported(), 253u);
  ASSERT_EQ(job.Faults().size(), 2u);
  EXPECT_TRUE(home.log.Holds(u"Unable to import 'E:\\in\\sub\\noise.txt': the file holds no text"));
  EXPECT_EQ(home.store.KeysOf(u"in").size(), 2u);
  EXPECT_EQ(home.store.KeysOf(u"in/sub").size(), 2u);
  const auto mine = home.store.Find(home.store.KeysOf(u"in").back());
  EXPECT_EQ(mine->record.title, u"Mine");
  EXPECT_NE(home.files.Get(u"D:\\" + ContentPath(mine->record)).find("pnlvlblt"), std::string::npos);
  EXPECT_TRUE(home.Lists().desktop.empty()) << "no windows";
}

TEST_F(FolderImportTest, WhatIsGivenUpKeepsWhatHasBecomeNotes) {
  for (int i = 0; i < 5; ++i) home.files.Put(u"E:\\in\\" + IntText(i) + u".txt", "x");
  Latin1 ansi;
  {
    FolderImport job({home.files, ansi, home.log, home.desk, home.store, 2000}, u"E:\\in\\");
    job.Step(4);
    EXPECT_EQ(job.Imported(), 3u);
  }
  home.store.Close();
  home.files.Put(folder_ + Text(kStoreFileName), "some");
  home.store.Open(folder_);
  EXPECT_EQ(home.store.KeysOf(u"in").size(), 3u);
}

TEST_F(FolderImportTest, MakesANoteOfEachThatAFileHolds) {
  home.files.Put(u"E:\\in\\Trips.enex",
                 "<en-export><note><title>a</title><created>20201010T101010Z</created>"
                 "<updated>20201010T101011Z</updated><resource/></note><note></en-export>");
  home.files.Put(u"E:\\in\\list.csv", "title,category\none,Work\ntwo,\n");
  Latin1 ansi;
  const FolderImport::Context context{home.files, ansi, home.log, home.desk, home.store, 2000};
  FolderImport folder(context, u"E:\\in\\");
  EXPECT_EQ(folder.Finish(), Job::State::kDone);
  EXPECT_EQ(folder.Percent(), 100);
  ASSERT_EQ(folder.Imported(), 3u);
  ASSERT_EQ(folder.Faults().size(), 2u);
  EXPECT_EQ(folder.Faults()[0].path, u"E:\\in\\Trips.enex: note 1");
  EXPECT_EQ(folder.Faults()[0].reason, u"without a picture or file without a name");
  EXPECT_EQ(folder.Faults()[1].path, u"E:\\in\\Trips.enex");
  const std::vector<std::int64_t> trips = home.store.KeysOf(u"in/Trips");
  ASSERT_EQ(trips.size(), 1u);
  EXPECT_EQ(home.store.Find(trips.front())->record.created, 1602324610);
  EXPECT_EQ(home.store.Find(trips.front())->record.modified, 1602324611);
  EXPECT_EQ(home.store.KeysOf(u"Work").size(), 1u);
  EXPECT_EQ(home.store.KeysOf(u"in/list").size(), 1u);

  // The columns chosen, of one file alone.
  Text reason;
  const auto preview = PreviewOfTable(home.files, ansi, u"E:\\in\\list.csv", reason);
  EXPECT_EQ(preview.value().rows.size(), 3u);
  FolderImport alone(context, u"E:\\in\\list.csv", CsvColumns{.title = 1, .text = 0});
  EXPECT_EQ(alone.Finish(), Job::State::kDone);
  EXPECT_EQ(home.store.KeysOf(u"list").size(), 3u);

  home.files.Put(u"E:\\in\\large.csv", std::string(kLargestCollection + 1, 'x'));
  FolderImport large(context, u"E:\\in\\large.csv");
  large.Finish();
  EXPECT_EQ(large.Faults().front().reason, u"the file is over 64 MB");
}

TEST_F(FolderImportTest, CanBeUndone) {
  for (int i = 0; i < 250; ++i) home.files.Put(u"E:\\in\\" + IntText(i) + u".txt", "x");
  home.Load(u"[Jotlets]\n<ID>A<RTF>\n");
  ASSERT_TRUE(home.desk.Store(u"A", u"in"));
  Latin1 ansi;
  FolderImport job({home.files, ansi, home.log, home.desk, home.store, 2000}, u"E:\\in\\");
  ASSERT_EQ(job.Finish(), Job::State::kDone);
  const JotletData first = home.store.Find(job.Keys()[0])->record;
  const Text fetched = home.desk.Fetch(job.Keys()[1]);
  ASSERT_FALSE(fetched.empty());
  UndoImport undo(home.desk, home.store, job.Keys());
  EXPECT_EQ(undo.Step(1), Job::State::kRunning);
  EXPECT_EQ(undo.Left(), 50u);
  EXPECT_EQ(undo.Percent(), 80);
  EXPECT_EQ(undo.Finish(), Job::State::kDone);
  EXPECT_EQ(undo.Left(), 0u);
  EXPECT_EQ(home.store.KeysOf(u"in").size(), 1u) << "that of somebody else";
  EXPECT_TRUE(home.IsOpen(fetched)) << "the user has it now";
  EXPECT_TRUE(home.desk.Saver().SaveIfDirty());
  EXPECT_FALSE(home.files.Exists(u"D:\\" + ContentPath(first)));
}

// A note that is stored meanwhile is on the disk when it has left its list.
TEST_F(FolderImportTest, DoesNotKeepOtherNotesWaiting) {
  for (int i = 0; i < 5; ++i) home.files.Put(u"E:\\in\\" + IntText(i) + u".txt", "x");
  home.Load(u"[Jotlets]\n<ID>A<RTF>\n");
  Latin1 ansi;
  FolderImport job({home.files, ansi, home.log, home.desk, home.store, 2000}, u"E:\\in\\");
  job.Step(3);
  ASSERT_TRUE(home.desk.Store(u"A", u"work"));
  {
    // The library's own view of the file, beside the store's.
    Database other;
    ASSERT_EQ(other.Open(folder_ + Text(kStoreFileName), false), DatabaseResult::kDone);
    EXPECT_EQ(other.Number("SELECT count(*) FROM jotlets", 0), 3);
  }
  EXPECT_EQ(job.Finish(), Job::State::kDone);
  EXPECT_EQ(home.store.KeysOf(u"in").size(), 5u);
}

}  // namespace
}  // namespace jotlets
