#include "store/search_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include "fakes.h"
#include "store/search_builder.h"
#include "store/search_words.h"
#include "zone_clock.h"

namespace jotlets {
namespace {

class SearchIndexTest : public ::testing::Test {
 protected:
  SearchIndexTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    EXPECT_TRUE(index.Open(path_)) << ToUtf8(index.Fault());
  }
  void TearDown() override {
    index.Close();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  // Each the latest.
  void Put(TextView id, TextView title, TextView text, TextView category = {},
           SearchPlace place = SearchPlace::kDesktop) {
    IndexedNote note;
    note.id = id;
    note.title = title;
    note.category = category;
    note.place = place;
    note.changed = ++now_;
    note.key = place == SearchPlace::kStored ? now_ : 0;
    note.image = text.empty();
    EXPECT_TRUE(index.Put(note, text));
  }
  static Text Join(const SearchIndex::Results& results) {
    if (!results) return u"unreadable";
    Text ids;
    for (const SearchResult& result : *results) ids += result.note.id + u" ";
    return ids;
  }
  Text Search(TextView typed, std::size_t maximum = 50) {
    const SearchQuery query = ParseSearchQuery(typed);
    return Join(index.Search(query, SpanOf(query, clock), maximum));
  }
  Text Scan(TextView typed) {
    const SearchQuery query = ParseSearchQuery(typed);
    return Join(index.Scan(query, SpanOf(query, clock), 50));
  }
  void Reopen() {
    index.Close();
    EXPECT_TRUE(index.Open(path_)) << ToUtf8(index.Fault());
  }

  const Text folder_ = FromUtf8(::testing::TempDir()) + u"jotlets search \u00FC/";
  const Text path_ = folder_ + Text(kSearchIndexName);
  ZoneClock clock{kUtc};
  std::int32_t now_ = 1'000'000'000;
  SearchIndex index;
};

TEST_F(SearchIndexTest, FindsBeginningsOfWordsTitlesFirstThenTheLatest) {
  Put(u"A1", u"Notes from the call", u"Budget stays");
  Put(u"a2", u"Offer", u"Call Mr Dubois before sending it");
  Put(u"A3", u"", u"recall nothing");
  Put(u"A4", u"Landlord", u"\u00C9tude: caf\u00E9 calls");
  EXPECT_EQ(Search(u"CAL"), u"A1 A4 a2 ");
  EXPECT_EQ(Search(u"cal", 2), u"A1 A4 ");
  EXPECT_EQ(Search(u"call mr"), u"a2 ");
  EXPECT_EQ(Search(u"etude cafe"), u"A4 ");
  EXPECT_EQ(Search(u"\u00C9TUDE"), u"A4 ");
  EXPECT_EQ(Search(u"\"call mr\""), u"a2 ");
  EXPECT_EQ(Search(u"\"mr call\""), u"");
  EXPECT_EQ(Search(u"\"call m\""), u"") << "a phrase is of whole words";
  EXPECT_EQ(Search(u"call -budget"), u"A4 a2 ");
  EXPECT_EQ(Search(u"call -cal"), u"A1 A4 a2 ") << "excluded words are whole";
  EXPECT_EQ(Search(u"title:call"), u"A1 ");
  EXPECT_EQ(Search(u"title:call -title:notes"), u"");
  EXPECT_EQ(Search(u"-call"), u"A4 A3 ");
  EXPECT_EQ(Search(u"zebra"), u"");
  EXPECT_EQ(Search(u""), u"");
  EXPECT_EQ(Scan(u"all"), u"A4 A3 a2 A1 ") << "inside of words";
  EXPECT_EQ(Scan(u"\u00E9TU bu"), u"");
  EXPECT_EQ(Scan(u"\u00C9T LLS"), u"A4 ");
  EXPECT_EQ(Scan(u"tude"), u"A4 ");
  Put(u"A5", u"Gegen\u00FCber", u"vis-a\u0300-vis-\u00E0-vis");
  EXPECT_EQ(Scan(u"nuber"), u"A5 ") << "accents do not count inside of words either";
  EXPECT_EQ(Scan(u"is-a-v"), u"A5 ");
}

TEST_F(SearchIndexTest, FiltersByPlaceCategoryTagDayAndKind) {
  Put(u"A1", u"Plan", u"#home-work for #2026, not C#sharp", u"", SearchPlace::kSleeping);
  Put(u"A2", u"Plan B #Garden", u"x", u"work in progress", SearchPlace::kStored);
  now_ += 86400 * 10;
  Put(u"A3", u"Plan C", u"", u"", SearchPlace::kClosed);
  EXPECT_EQ(Search(u"plan is:sleeping"), u"A1 ");
  EXPECT_EQ(Search(u"is:stored"), u"A2 ");
  EXPECT_EQ(Search(u"plan -is:image"), u"A2 A1 ");
  EXPECT_EQ(Search(u"category:prog"), u"A2 ");
  EXPECT_EQ(Search(u"prog"), u"A2 ");
  EXPECT_EQ(Search(u"#garden"), u"A2 ");
  EXPECT_EQ(Search(u"tag:home"), u"A1 ");
  EXPECT_EQ(Search(u"tag:2026"), u"A1 ");
  EXPECT_EQ(Search(u"tag:sharp"), u"");
  EXPECT_EQ(Search(u"plan after:2001-09-15"), u"A3 ");
  EXPECT_EQ(Search(u"before:2001-09-15"), u"A2 A1 ");
  EXPECT_EQ(Search(u"plan before:2001-09-15 after:2001-09-20"), u"");
  const SearchQuery all = ParseSearchQuery(u"pl");
  EXPECT_EQ(index.Names(all, {}, 2), (std::vector<Text>{u"A3", IntText(1'000'000'002)}));
}

TEST_F(SearchIndexTest, FindsWritingWithoutBlanksByItsCharacters) {
  Put(u"A1", u"\u6771\u4EAC\u90FD", u"\u4F1A\u8B70\u306F\u6708\u66DC\u65E5");
  Put(u"A2", u"", u"\U00020BB7\u91CE\u5BB6 abc\u6F22");
  EXPECT_EQ(Search(u"\u4EAC\u90FD"), u"A1 ");
  EXPECT_EQ(Search(u"\u90FD\u4EAC"), u"");
  EXPECT_EQ(Search(u"\u66DC"), u"A1 ");
  EXPECT_EQ(Search(u"\U00020BB7"), u"A2 ");
  EXPECT_EQ(Search(u"\u6F22"), u"A2 ");
  EXPECT_EQ(Search(u"abc"), u"A2 ");
}

TEST_F(SearchIndexTest, FollowsEveryChangeAndForgetsNothingElse) {
  // Played against the same notes in plain memory.
  struct Plain {
    Text title;
    Text text;
    std::int32_t changed = 0;
  };
  std::vector<std::optional<Plain>> plain(12);
  const std::vector<TextView> words = {u"alpha", u"beta", u"#gamma", u"\xD800x", u"\u6F22\u5B57", u""};
  std::mt19937 random(7);
  const auto word = [&] { return Text(words[random() % words.size()]); };
  for (int step = 0; step < 600; ++step) {
    const std::size_t at = random() % plain.size();
    const Text id = u"N" + IntText(static_cast<std::int64_t>(at + 10));
    if (random() % 5 == 0) {
      EXPECT_TRUE(index.Remove(FoldCase(id)));
      plain[at].reset();
    } else {
      if (random() % 3 != 0) ++now_;
      plain[at] = Plain{word(), word() + u" " + word(), now_};
      IndexedNote note;
      note.id = id;
      note.title = plain[at]->title;
      note.changed = now_;
      EXPECT_TRUE(index.Put(note, plain[at]->text));
    }
    if (step % 20 != 0) continue;
    for (const TextView wanted : {u"alpha", u"beta", u"gamma", u"\u5B57"}) {
      std::vector<Text> expected;
      for (std::size_t i = 0; i < plain.size(); ++i)
        if (plain[i] && (plain[i]->title + u" " + plain[i]->text).find(wanted) != Text::npos)
          expected.push_back(u"N" + IntText(static_cast<std::int64_t>(i + 10)));
      std::vector<Text> found = index.Names(ParseSearchQuery(wanted), {}, 50).value();
      std::ranges::sort(found);
      ASSERT_EQ(found, expected) << step << ToUtf8(wanted);
    }
  }
  EXPECT_EQ(index.Count(), std::ranges::count_if(plain, [](const auto& note) { return note.has_value(); }));
  EXPECT_FALSE(index.IsDamaged());
}

TEST_F(SearchIndexTest, KeepsAPlaceForEachOfManyOfOneSecond) {
  index.Begin();
  IndexedNote note;
  note.changed = now_;
  for (int i = 0; i < 2000; ++i) {
    note.id = IntText(i);
    ASSERT_TRUE(index.Put(note, u"same"));
  }
  EXPECT_TRUE(index.Commit());
  EXPECT_EQ(index.Names(ParseSearchQuery(u"same"), {}, 5000).value().size(), 2000U);
  EXPECT_EQ(
      index.Names(ParseSearchQuery(u"same after:2001-09-09 before:2001-09-10"), {}, 5000).value().size(),
      2000U);
  // Nor do those that come with the next start look where all is taken.
  index.Close();
  SearchIndex later;
  ASSERT_TRUE(later.Open(path_));
  for (int i = 2000; i < 2500; ++i) {
    note.id = IntText(i);
    ASSERT_TRUE(later.Put(note, u"same"));
  }
  EXPECT_EQ(later.Names(ParseSearchQuery(u"same"), {}, 5000).value().size(), 2500U);
  note.id = u"1999";
  later.Close();
  ASSERT_TRUE(index.Open(path_));
  // Nothing is written anew for a note that has only been moved.
  note.place = SearchPlace::kClosed;
  EXPECT_TRUE(index.PutRecord(note));
  EXPECT_EQ(Search(u"same is:closed"), u"1999 ");
}

TEST_F(SearchIndexTest, ThatIsDamagedBeginsAnew) {
  for (int i = 0; i < 300; ++i) Put(IntText(i), u"title", u"some words that fill pages " + IntText(i));
  index.Close();
  std::ifstream in(std::filesystem::path(path_), std::ios::binary);
  const std::string whole((std::istreambuf_iterator<char>(in)), {});
  in.close();  // Windows keeps a file that is open
  std::mt19937 random(3);
  int emptied = 0;
  for (int round = 0; round < 60; ++round) {
    std::string bytes = whole;
    if (round % 3 == 0) {
      bytes.resize(random() % bytes.size());
    } else {
      for (int i = 0; i < 400; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
    }
    if (round == 1) bytes = "no database at all, but long enough to be one";
    std::ofstream(std::filesystem::path(path_), std::ios::binary) << bytes;
    ASSERT_TRUE(index.Open(path_)) << round;
    if (index.Count() == 0) ++emptied;
    // Damage that shows later is told, and the next opening heals it.
    Search(u"some fill");
    Scan(u"ome");
    IndexedNote note;
    note.id = u"7";
    const bool took = index.Put(note, u"other");
    if (!took || index.IsDamaged()) {
      EXPECT_TRUE(index.IsDamaged()) << round;
      index.Discard(path_);
      ASSERT_TRUE(index.Open(path_)) << round;
      EXPECT_TRUE(index.Put(note, u"other"));
    }
    index.Close();
    std::filesystem::remove(path_ + u"-wal");
  }
  EXPECT_GT(emptied, 20);
}

// What is committed does not pile up beside the file.
TEST_F(SearchIndexTest, PutsItsLogIntoTheFileWhileItIsChanged) {
  FakeFiles files;
  const std::atomic<bool> stops = false;
  SearchBuilder builder(files, index, stops);
  builder.Begin(folder_, {});
  for (int i = 0; i < 200; ++i) {
    SearchNews news;
    news.notes.push_back({{.id = IntText(i), .changed = i}, Text(60'000, u'x')});
    ASSERT_TRUE(builder.Apply(news));
  }
  EXPECT_LT(std::filesystem::file_size(path_ + Text(u"-wal")), 8u << 20);
  EXPECT_EQ(index.Count(), 200);
}

TEST_F(SearchIndexTest, MarksHitsInTitleAndSnippet) {
  Put(u"A1", u"R\u00E9call the Call",
      u"First line\r\n\r\nand then  a very long way to go before Ca\u0301lling Mr \"X\"");
  const SearchQuery query = ParseSearchQuery(u"call way");
  const std::vector<SearchResult> found = index.Search(query, {}, 5).value();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].titleHits, (std::vector<TextPart>{{11, 15}}));
  EXPECT_TRUE(found[0].beginning.starts_with(u"First line\r\n"));
  const MarkedText& snippet = found[0].snippet;
  EXPECT_EQ(snippet.text, u"\u2026 and then a very long way to go before Ca\u0301lling Mr \"X\"");
  EXPECT_EQ(snippet.hits, (std::vector<TextPart>{{23, 26}, {40, 45}}));
  const SearchHits inside(ParseSearchQuery(u"all"));
  EXPECT_EQ(inside.InTitle(found[0].note.title), (std::vector<TextPart>{{3, 6}, {12, 15}}));
  EXPECT_TRUE(SearchHits(ParseSearchQuery(u"+ -x")).InText(u"1+1").size() == 1);
}

}  // namespace
}  // namespace jotlets
