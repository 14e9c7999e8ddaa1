// Where the notes are that hold some words, and which of them are in one place.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <vector>

#include "store/search_query.h"

namespace jotlets {

struct SurveyQuestion {
  Text typed;
  bool titles = false;  // words count only in titles
  /// Of which notes are named, not only counted: those in these places, of stored ones those in the category.
  SearchPlaces places = 0;
  std::optional<Text> category;
  friend bool operator==(const SurveyQuestion&, const SurveyQuestion&) = default;
};

struct SearchSurvey {
  struct Hit {
    Text id;
    std::int64_t key = 0;  // of a stored one
  };

  SurveyQuestion question;
  std::array<std::size_t, kSearchPlaces> places{};
  std::map<Text, std::size_t> categories;  // of the stored ones
  std::vector<Hit> hits;                   // the latest first, up to some hundreds
  bool more = false;                       // there are more than were counted, the latest ones
};

}  // namespace jotlets
