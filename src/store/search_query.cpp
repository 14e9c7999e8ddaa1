#include "store/search_query.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace jotlets {
namespace {

// More than anybody types; a text that was pasted by mistake must not keep the search busy.
constexpr std::size_t kMaximumLength = 1000;
constexpr std::size_t kMaximumTerms = 32;
constexpr std::size_t kLongestKey = 8;

bool IsBlank(char16_t unit) { return unit <= u' ' || unit == u'\u00A0' || unit == u'\u3000'; }
bool IsQuote(char16_t unit) { return unit == u'"' || (unit >= u'\u201C' && unit <= u'\u201E'); }

// One part of what was typed, without its signs.
struct Part {
  Text key;  // in front of the colon, folded
  Text words;
  bool quoted = false;
  bool excluded = false;
  bool tag = false;
};

struct PlaceWord {
  TextView word;
  SearchPlaces places;
};
constexpr std::array<PlaceWord, 6> kPlaceWords = {
    {{u"sleeping", PlaceBit(SearchPlace::kSleeping) | PlaceBit(SearchPlace::kRecurring)},
     {u"recurring", PlaceBit(SearchPlace::kRecurring)},
     {u"desktop", PlaceBit(SearchPlace::kDesktop)},
     {u"attached", PlaceBit(SearchPlace::kAttached)},
     {u"closed", PlaceBit(SearchPlace::kClosed)},
     {u"stored", PlaceBit(SearchPlace::kStored)}}};
constexpr TextView kImage = u"image";

struct FieldWord {
  TextView word;
  SearchIn in;
};
constexpr std::array<FieldWord, 3> kFieldWords = {
    {{u"title", SearchIn::kTitle}, {u"category", SearchIn::kCategory}, {u"tag", SearchIn::kTag}}};

class Parts {
 public:
  explicit Parts(TextView typed) : rest_(typed.substr(0, kMaximumLength)) {}

  std::optional<Part> Next() {
    Skip(IsBlank);
    if (rest_.empty()) return std::nullopt;
    Part part;
    part.excluded = SkipOne(u'-');
    part.key = Key();
    part.tag = SkipOne(u'#');
    part.quoted = !rest_.empty() && IsQuote(rest_.front());
    if (part.quoted) rest_.remove_prefix(1);
    part.words = part.quoted ? Until(IsQuote) : Until(IsBlank);
    if (part.quoted && !rest_.empty()) rest_.remove_prefix(1);
    return part;
  }

 private:
  void Skip(bool (*is)(char16_t)) {
    while (!rest_.empty() && is(rest_.front())) rest_.remove_prefix(1);
  }
  bool SkipOne(char16_t unit) {
    if (!rest_.starts_with(unit)) return false;
    rest_.remove_prefix(1);
    return true;
  }
  // Only a word that is known: an address on the web has a colon too.
  Text Key() {
    const std::size_t colon = rest_.find(u':');
    if (colon > kLongestKey) return {};
    Text key = FoldCase(rest_.substr(0, colon));
    const auto isKey = [&key](const FieldWord& field) { return field.word == key; };
    if (key != u"is" && key != u"before" && key != u"after" && std::ranges::none_of(kFieldWords, isKey))
      return {};
    rest_.remove_prefix(colon + 1);
    return key;
  }
  Text Until(bool (*is)(char16_t)) {
    const auto end = std::ranges::find_if(rest_, is);
    Text part(rest_.begin(), end);
    rest_.remove_prefix(part.size());
    return part;
  }

  TextView rest_;
};

// "2026", "2026-5" or "2026-05-14": its beginning.
std::optional<LocalTime> ParseDay(TextView text) {
  std::array<std::int32_t, 3> numbers = {0, 1, 1};
  std::size_t count = 0;
  for (Split split{{}, text}; !split.tail.empty() && count < numbers.size(); ++count) {
    split = SplitAtFirst(split.tail, u'-');
    numbers[count] = ParseInt(split.head);
  }
  if (std::ranges::count(text, u'-') >= 3 || numbers[0] < 1970 || numbers[0] > 9999) return std::nullopt;
  const std::chrono::month month(static_cast<unsigned>(numbers[1]));
  const std::chrono::day dayOfMonth(static_cast<unsigned>(numbers[2]));
  if (numbers[1] > 12 || numbers[2] > 31 || !(std::chrono::year(numbers[0]) / month / dayOfMonth).ok())
    return std::nullopt;
  LocalTime day;
  day.year = numbers[0];
  day.month = numbers[1];
  day.day = numbers[2];
  return day;
}

bool IsOfDigits(TextView text) { return text.find_first_not_of(u"0123456789-") == TextView::npos; }

// False: it is a word.
bool ApplyDay(const Part& part, SearchQuery& query) {
  if (!IsOfDigits(part.words)) return false;
  const std::optional<LocalTime> day = ParseDay(part.words);
  if (!day) return true;
  // What is not before a day is at its beginning or after it.
  ((part.key == u"before") == part.excluded ? query.after : query.before) = day;
  return true;
}

bool ApplyState(const Part& part, SearchQuery& query) {
  const Text word = FoldCase(part.words);
  if (word == kImage) {
    query.image = !part.excluded;
    return true;
  }
  for (const PlaceWord& place : kPlaceWords) {
    if (place.word == word) {
      query.places &= part.excluded ? ~place.places : place.places;
      return true;
    }
  }
  return kImage.starts_with(word) || std::ranges::any_of(kPlaceWords, [&](const PlaceWord& place) {
           return place.word.starts_with(word);
         });
}

bool IsBlankText(TextView text) { return std::ranges::all_of(text, IsBlank); }

void ApplyWords(Part part, SearchQuery& query) {
  SearchTerm term;
  for (const FieldWord& field : kFieldWords)
    if (field.word == part.key) term.in = field.in;
  if (part.tag) term.in = SearchIn::kTag;
  term.phrase = part.quoted;
  term.excluded = part.excluded;
  // A key that came to nothing is part of the word.
  if (term.in == SearchIn::kAnywhere && !part.key.empty()) part.words = part.key + u":" + part.words;
  term.words = std::move(part.words);
  if (!IsBlankText(term.words)) query.terms.push_back(std::move(term));
}

}  // namespace

SearchQuery ParseSearchQuery(TextView typed) {
  SearchQuery query;
  Parts parts(typed);
  while (query.terms.size() < kMaximumTerms) {
    std::optional<Part> part = parts.Next();
    if (!part) break;
    const bool isDay = part->key == u"before" || part->key == u"after";
    if (isDay && ApplyDay(*part, query)) continue;
    if (part->key == u"is" && ApplyState(*part, query)) continue;
    ApplyWords(std::move(*part), query);
  }
  return query;
}

}  // namespace jotlets
