#include "store/note_store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "fake_desk.h"
#include "fakes.h"
#include "store/store_rescue.h"
#include "store_disk.h"

namespace jotlets {
namespace {

class StoreTest : public ::testing::Test {
 protected:
  StoreTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    store.Open(folder_);
  }
  ~StoreTest() override {
    store.Close();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  StoreState Reopen() {
    store.Close();
    return store.Open(folder_);
  }
  void WriteStore(const std::string& bytes) {
    store.Close();
    std::ofstream(std::filesystem::path(folder_ + Text(kStoreFileName)), std::ios::binary) << bytes;
  }
  std::string ReadStore(TextView behind = {}) const {
    std::ifstream file(std::filesystem::path(folder_ + Text(kStoreFileName) + Text(behind)),
                       std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static JotletData Note(TextView id) {
    JotletData record;
    record.id = id;
    record.title = u"T\xD800 \u00E9 " + Text(id);
    record.stack = 3;
    record.alarm = 77;
    record.x = -5;
    return record;
  }

  const Text folder_ = FromUtf8(::testing::TempDir()) + u"jotlets store \u00FC/";
  StoreDisk files;
  FakeLog log;
  NoteStore store{files, log};
};

TEST_F(StoreTest, KeepsNotesWholeByCategory) {
  EXPECT_FALSE(std::filesystem::exists(folder_ + Text(kStoreFileName))) << "made by the first note alone";
  EXPECT_TRUE(store.KeysOf(u"a").empty() && !store.Has(u"A1") && !store.Find(1));
  const auto first = store.Put(Note(u"Ab1"), u"work in progress");
  const auto second = store.Put(Note(u"B2"), u"..\\x");
  const auto third = store.Put(Note(u"C3"), u"work in progress");
  ASSERT_TRUE(first && second && third);
  EXPECT_FALSE(store.Put(Note(u"aB1"), u"else")) << "ids are one whatever their case";
  Reopen();
  EXPECT_EQ(store.KeysOf(u"work in progress"), (std::vector{*first, *third}));
  EXPECT_EQ(store.KeysOf(u"work"), std::vector<std::int64_t>());
  EXPECT_EQ(store.Newest({}, 2).front().key, *third);
  EXPECT_EQ(store.Newest(u"..\\x", 2).size(), 1u);
  ASSERT_EQ(store.Categories().size(), 2u);
  EXPECT_TRUE(store.Categories()[1].name == u"work in progress" && store.Categories()[1].notes == 2);
  const std::uint64_t version = store.Version();
  EXPECT_TRUE(!store.RenameCategory(u"none", u"x") && store.Version() == version);
  EXPECT_TRUE(store.RenameCategory(u"..\\x", u"work in progress") && store.Version() != version);
  EXPECT_EQ(store.Categories().front().notes, 3u) << "one name, one category";
  EXPECT_TRUE(store.RenameCategory(u"work in progress", u"..\\x"));
  EXPECT_EQ(store.KeysOf(u"..\\x").size(), 3u);
  EXPECT_TRUE(store.RenameCategory(u"..\\x", u"work in progress"));
  const auto found = store.Find(*first);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->category, u"work in progress");
  EXPECT_EQ(MakeJotletLine(found->record, true), MakeJotletLine(Note(u"Ab1"), true));
  EXPECT_TRUE(store.Has(u"AB1") && store.Remove(*first));
  EXPECT_FALSE(store.Has(u"ab1") || store.Remove(*first) || store.MarkLeaving(*first, true));
  const auto next = store.Put(Note(u"D4"), u"");
  EXPECT_TRUE(next && *next > *third) << "keys are not used again";
  ASSERT_TRUE(store.Remove(*next));
  EXPECT_GT(store.Put(Note(u"E5"), u"").value_or(0), *next);
}

TEST_F(StoreTest, CategoriesAreMarkedAndMarksGoWithTheirNames) {
  EXPECT_FALSE(store.SetCategoryLook(u"work", {{}, 1})) << "there is no store yet";
  ASSERT_TRUE(store.Put(Note(u"A"), u"work") && store.Put(Note(u"B"), u"home"));
  EXPECT_TRUE(store.CategoryLooks().empty());
  store.MoveChanges();
  const CategoryLook blue{Colour{1, 2, 255}, 3};
  const CategoryLook star{{}, 1};
  const std::uint64_t version = store.Version();
  EXPECT_TRUE(store.SetCategoryLook(u"work", star) && store.SetCategoryLook(u"work", blue));
  EXPECT_NE(store.Version(), version) << "lists show it";
  EXPECT_TRUE(store.MoveChanges().empty()) << "no note has changed";
  EXPECT_EQ(Reopen(), StoreState::kOpen);
  using Looks = std::map<Text, CategoryLook>;
  EXPECT_EQ(store.CategoryLooks(), (Looks{{u"work", blue}}));
  EXPECT_TRUE(store.RenameCategory(u"work", u"office"));
  EXPECT_EQ(store.CategoryLooks(), (Looks{{u"office", blue}}));
  EXPECT_TRUE(store.SetCategoryLook(u"home", star) && store.RenameCategory(u"office", u"home"));
  EXPECT_EQ(store.CategoryLooks(), (Looks{{u"home", star}})) << "one that takes others in stays as it is";
  EXPECT_TRUE(store.SetCategoryLook(u"home", {}));
  EXPECT_TRUE(store.CategoryLooks().empty());

  store.Close();
  {
    Database bent;
    ASSERT_EQ(bent.Open(folder_ + Text(kStoreFileName), false), DatabaseResult::kDone);
    bent.Run("INSERT INTO categories VALUES ('far', 99999999, -4), ('text', 'red', 'star')");
  }
  EXPECT_EQ(Reopen(), StoreState::kOpen);
  EXPECT_EQ(store.CategoryLooks(), (Looks{{u"far", {}}, {u"text", {Colour{}, 0}}}));
  store.Close();
  {
    Database bent;
    ASSERT_EQ(bent.Open(folder_ + Text(kStoreFileName), false), DatabaseResult::kDone);
    bent.Run("DROP TABLE categories; CREATE VIEW categories AS SELECT text AS name FROM jotlets");
  }
  EXPECT_EQ(Reopen(), StoreState::kOpen);
  EXPECT_TRUE(store.CategoryLooks().empty());
  EXPECT_FALSE(store.SetCategoryLook(u"home", star));
  EXPECT_EQ(store.KeysOf(u"home").size(), 2u);
}

TEST_F(StoreTest, ARecordThatIsBentKeepsItsContent) {
  const auto key = store.Put(Note(u"Ab1"), u"a");
  ASSERT_TRUE(key);
  store.Close();
  {
    Database bent;
    ASSERT_EQ(bent.Open(folder_ + Text(kStoreFileName), false), DatabaseResult::kDone);
    bent.Run("UPDATE jotlets SET record = 'x'");
  }
  Reopen();
  const auto found = store.Find(*key);
  ASSERT_TRUE(found);
  EXPECT_EQ(FoldCase(found->record.id), FoldCase(u"Ab1"));
}

TEST_F(StoreTest, NeverOverwritesWhatItCannotRead) {
  for (const std::string& bytes : {std::string("no database"), std::string(4096, 'x')}) {
    WriteStore(bytes);
    EXPECT_EQ(Reopen(), StoreState::kDamaged);
    EXPECT_FALSE(store.IsOpen() || store.Put(Note(u"A1"), u"a"));
    EXPECT_EQ(ReadStore(), bytes);
  }
  WriteStore("");
  Reopen();
  ASSERT_TRUE(store.Put(Note(u"A1"), u"a")) << "an empty file is a store without notes";
  store.Close();
  {
    Database newer;
    ASSERT_EQ(newer.Open(folder_ + Text(kStoreFileName), false), DatabaseResult::kDone);
    newer.Run("PRAGMA user_version = 2");
  }
  Reopen();
  EXPECT_FALSE(store.IsOpen() || store.Put(Note(u"B2"), u"a"));
  EXPECT_TRUE(log.Holds(u"newer version") && store.Fault().find(u"newer version") != Text::npos);
}

TEST_F(StoreTest, AnyCutIsSeen) {
  ASSERT_TRUE(store.Put(Note(u"A1"), u"a"));
  store.Close();
  const std::string whole = ReadStore();
  for (std::size_t length = 1; length < whole.size(); length += 997) {
    WriteStore(whole.substr(0, length));
    EXPECT_EQ(Reopen(), StoreState::kDamaged) << length;
  }
  WriteStore(whole);
  Reopen();
  EXPECT_TRUE(store.Has(u"A1"));
}

// The desk with a store on the disk.
struct DeskWithStore : FakeDesk {
  explicit DeskWithStore(const Text& folder) {
    const Text path = folder + Text(kStoreFileName);
    // Its file is known to the library alone.
    if (std::filesystem::exists(path)) files.Put(path, "some");
    store.Open(folder);
  }
};

TEST_F(StoreTest, TheDeskStoresAndFetchesWithoutLosingAnything) {
  DeskWithStore home(folder_);
  home.Load(u"[Jotlets]\n<ID>A<X>5<Y>6<ALARM>77<RTF>\n<ID>B<RTF>\n");
  home.windows.Type(u"A", u"{\\rtf1 typed}");
  home.TakeJournal();
  const auto key = home.desk.Store(u"a", u"work");
  ASSERT_TRUE(key);
  EXPECT_FALSE(home.Lists().WhereIs(u"A"));
  EXPECT_EQ(home.files.Get(u"D:\\rtf\\A.rtf"), "{\\rtf1 typed}");
  EXPECT_EQ(home.TakeJournal().back(), u"deleted desktop jotlet stored A");
  EXPECT_FALSE(home.desk.Store(u"A", u"work") || home.desk.Store(u"Z", u"work"));
  EXPECT_TRUE(home.desk.Fetch(*key + 1).empty());

  home.windows.hasWindows = false;
  EXPECT_TRUE(home.desk.Fetch(*key).empty() && home.store.Has(u"A"));
  home.windows.hasWindows = true;
  EXPECT_EQ(home.desk.Fetch(*key), u"A");
  EXPECT_FALSE(home.store.Has(u"A"));
  const JotletData& back = *home.Lists().desktop.Find(u"A");
  EXPECT_TRUE(back.x == 5 && back.y == 6 && back.alarm == 77);
  EXPECT_GT(home.journal.flushed, 0u) << "on the disk before it left the store";

  ASSERT_TRUE(home.desk.Store(u"A", u"work"));
  EXPECT_EQ(home.desk.DeleteStored({u"a", u"B"}), 1u) << "B is not stored";
  EXPECT_FALSE(home.store.Has(u"A") || home.Lists().WhereIs(u"A"));
  home.desk.Saver().SaveIfDirty();
  EXPECT_FALSE(home.files.Exists(u"D:\\rtf\\A.rtf"));

  home.files.unchangeable.insert(u"d:\\rtf\\b.rtf");
  home.windows.Type(u"B", u"{\\rtf1 more}");
  EXPECT_FALSE(home.desk.Store(u"B", u"work"));
  EXPECT_TRUE(home.IsOpen(u"B")) << "what cannot be written stays open";
}

TEST_F(StoreTest, TheTextOfANoteThatIsNotOpenIsChangedWhereverItIs) {
  DeskWithStore home(folder_);
  home.Load(
      u"[Jotlets]\n<ID>OPEN<RTF>\n<ID>KEPT<RTF>\n<ID>ASLEEP<SLEEPING>1<SLEEPNEXTWAKE>5<RTF>\n"
      u"<ID>DRAWN<SLEEPING>1<SLEEPNEXTWAKE>5<IMAGE><RTF>\n[Deleted jotlets]\n7|<ID>CLOSED<RTF>\n");
  const auto key = home.desk.Store(u"KEPT", u"work");
  ASSERT_TRUE(key);
  home.clock.now.utc += 100;
  home.store.MoveChanges();
  for (const TextView id : {u"KEPT", u"ASLEEP", u"CLOSED"}) {
    EXPECT_TRUE(home.desk.ChangeText(id, "{\\rtf1 other}")) << ToUtf8(id);
    EXPECT_EQ(home.files.Get(u"D:\\rtf\\" + Text(id) + u".rtf"), "{\\rtf1 other}");
    EXPECT_EQ(home.desk.RecordOf(id)->modified, home.Now()) << ToUtf8(id);
  }
  EXPECT_TRUE(home.store.MoveChanges().contains(*key)) << "the search is told";
  EXPECT_EQ(home.store.Find(*key)->category, u"work");
  for (const TextView id : {u"OPEN", u"DRAWN", u"NONE"})
    EXPECT_FALSE(home.desk.ChangeText(id, "{\\rtf1 other}")) << ToUtf8(id);

  home.clock.now.utc += 100;
  home.files.unchangeable.insert(u"d:\\rtf\\closed.rtf");
  EXPECT_FALSE(home.desk.ChangeText(u"CLOSED", "{\\rtf1 third}"));
  EXPECT_NE(home.desk.RecordOf(u"CLOSED")->modified, home.Now());
  EXPECT_TRUE(home.log.Holds(u"Unable to write the text of jotlet CLOSED: disk full"));
}

// The program ended between the store and the lists: each note is in one of them.
TEST_F(StoreTest, ANoteBetweenStoreAndListsGoesOnToWhereItWasToGo) {
  ASSERT_TRUE(store.Put(Note(u"COMING"), u"a"));
  const auto leaving = store.Put(Note(u"LEAVING"), u"a");
  const auto turned = store.Put(Note(u"TURNED"), u"a");
  ASSERT_TRUE(store.MarkLeaving(*leaving, true) && store.MarkLeaving(*turned, true));
  store.Close();
  DeskWithStore home(folder_);
  home.Load(u"[Jotlets]\n<ID>coming<RTF>\n<ID>LEAVING<RTF>\n<ID>OTHER<RTF>\n");
  EXPECT_EQ(IdsOf(home.Lists().desktop), (std::vector<Text>{u"LEAVING", u"OTHER"}));
  EXPECT_TRUE(home.store.Has(u"COMING") && home.store.Has(u"TURNED") && !home.store.Has(u"LEAVING"));
  const auto turnedKey = home.store.KeyOf(u"TURNED");
  EXPECT_FALSE(home.store.Find(turnedKey.value_or(0))->leaving);
}

}  // namespace
}  // namespace jotlets
