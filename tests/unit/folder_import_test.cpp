#include "desk/folder_import.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/data_folder.h"
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
