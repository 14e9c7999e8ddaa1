#include "store/store_rescue.h"

#include <gtest/gtest.h>

#include <fstream>

#include "data/jotlet_line.h"
#include "store/note_store.h"
#include "store_disk.h"

namespace jotlets {
namespace {

constexpr int kNotes = 400;

class StoreRescueTest : public ::testing::Test {
 protected:
  StoreRescueTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~StoreRescueTest() override {
    store.Close();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  static Text Id(int i) { return u"N" + IntText(1000 + i); }

  // Notes with contents, in the store and in the index.
  void Fill() {
    // All at once: the store itself writes each note to the disk.
    Database database;
    ASSERT_EQ(database.Open(StorePath(), true), DatabaseResult::kDone);
    ASSERT_TRUE(MakeStoreForm(database));
    database.Run("BEGIN");
    SearchIndex index;
    ASSERT_TRUE(index.Open(folder_ + Text(kSearchIndexName)));
    index.Begin();
    for (int i = 0; i < kNotes; ++i) {
      JotletData record;
      record.id = Id(i);
      record.title = u"Title " + Id(i);
      record.alarm = i;
      Statement insert = database.Prepare("INSERT INTO jotlets VALUES (?, 'work', ?, 0, ?)");
      insert.Bind(i + 1).Bind(FoldCase(record.id)).Bind(MakeJotletLine(record, true));
      ASSERT_TRUE(insert.Run());
      files.Put(folder_ + ContentPath(record), "{\\rtf1 text}");
      IndexedNote note = IndexedOf(record);
      note.key = i + 1;
      note.category = u"work";
      ASSERT_TRUE(index.Put(note, u"text"));
    }
    ASSERT_TRUE(index.Commit());
    ASSERT_EQ(database.Run("COMMIT"), DatabaseResult::kDone);
  }
  static IndexedNote IndexedOf(const JotletData& record) {
    IndexedNote note;
    note.id = record.id;
    note.title = record.title;
    note.place = SearchPlace::kStored;
    return note;
  }

  Text StorePath() const { return folder_ + Text(kStoreFileName); }
  void Overwrite(std::streamoff at, std::size_t length) const {
    std::fstream file(std::filesystem::path(StorePath()), std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(at);
    file << std::string(length, '\xA5');
  }

  Job::State Rescue() { return StoreRescue(files, log, folder_, u"9", u"Recovered").Finish(); }

  // Which notes are there, and how many of them as they were.
  std::size_t Whole() {
    EXPECT_EQ(store.Open(folder_), StoreState::kOpen);
    store.Settle([](TextView) { return false; });
    std::size_t whole = 0;
    for (int i = 0; i < kNotes; ++i) {
      const auto key = store.KeyOf(Id(i));
      const auto note = key ? store.Find(*key) : std::nullopt;
      EXPECT_TRUE(note && !note->leaving) << i;
      if (!note) continue;
      EXPECT_EQ(note->record.title, u"Title " + Id(i));
      EXPECT_EQ(note->category, u"work");
      if (note->record.alarm == i) ++whole;
    }
    store.Close();
    return whole;
  }

  const Text folder_ = FromUtf8(::testing::TempDir()) + u"jotlets rescue/";
  StoreDisk files;
  FakeLog log;
  NoteStore store{files, log};
};

TEST_F(StoreRescueTest, OfADamagedStoreEveryNoteThatCanBeReadIsWholeAndTheOthersAreNamedByTheIndex) {
  Fill();
  const auto size = static_cast<std::streamoff>(std::filesystem::file_size(StorePath()));
  Overwrite(size / 2 / 4096 * 4096, 4096);
  ASSERT_EQ(store.Open(folder_), StoreState::kDamaged);
  ASSERT_EQ(Rescue(), Job::State::kDone);
  EXPECT_TRUE(log.Holds(u"is damaged and kept as"));
  EXPECT_TRUE(std::filesystem::exists(StorePath() + u".damaged-9"));
  const std::size_t whole = Whole();
  EXPECT_TRUE(whole > kNotes * 8 / 10 && whole < kNotes) << whole;
}

TEST_F(StoreRescueTest, AStoreThatIsGoneComesBackFromTheContentFiles) {
  Fill();
  std::filesystem::remove(StorePath());
  ASSERT_EQ(store.Open(folder_), StoreState::kGone);
  ASSERT_EQ(Rescue(), Job::State::kDone);
  EXPECT_EQ(Whole(), 0u) << "only titles and categories are known";
  // A note whose content is gone too is gone; one that is listed belongs there.
  std::filesystem::remove(StorePath());
  std::ofstream(std::filesystem::path(StorePath())).flush();
  files.Remove(folder_ + u"rtf\\N1000.rtf");
  ASSERT_EQ(store.Open(folder_), StoreState::kGone) << "an empty file is none";
  ASSERT_EQ(Rescue(), Job::State::kDone);
  ASSERT_EQ(store.Open(folder_), StoreState::kOpen);
  store.Settle([](TextView id) { return id == u"N1001"; });
  EXPECT_FALSE(store.Has(u"N1000") || store.Has(u"N1001"));
  EXPECT_TRUE(store.Has(u"N1002"));
}

TEST_F(StoreRescueTest, WithoutAnIndexContentFilesAreRecoveredAndWhatIsNoStoreIsKept) {
  Fill();
  std::filesystem::remove(folder_ + Text(kSearchIndexName));
  Overwrite(0, 8192);
  files.Put(folder_ + u"images\\P1.png", "png");
  ASSERT_EQ(store.Open(folder_), StoreState::kDamaged);
  ASSERT_EQ(Rescue(), Job::State::kDone);
  ASSERT_EQ(store.Open(folder_), StoreState::kOpen);
  EXPECT_EQ(store.KeysOf(u"Recovered").size(), kNotes + 1u);
  EXPECT_TRUE(store.Find(*store.KeyOf(u"P1"))->record.IsImage());
}

// Whatever stands in the file beside the notes, they are all had again, and nothing in it acts.
TEST_F(StoreRescueTest, AFormThatIsNotOursIsRescuedAndWhatItWouldDoIsNotDone) {
  const auto bend = [this](const char* sql) {
    Database database;
    std::filesystem::remove(StorePath());
    std::filesystem::remove(folder_ + Text(kSearchIndexName));
    Fill();
    ASSERT_EQ(database.Open(StorePath(), false), DatabaseResult::kDone);
    ASSERT_EQ(database.Run(sql), DatabaseResult::kDone) << sql;
  };
  const auto rescued = [this] {
    EXPECT_EQ(store.Open(folder_), StoreState::kDamaged);
    EXPECT_EQ(Rescue(), Job::State::kDone);
    EXPECT_EQ(store.Open(folder_), StoreState::kOpen);
    return Whole();
  };
  for (const char* bent :
       {"UPDATE sqlite_sequence SET seq = 9223372036854775807", "UPDATE jotlets SET key = -7 WHERE key = 9",
        "UPDATE jotlets SET key = 0 WHERE key = 9",
        "UPDATE jotlets SET key = 9223372036854775807 WHERE key = 12",
        "ALTER TABLE jotlets RENAME TO j; CREATE TABLE jotlets AS SELECT * FROM j; DROP TABLE j"}) {
    bend(bent);
    EXPECT_EQ(rescued(), static_cast<std::size_t>(kNotes)) << bent;
  }
  bend(
      "DROP TABLE jotlets; CREATE VIEW jotlets AS WITH RECURSIVE c(n) AS"
      " (SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT n AS key, 'c' AS category, 't' || n AS text, 0 AS "
      "flags, '' AS record FROM c");
  EXPECT_EQ(rescued(), 0u) << "only titles and categories are known";

  bend("CREATE TRIGGER away AFTER INSERT ON jotlets BEGIN DELETE FROM jotlets; END");
  ASSERT_EQ(store.Open(folder_), StoreState::kOpen);
  JotletData record;
  record.id = u"M1";
  ASSERT_TRUE(store.Put(record, u"work"));
  EXPECT_TRUE(store.Has(u"M1") && store.Has(Id(0)));
}

// Killed after each step and at each change of a file: the next rescue ends with every note.
TEST_F(StoreRescueTest, ARescueThatEndsAnywhereBeginsAgain) {
  Fill();
  Overwrite(24 * 4096, 4096);
  const std::filesystem::path kept = folder_ + u"kept";
  std::filesystem::copy_file(StorePath(), kept);
  const auto restore = [&] {
    for (const auto& entry : std::filesystem::directory_iterator(folder_))
      if (entry.path().u16string().find(kStoreFileName) != Text::npos) std::filesystem::remove(entry.path());
    std::filesystem::copy_file(kept, StorePath());
  };
  bool ended = false;
  for (int steps = 1; !ended; steps += 2) {
    restore();
    {
      StoreRescue rescue(files, log, folder_, u"9", u"Recovered");
      for (int i = 0; i < steps && !ended; ++i) ended = rescue.Step(1) == Job::State::kDone;
    }
    if (store.Open(folder_) != StoreState::kOpen) {
      ASSERT_EQ(Rescue(), Job::State::kDone) << steps;
    }
    ASSERT_GT(Whole(), kNotes * 8u / 10) << steps;
  }
  for (int changes = 0; changes < 4; ++changes) {
    restore();
    files.changesUntilDeath = changes;
    const Job::State state = Rescue();
    files.changesUntilDeath = -1;
    if (store.Open(folder_) != StoreState::kOpen) {
      EXPECT_EQ(state, Job::State::kFailed);
      ASSERT_EQ(Rescue(), Job::State::kDone) << changes;
    }
    ASSERT_GT(Whole(), kNotes * 8u / 10) << changes;
  }
}

}  // namespace
}  // namespace jotlets
