#include "manage/manage_list.h"

#include <algorithm>
#include <compare>
#include <numeric>
#include <unordered_set>
#include <utility>

#include "base/natural_order.h"

namespace jotlets {
namespace {

std::string Folded(TextView text) { return ToUtf8(FoldCase(text)); }

std::vector<std::string> WordsOf(const std::string& text) {
  std::vector<std::string> words;
  for (std::size_t begin = 0; (begin = text.find_first_not_of(' ', begin)) != std::string::npos;) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    words.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return words;
}

}  // namespace

bool ManageList::SetNotes(std::span<const JotletData* const> notes, bool (*unsaved)(const JotletData&, void*),
                          void* context) {
  std::vector<PlacedNote> placed;
  placed.reserve(notes.size());
  for (const JotletData* record : notes) placed.push_back({record, {}});
  return SetAll(placed, unsaved, context);
}

bool ManageList::SetAll(std::span<const PlacedNote> notes, bool (*unsaved)(const JotletData&, void*),
                        void* context) {
  const auto isUnsaved = [=](const JotletData& record) {
    return unsaved != nullptr && unsaved(record, context);
  };
  if (!byPlace_ && std::equal(rows_.begin(), rows_.end(), notes.begin(), notes.end(),
                              [&](const ManageRow& row, const PlacedNote& note) {
                                return IsSame(row, note) && !isUnsaved(*note.record);
                              }))
    return false;
  std::vector<ManageRow> rows;
  rows.reserve(notes.size());
  for (const PlacedNote& note : notes) rows.push_back(RowOf(note, isUnsaved(*note.record)));
  SetRows(std::move(rows));
  return true;
}

bool ManageList::SetStored(std::span<const StoredNote> notes, StoredState state) {
  std::vector<ManageRow> rows;
  rows.reserve(notes.size());
  for (const StoredNote& note : notes)
    rows.push_back(RowOf({&note.record, OneLine(note.category), note.key}, false));
  SetRows(std::move(rows));
  stored_ = std::move(state);
  return true;
}

bool ManageList::ShowByPlace(const std::shared_ptr<const StoredListing>& listing) {
  if (!byPlace_) SetRows({});
  const bool begins = !std::exchange(byPlace_, true);
  return places_.Show(listing) || begins;
}

bool ManageList::SetStacks(std::span<const StackRecord> stacks) {
  std::vector<ManageRow> rows;
  for (const StackRecord& stack : stacks) rows.push_back(RowOf(stack));
  if (!byPlace_ && std::equal(rows_.begin(), rows_.end(), rows.begin(), rows.end(),
                              [](const ManageRow& a, const ManageRow& b) {
                                return a.id == b.id && a.title == b.title && a.type == b.type;
                              }))
    return false;
  SetRows(std::move(rows));
  return true;
}

void ManageList::SetRows(std::vector<ManageRow> rows) {
  stored_.reset();
  if (std::exchange(byPlace_, false)) places_.Clear();
  // What was seen stays to be seen until it is read anew.
  for (std::size_t i = 0; i < std::min(rows.size(), rows_.size()); ++i)
    if (rows[i].id == rows_[i].id) rows[i].snippet = std::move(rows_[i].snippet);
  rows_ = std::move(rows);
  matches_.assign(rows_.size(), Match::kUnknown);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (const ManageTexts::Known* known = texts_.Find(rows_[i]))
      titlesCame_ = ApplyText(rows_[i], *known) || titlesCame_;
    // At once, as far as the texts are known: what is shown must not go and come back.
    matches_[i] = MatchFully(rows_[i]);
  }
  order_.resize(rows_.size());
  std::iota(order_.begin(), order_.end(), 0U);
  titlesCame_ = false;
  Sort();
  FindUnread();
  shown_.clear();
  Settle();
}

void ManageList::Search(TextView words, std::int32_t what) {
  const std::string before = std::exchange(searched_, Folded(words));
  const bool sameFields = std::exchange(what_, what) == what;
  if (sameFields && before == searched_) return;
  const bool narrower = sameFields && searched_.starts_with(before);
  const bool wider = sameFields && before.starts_with(searched_);
  words_ = WordsOf(searched_);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    Match& match = matches_[i];
    if ((narrower && match == Match::kNo) || (wider && match == Match::kYes)) continue;
    match = narrower && match == Match::kYes ? MatchFully(rows_[i]) : MatchKeys(rows_[i]);
  }
  FindUnread();
  Settle();
}

bool ManageList::SetFound(std::unordered_set<Text> ids) {
  if (ids == found_) return false;
  found_ = std::move(ids);
  for (std::size_t i = 0; i < rows_.size(); ++i) matches_[i] = MatchFully(rows_[i]);
  FindUnread();
  return Settle();
}

void ManageList::SortBy(ManageColumn column, bool backwards) {
  std::erase_if(sorting_, [column](const SortKey& key) { return key.column == column; });
  sorting_.insert(sorting_.begin(), {column, backwards});
  Sort();
  Settle();
}

void ManageList::ReadOne() {
  if (byPlace_) return places_.ReadOne();
  if (!IsReading()) return;
  const std::uint32_t index = toRead_[nextToRead_++];
  ManageRow& row = rows_[index];
  const ManageTexts::Known* known = texts_.Find(row);
  if (known == nullptr) known = &texts_.Read(row);
  titlesCame_ = ApplyText(row, *known) || titlesCame_;
  matches_[index] = MatchText(row, known->folded);
}

bool ManageList::Settle() {
  // Not with each text that is read: sorting goes through all of them.
  if (titlesCame_ && !IsReading()) {
    titlesCame_ = false;
    Sort();
  }
  std::vector<std::uint32_t> shown;
  shown.reserve(shown_.size());
  for (const std::uint32_t index : order_) {
    if (matches_[index] == Match::kYes) shown.push_back(index);
  }
  if (shown == shown_) return false;
  shown_ = std::move(shown);
  return true;
}

std::vector<std::size_t> ManageList::PlacesOf(const std::vector<Text>& names) const {
  if (byPlace_) return places_.PlacesOf(names);
  std::vector<std::size_t> places;
  const std::unordered_set<Text> wanted(names.begin(), names.end());
  for (std::size_t place = 0; place < shown_.size() && places.size() < wanted.size(); ++place) {
    if (wanted.contains(NameOf(At(place)))) places.push_back(place);
  }
  return places;
}

Text ManageList::NameAt(std::size_t place) const {
  return byPlace_ ? places_.NameAt(place) : NameOf(At(place));
}

bool ManageList::Holds(const ManageRow& row, const std::string& word) const {
  if ((what_ & kSearchTitles) != 0 && row.key.find(word) != std::string::npos) return true;
  if ((what_ & (kSearchUserStrings | kSearchSources)) == 0) return false;
  const std::size_t found = row.more.find(word);
  if (found == std::string::npos) return false;
  const std::size_t border = row.more.find('\n');
  return ((what_ & kSearchUserStrings) != 0 && found < border) ||
         ((what_ & kSearchSources) != 0 && row.more.find(word, border) != std::string::npos);
}

ManageList::Match ManageList::MatchKeys(const ManageRow& row) const {
  if (std::all_of(words_.begin(), words_.end(), [&](const std::string& w) { return Holds(row, w); }))
    return Match::kYes;
  if (!found_.empty() && found_.contains(FoldCase(row.id))) return Match::kYes;
  return (what_ & kSearchTexts) != 0 && row.type == ManageRow::Type::kText ? Match::kUnknown : Match::kNo;
}

ManageList::Match ManageList::MatchText(const ManageRow& row, const std::string& text) const {
  const Match byKeys = MatchKeys(row);
  if (byKeys != Match::kUnknown) return byKeys;
  const bool all = std::all_of(words_.begin(), words_.end(), [&](const std::string& word) {
    return Holds(row, word) || text.find(word) != std::string::npos;
  });
  return all ? Match::kYes : Match::kNo;
}

ManageList::Match ManageList::MatchFully(const ManageRow& row) const {
  const Match byKeys = MatchKeys(row);
  const ManageTexts::Known* known = byKeys == Match::kUnknown ? texts_.Find(row) : nullptr;
  return known == nullptr ? byKeys : MatchText(row, known->folded);
}

void ManageList::WantTexts(std::size_t first, std::size_t last) {
  if (byPlace_) return places_.WantTexts(first, last);
  for (std::size_t place = first; place < std::min(last, shown_.size()); ++place) {
    ManageRow& row = rows_[shown_[place]];
    if (row.known != ManageRow::Snippet::kUnknown || row.type != ManageRow::Type::kText) continue;
    row.known = ManageRow::Snippet::kWanted;
    toRead_.insert(toRead_.begin() + static_cast<std::ptrdiff_t>(nextToRead_), shown_[place]);
  }
}

// In the order of the rows: what is at the top is seen first.
void ManageList::FindUnread() {
  toRead_.clear();
  nextToRead_ = 0;
  for (const std::uint32_t index : order_) {
    ManageRow& row = rows_[index];
    if (row.known == ManageRow::Snippet::kWanted) row.known = ManageRow::Snippet::kUnknown;
    const bool forTitle = row.untitled && row.title.empty() && row.type == ManageRow::Type::kText;
    if (matches_[index] == Match::kUnknown || (forTitle && texts_.Find(row) == nullptr))
      toRead_.push_back(index);
  }
}

bool ManageList::Precedes(std::uint32_t a, std::uint32_t b) const {
  const ManageRow& left = rows_[a];
  const ManageRow& right = rows_[b];
  for (const SortKey& key : sorting_) {
    std::strong_ordering order = std::strong_ordering::equal;
    switch (key.column) {
      case ManageColumn::kTitle: order = NaturalOrder(left.key, right.key); break;
      case ManageColumn::kType: order = left.type <=> right.type; break;
      case ManageColumn::kCreated: order = left.created <=> right.created; break;
      case ManageColumn::kModified: order = left.modified <=> right.modified; break;
      case ManageColumn::kNextWake:
        order = left.category <=> right.category;
        if (order == 0) order = left.nextWake <=> right.nextWake;
        break;
    }
    if (order != 0) return (order < 0) != key.backwards;
  }
  return a < b;
}

void ManageList::Sort() {
  std::sort(order_.begin(), order_.end(),
            [this](std::uint32_t a, std::uint32_t b) { return Precedes(a, b); });
}

}  // namespace jotlets
