#include "store/note_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "fake_desk.h"
#include "fakes.h"
#include "store/note_store.h"

namespace jotlets {
namespace {

// Takes its time for each file.
class SlowFiles : public FakeFiles {
 public:
  mutable std::atomic<int> reads = 0;
  std::atomic<bool> slow = false;

  FileContent Read(TextView path) const override {
    ++reads;
    if (slow) std::this_thread::sleep_for(std::chrono::milliseconds(20));
    return FakeFiles::Read(path);
  }
};

class NoteSearchTest : public ::testing::Test {
 protected:
  NoteSearchTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override {
    search.Stop();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  template <typename Condition>
  bool Await(Condition holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!holds()) {
      if (std::chrono::steady_clock::now() > end) return false;
      if (auto news = search.Poll()) answers.push_back(std::move(*news));
      std::this_thread::yield();
    }
    return true;
  }
  void Start() {
    search.Stop();
    search.Poll();
    log.lines.clear();
    search.Start(folder_);
    ASSERT_TRUE(Await([this] { return log.Holds(u"...finished generating titles and filling cache"); }));
  }
  SearchEntry Note(TextView id, TextView title, const std::string& words) {
    JotletData record;
    record.id = id;
    record.title = title;
    record.modified = ++now_;
    files.Put(folder_ + ContentPath(record), "{\\rtf1 " + words + "}");
    return {IndexedNoteOf(record, SearchPlace::kDesktop), {}};
  }
  // The key of the stored note is 1.
  void MakeStore() {
    files.Put(folder_ + Text(kStoreFileName), "some");
    FakeFiles none;
    NoteStore maker(none, log);
    maker.Open(folder_);
    JotletData record;
    record.id = u"S1";
    record.title = u"Stored apple";
    ASSERT_TRUE(maker.Put(record, u"Orchard"));
  }
  // As another program would.
  void Hold(TextView name) {
    ASSERT_EQ(other.Open(folder_ + Text(name), false), DatabaseResult::kDone);
    ASSERT_EQ(other.Run("BEGIN EXCLUSIVE"), DatabaseResult::kDone);
  }
  bool AwaitNames() {
    clock.Move(60);
    return Await([this] { return search.Names(u"x").has_value(); });
  }
  // In any order.
  std::vector<Text> Names(TextView words) {
    std::vector<Text> names = search.Names(words).value_or(std::vector<Text>{u"unknown"});
    std::ranges::sort(names);
    return names;
  }
  using Ids = std::vector<Text>;

  const Text folder_ = FromUtf8(::testing::TempDir()) + u"jotlets note search/";
  SlowFiles files;
  FakeClock clock;
  FakeLog log;
  std::int32_t now_ = 1'000'000;
  std::vector<SearchEntry> notes;
  std::vector<SearchAnswer> answers;
  std::atomic<int> wakes = 0;
  Database other;
  NoteSearch search{{files, clock, log, [this] { return notes; }, [this] { ++wakes; }}};
};

TEST_F(NoteSearchTest, KnowsWhatIsThereAtTheStartAndFollows) {
  EXPECT_FALSE(search.Names(u"a"));
  notes = {Note(u"A", u"Fruit", "apple pie"), Note(u"B", u"", "old"), Note(u"C", u"", "apple core")};
  notes[1].text = u"typed apricot";
  Start();
  EXPECT_TRUE(log.Holds(u"Starting to generate and cache titles and content..."));
  EXPECT_EQ(Names(u"ap"), (Ids{u"A", u"B", u"C"}));
  EXPECT_EQ(Names(u"old"), Ids());
  search.Tell({{u"c"}, {Note(u"A", u"Fruit", "pear"), Note(u"D", u"Apples", "x")}, {}});
  EXPECT_EQ(Names(u"ap"), (Ids{u"B", u"D"})) << "at once";
  EXPECT_EQ(Names(u"pear fru"), (Ids{u"A"}));
  search.Stop();
  EXPECT_FALSE(search.Names(u"a"));
  // Much happens while it is closed.
  notes = {Note(u"D", u"Apples", "x"), Note(u"E", u"", "apple"), Note(u"A", u"Roots", "pear")};
  Start();
  EXPECT_EQ(Names(u"ap"), (Ids{u"D", u"E"}));
  EXPECT_EQ(Names(u"fruit"), Ids());
  EXPECT_EQ(Names(u"roots"), (Ids{u"A"}));
}

TEST_F(NoteSearchTest, KnowsTheStoreAndWhatMovesInAndOut) {
  MakeStore();
  NoteStore store(files, log);
  store.Open(folder_);
  notes = {Note(u"A", u"apple", "")};
  Start();
  EXPECT_EQ(Names(u"apple"), (Ids{u"1", u"A"}));
  EXPECT_EQ(Names(u"category:orch"), (Ids{u"1"}));
  const auto changes = [&store] {
    const auto keys = store.MoveChanges();
    return std::vector<std::int64_t>(keys.begin(), keys.end());
  };
  JotletData record;
  record.id = u"A";
  record.title = u"apple";
  const auto key = store.Put(record, u"Garden");
  ASSERT_TRUE(key);
  search.Tell({{u"A"}, {}, changes()});
  EXPECT_EQ(Names(u"apple"), (Ids{u"1", IntText(*key)}));
  ASSERT_TRUE(store.MarkLeaving(1, true));
  search.Tell({{}, {Note(u"S1", u"Stored apple", "")}, changes()});
  EXPECT_EQ(Names(u"apple is:desktop"), (Ids{u"S1"}));
  ASSERT_TRUE(store.Remove(1));
  search.Tell({{}, {}, changes()});
  EXPECT_EQ(Names(u"apple"), (Ids{IntText(*key), u"S1"}));
  search.Stop();
  ASSERT_TRUE(store.Remove(*key));
  notes.clear();
  Start();
  EXPECT_EQ(Names(u"apple"), Ids());
}

TEST_F(NoteSearchTest, TellsWhereTheNotesAreThatHoldTheWords) {
  MakeStore();
  notes = {Note(u"A", u"Apple", "tea"), Note(u"B", u"Cake", "apple pie"), Note(u"C", u"Apple tree", "")};
  notes[2].note.place = SearchPlace::kClosed;
  Start();
  std::optional<SearchSurvey> survey;
  const auto ask = [&](SurveyQuestion question) {
    search.AskSurvey(std::move(question));
    return Await([&] { return (survey = search.PollSurvey()).has_value(); });
  };
  // In the middle of another question, which is answered as well.
  search.Ask(u"apple", 10);
  ASSERT_TRUE(ask({u"apple", false, PlaceBit(SearchPlace::kStored) | PlaceBit(SearchPlace::kClosed), {}}));
  EXPECT_TRUE(Await([&] { return !answers.empty() && answers.back().all; }));
  EXPECT_EQ(answers.back().results.size(), 4U);
  EXPECT_EQ(survey->places, (std::array<std::size_t, kSearchPlaces>{2, 0, 0, 0, 1, 1}));
  EXPECT_EQ(survey->categories, (std::map<Text, std::size_t>{{u"Orchard", 1}}));
  ASSERT_EQ(survey->hits.size(), 2U);
  const bool storedFirst = survey->hits[0].key == 1;
  EXPECT_EQ(survey->hits[storedFirst ? 0 : 1].id, u"S1");
  EXPECT_EQ(survey->hits[storedFirst ? 1 : 0].id, u"C");
  ASSERT_TRUE(ask({u"apple -tree", true, kAllPlaces, u"Cellar"}));
  EXPECT_EQ(survey->places, (std::array<std::size_t, kSearchPlaces>{1, 0, 0, 0, 0, 1}));
  ASSERT_EQ(survey->hits.size(), 1U) << "of the stored ones none is in that category";
  EXPECT_EQ(survey->hits[0].id, u"A");
  // Whoever asks again gets no answer to what he asked before.
  search.AskSurvey({u"apple", false, kAllPlaces, {}});
  ASSERT_TRUE(ask({u"pie", false, kAllPlaces, {}}));
  EXPECT_EQ(survey->question.typed, u"pie");
}

TEST_F(NoteSearchTest, KeepsWhatItHasOfAStoreThatCannotBeRead) {
  MakeStore();
  notes = {Note(u"A", u"apple", "")};
  Start();
  search.Stop();
  Hold(kStoreFileName);
  log.lines.clear();
  search.Start(folder_);
  ASSERT_TRUE(Await([this] { return log.Holds(u"The store could not be read"); }));
  EXPECT_FALSE(search.Names(u"apple")) << "nobody knows them all";
  search.Ask(u"apple", 10);
  ASSERT_TRUE(Await([this] { return !answers.empty() && answers.back().all; }));
  EXPECT_EQ(answers.back().results.size(), 2U);
  other.Run("COMMIT");
  ASSERT_TRUE(AwaitNames());
  EXPECT_EQ(Names(u"apple"), (Ids{u"1", u"A"}));
  // News of it are not lost.
  other.Run("UPDATE jotlets SET category = 'Cellar'; BEGIN EXCLUSIVE");
  log.lines.clear();
  search.Tell({{}, {}, {1}});
  ASSERT_TRUE(Await([this] { return log.Holds(u"The store could not be read"); }));
  EXPECT_FALSE(search.Names(u"apple"));
  other.Run("COMMIT");
  ASSERT_TRUE(AwaitNames());
  EXPECT_EQ(Names(u"apple category:cellar"), (Ids{u"1"}));
  // Nobody here can fetch from a newer one.
  other.Run("PRAGMA user_version = 2");
  Start();
  EXPECT_EQ(Names(u"apple"), (Ids{u"A"}));
}

TEST_F(NoteSearchTest, ReadsAgainWhatCouldNotBeRead) {
  notes = {Note(u"A", u"", "apple"), Note(u"B", u"", "plum")};
  const auto path = [this](TextView id) {
    JotletData record;
    record.id = id;
    return FoldCase(folder_ + ContentPath(record));
  };
  files.unreadable = {path(u"A")};
  Start();
  EXPECT_EQ(Names(u"apple"), Ids());
  search.Stop();
  files.unreadable = {path(u"B")};
  notes[1] = Note(u"B", u"Fruit", "pear");
  Start();
  EXPECT_EQ(Names(u"apple"), (Ids{u"A"}));
  EXPECT_EQ(Names(u"fruit plum"), (Ids{u"B"})) << "as it was known";
}

TEST_F(NoteSearchTest, ComparesAgainWhenNewsCouldNotBeWritten) {
  notes = {Note(u"A", u"", "apple")};
  Start();
  Hold(kSearchIndexName);
  log.lines.clear();
  notes.push_back(Note(u"B", u"", "plum"));
  search.Tell({{}, {notes[1]}, {}});
  ASSERT_TRUE(Await([this] { return log.Holds(u"The search index could not be written"); }));
  EXPECT_FALSE(search.Names(u"plum"));
  other.Run("COMMIT");
  ASSERT_TRUE(AwaitNames());
  EXPECT_EQ(Names(u"plum"), (Ids{u"B"}));
}

TEST_F(NoteSearchTest, StopsAtTheNextFileAndGoesOnAtTheNextStart) {
  constexpr std::size_t kCount = 300;
  const auto fill = [this](const std::string& words) {
    notes.clear();
    for (std::size_t i = 0; i < kCount; ++i)
      notes.push_back(Note(IntText(static_cast<std::int64_t>(i)), u"", words));
    files.reads = 0;
    files.slow = true;
  };
  const auto stop = [this] {
    while (files.reads == 0) std::this_thread::yield();
    search.Stop();
    files.slow = false;
    return files.reads.load();
  };
  fill("apple");
  search.Start(folder_);
  EXPECT_LT(stop(), 90);
  Start();
  EXPECT_EQ(Names(u"apple").size(), kCount);
  fill("plum");
  search.Tell({{}, notes, {}});
  EXPECT_LT(stop(), 90);
  Start();
  EXPECT_EQ(Names(u"plum").size(), kCount);
}

TEST_F(NoteSearchTest, AnswersTheLastQuestionBeginningsOfWordsFirst) {
  notes = {Note(u"A", u"", "recall"), Note(u"B", u"", "call")};
  Start();
  search.Ask(u"nothing", 10);
  search.Ask(u"call", 10);
  ASSERT_TRUE(Await([this] { return !answers.empty() && answers.back().all; }));
  EXPECT_TRUE(std::ranges::all_of(answers, [](const SearchAnswer& a) { return a.typed == u"call"; }));
  ASSERT_EQ(answers.back().results.size(), 2U);
  EXPECT_EQ(answers.back().results[0].note.id, u"B");
  EXPECT_EQ(answers.back().results[1].snippet.text, u"recall");
  EXPECT_FALSE(answers.back().more);
  answers.clear();
  search.Ask(u"call", 1);
  ASSERT_TRUE(Await([this] { return !answers.empty() && answers.back().all; }));
  EXPECT_TRUE(answers.back().more && answers.back().results.size() == 1);
  answers.clear();
  search.Ask(u"call", 2);
  EXPECT_EQ(Names(u"recall"), (Ids{u"A"})) << "in between";
  ASSERT_TRUE(Await([this] { return !answers.empty() && answers.back().all; }));
  EXPECT_TRUE(answers.back().more) << "the list is full";
}

TEST_F(NoteSearchTest, GivesUpWhatWasAskedBefore) {
  notes = {Note(u"A", u"", "apple")};
  Start();
  const int before = wakes;
  search.Ask(u"apple", 10);
  while (wakes == before) std::this_thread::yield();
  search.Ask(u"plum", 10);
  ASSERT_TRUE(Await([this] { return !answers.empty(); }));
  EXPECT_EQ(answers.front().typed, u"plum");
  search.Ask(u"apple", 10);
  search.Ask(u"", 10);
  answers.clear();
  EXPECT_EQ(Names(u"apple"), (Ids{u"A"})) << "behind all questions";
  EXPECT_FALSE(search.Poll());
}

TEST_F(NoteSearchTest, ThatIsDamagedIsMadeAnew) {
  notes = {Note(u"A", u"", "apple")};
  Start();
  search.Stop();
  std::ofstream(std::filesystem::path(folder_ + Text(kSearchIndexName)), std::ios::binary)
      << std::string(50000, 'x');
  Start();
  EXPECT_EQ(Names(u"apple"), (Ids{u"A"}));
  search.Stop();
  std::filesystem::remove(folder_ + Text(kSearchIndexName));
  std::filesystem::create_directories(folder_ + Text(kSearchIndexName) + u"/in the way");
  log.lines.clear();
  search.Start(folder_);
  search.Ask(u"apple", 5);
  EXPECT_TRUE(Await([this] { return !answers.empty() && answers.back().cannotLook; }));
  EXPECT_TRUE(log.Holds(u"cannot be used"));
  EXPECT_FALSE(search.Names(u"apple"));
}

TEST(SearchRecorder, TellsOfEveryNoteOnceAndThenOfChanges) {
  FakeDesk home;
  home.Load(u"[Jotlets]\n<ID>A<RTF>\n<ID>B<RTF>\n");
  home.windows.Type(u"B", u"typed");
  SearchRecorder& recorder = home.desk.Searched();
  const std::vector<SearchEntry> all = recorder.All();
  ASSERT_EQ(all.size(), 2U);
  EXPECT_TRUE(!all[0].text && all[1].text == u"typed");
  EXPECT_TRUE(recorder.News().IsEmpty());
  home.desk.Changed(u"b");
  home.TakeJournal();
  const SearchNews news = recorder.News();
  ASSERT_EQ(news.notes.size(), 1U);
  EXPECT_EQ(news.notes[0].note.id, u"B");
  ASSERT_TRUE(home.desk.Close(u"A", Reason::kUser));
  EXPECT_EQ(recorder.News().notes.at(0).note.place, SearchPlace::kClosed);
  home.desk.DeleteClosed({u"A"});
  EXPECT_EQ(recorder.News().gone, std::vector<Text>{u"a"});
}

}  // namespace
}  // namespace jotlets
