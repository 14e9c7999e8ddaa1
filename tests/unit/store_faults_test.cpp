// What fails below the database library: at every call that reaches the disk, each note stays in exactly one
// place, and what was said to be done is done.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "desk/folder_import.h"
#include "fake_desk.h"
#include "faulty_disk.h"
#include "store/search_index.h"

namespace jotlets {
namespace {

constexpr int kStored = 40;

Text IdOf(int number) { return u"S" + IntText(number); }

// A desk whose store is on the disk.
class HomeOnDisk : public FakeDesk {
 public:
  explicit HomeOnDisk(const Text& folder) {
    files.Put(folder + Text(kStoreFileName), "known to the library alone");
    state = store.Open(folder);
  }
  StoreState state;
};

class StoreFaultsTest : public ::testing::Test {
 protected:
  StoreFaultsTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    FakeFiles files;
    FakeLog log;
    NoteStore store(files, log);
    store.Open(folder_);
    store.BeginChange();
    for (int i = 0; i < kStored; ++i) {
      JotletData record;
      record.id = IdOf(i);
      // Of some the row is larger than a page.
      record.title = Text(i % 7 == 0 ? 3000 : 100, u'x');
      store.Put(record, i % 2 == 0 ? u"even" : u"odd");
    }
    EXPECT_TRUE(store.EndChange());
    store.Close();
    std::filesystem::rename(path_, kept_);
  }
  ~StoreFaultsTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  static Text LinesOf(const NoteLists& lists) {
    Text lines = u"[Jotlets]\n";
    for (const auto& record : lists.desktop) lines += u"<ID>" + record->id + u"<RTF>\n";
    return lines;
  }

  // What is done, and what has to hold at the end of it with the disk as good as ever, and at the next start.
  struct Operation {
    const char* name;
    std::function<bool(HomeOnDisk&)> run;
    std::function<void(FakeDesk&, bool done)> check;
  };
  void ExpectSound(const Operation& operation, const DiskFault& fault, int at, bool done, const Text& lines) {
    HomeOnDisk again(folder_);
    EXPECT_EQ(again.state, StoreState::kOpen);
    again.Load(lines);
    operation.check(again, done);
    int places = 0;
    for (int i = 0; i < kStored; ++i) {
      const int here = (again.store.Has(IdOf(i)) ? 1 : 0) + (again.Lists().WhereIs(IdOf(i)) ? 1 : 0);
      EXPECT_LE(here, 1) << i;
      places += here;
    }
    EXPECT_GE(places, kStored - 2);
    for (const TextView id : {u"A", u"B"})
      EXPECT_NE(again.store.Has(id), again.Lists().WhereIs(id).has_value()) << ToUtf8(id);
    again.store.Close();
    Database database;
    EXPECT_EQ(database.Open(path_, false), DatabaseResult::kDone);
    EXPECT_TRUE(database.IsSound());
    if (HasFailure()) ADD_FAILURE() << operation.name << ", " << fault.name << " " << at;
  }

  // One round; false when the fault was not met any more.
  bool Play(const Operation& operation, const DiskFault& fault, int at) {
    for (const TextView behind : {u"", u"-journal"}) std::filesystem::remove(path_ + Text(behind));
    std::filesystem::copy_file(kept_, path_);
    FaultyDisk disk;
    bool done = false;
    Text lines;
    {
      HomeOnDisk home(folder_);
      home.Load(u"[Jotlets]\n<ID>A<RTF>\n<ID>B<RTF>\n");
      disk.Arm(fault, at);
      done = operation.run(home);
      if (fault.calls == kAnyChange) {
        // The program has ended by that.
        lines = LinesOf(home.Lists());
        home.store.Close();
      }
      disk.Disarm();
      if (fault.calls != kAnyChange) {
        operation.check(home, done);
        EXPECT_TRUE(home.desk.Store(u"B", u"later")) << "the disk is good again";
        home.store.Close();
        lines = LinesOf(home.Lists());
      }
    }
    ExpectSound(operation, fault, at, done, lines);
    EXPECT_TRUE(done || disk.WasHit()) << operation.name;
    return disk.WasHit();
  }

  const Text folder_ = FromUtf8(::testing::TempDir()) + u"jotlets store faults/";
  const Text path_ = folder_ + Text(kStoreFileName);
  const Text kept_ = folder_ + u"kept";
};

TEST_F(StoreFaultsTest, EachNoteIsInOnePlaceWhateverFails) {
  Latin1 ansi;
  std::size_t imported = 0;
  std::size_t left = 0;
  const auto stored = [](FakeDesk& home, TextView id) { return home.store.Has(id); };
  const Operation operations[] = {
      {"store", [](HomeOnDisk& home) { return home.desk.Store(u"A", u"odd").has_value(); },
       [&](FakeDesk& home, bool done) { EXPECT_EQ(stored(home, u"A"), done); }},
      {"fetch", [](HomeOnDisk& home) { return !home.desk.Fetch(8).empty(); },
       [&](FakeDesk& home, bool done) { EXPECT_EQ(home.Lists().WhereIs(u"S7").has_value(), done); }},
      {"delete",
       [&](HomeOnDisk& home) {
         left = home.desk.DeleteStored({u"S0", u"S1"});
         return left == 0;
       },
       [&](FakeDesk& home, bool) {
         EXPECT_EQ((stored(home, u"S0") ? 1u : 0u) + (stored(home, u"S1") ? 1u : 0u), left);
       }},
      {"rename", [](HomeOnDisk& home) { return home.store.RenameCategory(u"even", u"odd"); },
       [&](FakeDesk& home, bool done) {
         EXPECT_EQ(home.store.KeysOf(u"even").size(), done ? 0u : kStored / 2);
       }},
      {"import",
       [&](HomeOnDisk& home) {
         // With rows that are large enough for more pages to be changed by the later ones.
         for (int i = 0; i < 5; ++i)
           home.files.Put(u"E:\\in\\" + Text(300, u'x') + IntText(i) + u".txt", "x");
         FolderImport job({home.files, ansi, home.log, home.desk, home.store, 2000}, u"E:\\in\\");
         const bool done = job.Finish() == Job::State::kDone;
         imported = job.Imported();
         return done && imported == 5;
       },
       [&](FakeDesk& home, bool) { EXPECT_EQ(home.store.KeysOf(u"in").size(), imported); }},
  };
  for (const Operation& operation : operations) {
    for (const DiskFault& fault : kDiskFaults) {
      int at = 0;
      while (Play(operation, fault, at) && !HasFailure()) ASSERT_LT(++at, 1000);
      if (HasFailure()) return;
    }
  }
}

TEST_F(StoreFaultsTest, TheSearchHasAChangeWholeOrNotAtAll) {
  const Text path = folder_ + Text(kSearchIndexName);
  const auto note = [](int number) {
    IndexedNote indexed;
    indexed.id = IdOf(number);
    indexed.changed = 1000 + number;
    return indexed;
  };
  const auto names = [](SearchIndex& index, TextView word) {
    return index.Names(ParseSearchQuery(word), {}, 100).value_or(std::vector<Text>{u"unread"}).size();
  };
  for (const DiskFault& fault : kDiskFaults) {
    for (int at = 0;; ++at) {
      ASSERT_LT(at, 1000);
      FaultyDisk disk;
      bool done = false;
      bool damaged = false;
      {
        SearchIndex index;
        index.Discard(path);
        ASSERT_TRUE(index.Open(path));
        index.Begin();
        for (int i = 0; i < kStored; ++i) index.Put(note(i), u"old " + Text(500, u'x'));
        ASSERT_TRUE(index.Commit());
        disk.Arm(fault, at);
        index.Begin();
        done = index.Put(note(3), u"fresh") && index.Remove(u"s4") && index.Put(note(5), u"fresh") &&
               index.Commit();
        if (!done) index.RollBack();
        damaged = index.IsDamaged();
        if (fault.calls != kAnyChange) disk.Disarm();
      }
      disk.Disarm();
      SearchIndex again;
      ASSERT_TRUE(again.Open(path));
      if (!damaged) {
        EXPECT_EQ(names(again, u"fresh"), done ? 2u : 0u) << fault.name << " " << at;
        EXPECT_EQ(names(again, u"old"), done ? kStored - 3u : kStored) << fault.name << " " << at;
        EXPECT_FALSE(again.IsDamaged());
      }
      if (HasFailure() || !disk.WasHit()) {
        EXPECT_TRUE(done);
        break;
      }
    }
  }
}

}  // namespace
}  // namespace jotlets
