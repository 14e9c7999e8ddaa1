// Stored notes by their places: the list of keys as the store changes, and the rows near what is seen.
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <thread>

#include "base/natural_order.h"
#include "manage/manage_list.h"
#include "store/content_job.h"
#include "store/stored_browser.h"
#include "store_disk.h"

namespace jotlets {
namespace {

using Keys = StoredListing::Keys;
using State = StoredListing::State;

class StoredPlacesTest : public ::testing::Test {
 protected:
  StoredPlacesTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    store_.Open(folder_);
    store_.MoveShownChanges();
    sorter_.SetPath(folder_ + Text(kStoreFileName));
  }
  ~StoredPlacesTest() override {
    sorter_.Close();
    store_.Close();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::int64_t Put(TextView title, std::int32_t created = 0, TextView category = u"work") {
    JotletData record;
    record.id = u"N" + IntText(++made_);
    record.title = title;
    record.created = created;
    return store_.Put(record, category).value_or(0);
  }
  const StoredListing& Sorted() {
    while (sorter_.Step()) {
    }
    return *sorter_.Listing();
  }
  const StoredListing& Followed(const std::vector<ListedNote>& listed = {}) {
    sorter_.Follow(store_.MoveShownChanges(), listed);
    return Sorted();
  }

  const Text folder_ = FromUtf8(::testing::TempDir()) + u"jotlets places/";
  StoreDisk files_;
  FakeLog log_;
  NoteStore store_{files_, log_};
  StoredSorter sorter_{files_};
  int made_ = 0;
};

TEST_F(StoredPlacesTest, AreListedByAgeFirstAndThenInTheOrderThatIsAskedFor) {
  for (const TextView title : {u"Note 10", u"apple", u"note 9", u"Zoo"}) Put(title);
  Put(u"note 1", 0, u"home");
  sorter_.Begin({u"work", StoredBy::kTitle, false, {}}, {});
  while (!sorter_.Listing()) ASSERT_TRUE(sorter_.Step());
  EXPECT_EQ(*sorter_.Listing()->keys, (Keys{4, 3, 2, 1}));
  EXPECT_EQ(sorter_.Listing()->state, State::kByAge);
  EXPECT_EQ(*Sorted().keys, (Keys{2, 3, 1, 4}));
  EXPECT_EQ(sorter_.Listing()->state, State::kSorted);
  EXPECT_EQ(sorter_.Listing()->categories, (std::map<Text, std::size_t>{{u"home", 1}, {u"work", 4}}));

  // Another order of the same notes takes the place of this one when it is there.
  sorter_.Begin({u"work", StoredBy::kTitle, true, {}}, {});
  ASSERT_TRUE(sorter_.Step());
  EXPECT_EQ(*sorter_.Listing()->keys, (Keys{2, 3, 1, 4}));
  EXPECT_EQ(*Sorted().keys, (Keys{4, 1, 3, 2}));
  sorter_.Begin({{}, StoredBy::kPlace, false, u"Stored"}, {{-1, u"Desktop\n0"}, {-2, u"Stored: i\n0"}});
  EXPECT_EQ(*Sorted().keys, (Keys{-1, 5, -2, 4, 3, 2, 1}));
}

TEST_F(StoredPlacesTest, FollowTheStoreAsIfAllWereReadAnew) {
  std::mt19937 random(7);
  const auto below = [&random](std::size_t end) { return random() % end; };
  for (int i = 0; i < 40; ++i)
    Put(u"n" + IntText(static_cast<std::int64_t>(below(9))), static_cast<int>(below(5)));
  for (const bool backwards : {false, true})
    for (const StoredBy by : {StoredBy::kTitle, StoredBy::kCreated}) {
      const StoredOrder order{u"work", by, backwards, {}};
      store_.MoveShownChanges();
      std::vector<ListedNote> listed{{-1, u"n4"}, {-2, u"3"}};
      sorter_.Begin(order, listed);
      for (int round = 0; round < 60; ++round) {
        const Keys before = *Sorted().keys;
        const std::int64_t some = before[below(before.size())];
        switch (below(5)) {
          case 0: Put(u"n" + IntText(round % 9), round % 5); break;
          case 1: Put(u"n3", 2, u"home"); break;
          case 2: store_.Remove(some); break;
          case 3: listed = {{-1 - static_cast<std::int64_t>(below(4)), u"n" + IntText(round % 9)}}; break;
          default:
            for (std::size_t i = 0; i < below(80); ++i)
              store_.MarkLeaving(some + static_cast<std::int64_t>(i), true);
        }
        const Keys followed = *Followed(listed).keys;
        StoredSorter fresh(files_);
        fresh.SetPath(folder_ + Text(kStoreFileName));
        fresh.Begin(order, listed);
        while (fresh.Step()) {
        }
        ASSERT_EQ(followed, *fresh.Listing()->keys) << round;
        ASSERT_EQ(sorter_.Listing()->categories, fresh.Listing()->categories) << round;
      }
    }
}

TEST_F(StoredPlacesTest, ChangesWhileTheyAreReadAreNotLost) {
  for (int i = 0; i < 300; ++i) Put(u"n" + IntText(i));
  store_.MoveShownChanges();
  sorter_.Begin({}, {});
  for (int steps = 0; steps < 4; ++steps) ASSERT_TRUE(sorter_.Step());
  store_.Remove(1);  // it has been read
  Put(u"n0");
  EXPECT_EQ(Followed().keys->size(), 300u);
  EXPECT_EQ(sorter_.Listing()->keys->front(), 301);
  EXPECT_TRUE(store_.RenameCategory(u"work", u"play"));
  EXPECT_EQ(Followed().categories, (std::map<Text, std::size_t>{{u"play", 300}}));
  // What is not written yet nobody else can see.
  store_.BeginChange();
  Put(u"n1");
  EXPECT_EQ(Followed().keys->size(), 300u);
  store_.EndChange();
  EXPECT_EQ(Followed().keys->size(), 301u);
}

TEST_F(StoredPlacesTest, AStoreThatCannotBeReadLeavesWhatIsSeen) {
  Put(u"a");
  sorter_.Begin({}, {});
  EXPECT_EQ(Sorted().keys->size(), 1u);
  sorter_.SetPath(folder_ + u"none/" + Text(kStoreFileName));
  EXPECT_EQ(sorter_.Listing(), nullptr);
}

TEST_F(StoredPlacesTest, TheStoreTellsWhetherThereAreManyAndWhichCategories) {
  for (const TextView category : {u"b", u"", u"a", u"b"}) Put(u"x", 0, category);
  EXPECT_EQ(store_.CategoryNames(), (std::vector<Text>{u"", u"a", u"b"}));
  EXPECT_TRUE(store_.HasMoreThan(3, {}) && !store_.HasMoreThan(4, {}));
  EXPECT_TRUE(store_.HasMoreThan(1, u"b") && !store_.HasMoreThan(2, u"b") && !store_.HasMoreThan(0, u"c"));
}

class Shelf final : public NoteTexts {
 public:
  int reads = 0;
  Text TextOf(const ManageRow& row) override {
    ++reads;
    return u"Text of " + row.id;
  }
};

class ManagePlacesTest : public ::testing::Test {
 protected:
  static StoredNote Note(std::int64_t key) {
    StoredNote note;
    note.key = key;
    note.category = u"work";
    note.record.id = u"N" + IntText(key);
    note.record.title = u"Title " + IntText(key);
    return note;
  }
  void Show(Keys keys, const StoredOrder& order = {}) {
    list_.ShowByPlace(std::make_shared<StoredListing>(
        StoredListing{order, State::kSorted, std::make_shared<Keys>(std::move(keys)), {}}));
  }
  // As who fetches them would.
  std::vector<std::int64_t> Fetch(std::size_t first, std::size_t last) {
    const std::vector<std::int64_t> wanted = list_.ByPlace().Want(first, last);
    std::vector<StoredNote> notes;
    for (const std::int64_t key : wanted)
      if (!gone_.contains(key)) notes.push_back(Note(key));
    list_.ByPlace().Put(wanted, notes);
    return wanted;
  }
  static Keys Down(std::int64_t from) {
    Keys keys;
    for (; from > 0; --from) keys.push_back(from);
    return keys;
  }

  std::unordered_set<std::int64_t> gone_;
  Shelf shelf_;
  ManageTexts texts_{shelf_};
  ManageList list_{texts_};
};

TEST_F(ManagePlacesTest, FetchWhatIsSeenAndKeepNoMoreThanThat) {
  constexpr std::size_t kAll = 100'000;
  Show(Down(kAll));
  EXPECT_EQ(list_.Size(), kAll);
  EXPECT_EQ(list_.At(50'000).id, u"");
  EXPECT_EQ(list_.NameAt(50'000), NameOfStored(50'000));
  const auto wanted = list_.ByPlace().Want(50'000, 50'010);
  EXPECT_EQ(wanted.size(), 10u) << "what is seen comes first";
  EXPECT_TRUE(list_.ByPlace().Want(0, 10).empty()) << "others are on their way";
  list_.ByPlace().Put(wanted, {Note(50'000)});
  EXPECT_EQ(list_.At(50'000).title, u"Title 50000");
  const auto around = Fetch(50'000, 50'010);
  EXPECT_TRUE(around.size() > 10 && around.size() < 200) << around.size();
  EXPECT_TRUE(Fetch(50'000, 50'010).empty()) << "what has gone is not asked for again";
  EXPECT_FALSE(Fetch(kAll - 3, kAll + 5).empty()) << "the end";
  for (std::size_t at = 0; at < 40'000; at += 100)
    while (!Fetch(at, at + 10).empty()) {
    }
  EXPECT_EQ(list_.At(50'000).id, u"") << "thousands were seen since";
  EXPECT_EQ(list_.At(39'905).title, u"Title 60095");
}

TEST_F(ManagePlacesTest, ARowIsFoundByItsNameAndReadAgainWhenItChanges) {
  JotletData open;
  open.id = u"AA1";
  const std::vector<PlacedNote> listed{{&open, u"Desktop", 0}};
  EXPECT_EQ(list_.ByPlace().SetListed(listed, StoredBy::kPlace),
            (std::vector<ListedNote>{{-1, u"Desktop\n0"}}));
  Show({-1, 7, 5}, {{}, StoredBy::kPlace, false, u"Stored"});
  Fetch(0, 3);
  EXPECT_EQ(list_.At(0).category, u"Desktop");
  EXPECT_EQ(list_.At(1).category, u"Stored: work");
  EXPECT_EQ(list_.PlacesOf({u"aa1", NameOfStored(5), u"*6", u"*", u"*5x"}), (std::vector<std::size_t>{0, 2}));
  list_.WantTexts(0, 2);
  while (list_.IsReading()) list_.ReadOne();
  EXPECT_EQ(list_.At(1).snippet, u"Text of N7");
  EXPECT_EQ(shelf_.reads, 2);
  StoredChanges changes;
  changes.Add(7);
  list_.ByPlace().Forget(changes);
  EXPECT_EQ(list_.At(1).snippet, u"Text of N7") << "until it is there";
  EXPECT_EQ(Fetch(0, 3), std::vector<std::int64_t>{7});
  EXPECT_EQ(list_.At(1).snippet, u"Text of N7");

  // Another place begins with nothing, and a list of all rows ends it.
  Show({7}, {u"work", StoredBy::kTitle, false, {}});
  EXPECT_EQ(list_.At(0).id, u"");
  EXPECT_TRUE(list_.ShowByPlace(nullptr));
  EXPECT_EQ(list_.Size(), 0u);
  const JotletData* one = &open;
  EXPECT_TRUE(list_.SetNotes({&one, 1}));
  EXPECT_TRUE(!list_.IsByPlace() && list_.NameAt(0) == u"AA1");
}

TEST_F(StoredPlacesTest, TheContentCheckKnowsStoredNotesAndWhatItCannotRead) {
  ASSERT_GT(Put(u"a"), 0);
  ASSERT_GT(Put(u"b"), 0);
  for (const TextView name : {u"n1.rtf", u"open.rtf", u"lost.rtf", u"lost.rtf.0123456789ABCDEF.new"})
    files_.Put(folder_ + Text(kRtfFolder) + Text(name), "x");
  const auto check = [this] {
    std::atomic<bool> told = false;
    ContentJob job(files_, [&told] { told = true; });
    job.Start(folder_, {{u"Desktop", u"open"}, {u"Closed", u"gone", true}});
    while (!told) std::this_thread::yield();
    return job.Finished().value();
  };
  ContentJob::Report report = check();
  EXPECT_EQ(report.missing.size(), 2u);
  EXPECT_EQ(report.orphans, (std::vector<Orphan>{{u"lost", false}}));
  EXPECT_EQ(report.leftovers.size(), 1u);
  store_.Close();
  std::ofstream(std::filesystem::path(folder_ + Text(kStoreFileName)), std::ios::binary)
      << std::string(4096, 'x');
  report = check();
  EXPECT_TRUE(report.orphans.empty()) << "they may be those of stored notes";
}

}  // namespace
}  // namespace jotlets
