#include "editor/text_search.h"

#include <gtest/gtest.h>

namespace jotlets {
namespace {

TEST(TextSearch, FindsPlacesThatDoNotOverlapWithoutRegardToCase) {
  EXPECT_EQ(FindAll(u"Banana \u00C4pfel bANAna", u"ana"), (std::vector<std::size_t>{1, 14}));
  EXPECT_EQ(FindAll(u"\u00E4\u00C4", u"\u00C4"), (std::vector<std::size_t>{0, 1}));
  EXPECT_EQ(FindAll(u"aaaaa", u"aa", 1).size(), 1u);
  EXPECT_TRUE(FindAll(u"abc", u"").empty());
  EXPECT_TRUE(FindAll(u"ab", u"abc").empty());
}

TEST(TextSearch, GoesRoundInBothDirectionsAndStaysWhileWordsAreTyped) {
  const std::vector<std::size_t> hits = {2, 10, 20};
  EXPECT_EQ(NextHit(hits, {2, 5}, FindStep::kNext), 1u);
  EXPECT_EQ(NextHit(hits, {2, 4}, FindStep::kStay), 0u);
  EXPECT_EQ(NextHit(hits, {20, 23}, FindStep::kNext), 0u);
  EXPECT_EQ(NextHit(hits, {10, 13}, FindStep::kPrevious), 0u);
  EXPECT_EQ(NextHit(hits, {2, 5}, FindStep::kPrevious), 2u);
  EXPECT_EQ(NextHit(hits, {15, 15}, FindStep::kPrevious), 1u);
  EXPECT_EQ(NextHit({}, {0, 0}, FindStep::kNext), 0u);
  EXPECT_EQ(HitNumber(hits, {10, 13}, 3), 2u);
  EXPECT_EQ(HitNumber(hits, {10, 12}, 3), 0u);
  EXPECT_EQ(HitNumber(hits, {11, 14}, 3), 0u);
}

}  // namespace
}  // namespace jotlets
