#include "store/search_query.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

using Terms = std::vector<SearchTerm>;

Terms TermsOf(TextView typed) { return ParseSearchQuery(typed).terms; }

TEST(SearchQuery, TakesWordsPhrasesAndWhereTheyStand) {
  EXPECT_EQ(TermsOf(u" call  Dubois\u3000x"), (Terms{{u"call"}, {u"Dubois"}, {u"x"}}));
  EXPECT_EQ(TermsOf(u"-old \u201Cthe orchard\u201D -\"not this\"\"open end"),
            (Terms{{u"old", SearchIn::kAnywhere, false, true},
                   {u"the orchard", SearchIn::kAnywhere, true},
                   {u"not this", SearchIn::kAnywhere, true, true},
                   {u"open end", SearchIn::kAnywhere, true}}));
  EXPECT_EQ(TermsOf(u"Title:offer category:\"work in progress\" -tag:done #home"),
            (Terms{{u"offer", SearchIn::kTitle},
                   {u"work in progress", SearchIn::kCategory, true},
                   {u"done", SearchIn::kTag, false, true},
                   {u"home", SearchIn::kTag}}));
  EXPECT_EQ(TermsOf(u"http://x.org/a:b C++ 10-4"), (Terms{{u"http://x.org/a:b"}, {u"C++"}, {u"10-4"}}));
}

TEST(SearchQuery, TakesDaysAndStates) {
  const SearchQuery query = ParseSearchQuery(u"after:2026-5 before:2027-01-31 is:image -is:closed");
  EXPECT_TRUE(query.terms.empty() && !query.IsEmpty());
  ASSERT_TRUE(query.after && query.before);
  EXPECT_EQ(LogStamp(*query.after), u"2026-05-01 00:00.00");
  EXPECT_EQ(LogStamp(*query.before), u"2027-01-31 00:00.00");
  EXPECT_EQ(query.image, true);
  EXPECT_EQ(query.places, kAllPlaces & ~PlaceBit(SearchPlace::kClosed));
  EXPECT_EQ(LogStamp(*ParseSearchQuery(u"before:2028-02-29").before), u"2028-02-29 00:00.00");
  EXPECT_EQ(LogStamp(*ParseSearchQuery(u"-before:2026").after), u"2026-01-01 00:00.00");
  const SearchPlaces asleep = PlaceBit(SearchPlace::kSleeping) | PlaceBit(SearchPlace::kRecurring);
  EXPECT_EQ(ParseSearchQuery(u"IS:Sleeping").places, asleep);
  EXPECT_EQ(ParseSearchQuery(u"is:sleeping is:stored").places, 0U) << "no note is both";
}

TEST(SearchQuery, ThatIsUnfinishedOrNonsenseAsksForWordsOrNothing) {
  for (const TextView unfinished :
       {u"", u" ", u"-", u"title:", u"-tag:\"", u"before:", u"after:20", u"is:sle", u"\"\"", u"#",
        u"before:2026-13", u"after:2026-1-1-1", u"before:2026-06-31", u"after:2026-02-29", u"after:2026-0-1"})
    EXPECT_TRUE(ParseSearchQuery(unfinished).IsEmpty()) << ToUtf8(unfinished);
  EXPECT_EQ(TermsOf(u"before:lunch is:blue"), (Terms{{u"before:lunch"}, {u"is:blue"}}));
  Text many;
  for (int i = 0; i < 5000; ++i) many += u"-\"";
  EXPECT_LE(TermsOf(many).size(), 32U);
  EXPECT_EQ(TermsOf(Text(10000, u'x')).front().words.size(), 1000U);
}

}  // namespace
}  // namespace jotlets
