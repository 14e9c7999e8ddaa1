#include "manage/manage_list.h"

#include <algorithm>
#include <compare>
#include <numeric>
#include <unordered_set>
#include <utility>

#include "note/frame_layout.h"

namespace jotlets {
namespace {

// Nobody reads more of a title than that, and sorting and searching go through all of them.
constexpr std::size_t kLongestTitle = 1000;

std::string Folded(TextView text) { return ToUtf8(FoldCase(text)); }

std::int32_t Known(std::int32_t time) { return time > 0 ? time : 0; }

std::vector<std::string> WordsOf(const std::string& text) {
  std::vector<std::string> words;
  for (std::size_t begin = 0; (begin = text.find_first_not_of(' ', begin)) != std::string::npos;) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    words.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return words;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view DigitsAt(std::string_view text, std::size_t at) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789", at), text.size());
  return text.substr(at, end - at);
}

// As people count: 9 before 10.
std::strong_ordering NaturalOrder(std::string_view a, std::string_view b) {
  const auto number = [](std::string_view digits) {
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
  };
  const auto at = static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
  // Where they differ inside of a number, its beginning counts.
  std::size_t begin = at;
  while (begin > 0 && IsDigit(a[begin - 1])) --begin;
  const std::string_view left = DigitsAt(a, begin);
  const std::string_view right = DigitsAt(b, begin);
  if (left.empty() || right.empty()) return a <=> b;
  const std::string_view low = number(left);
  const std::string_view high = number(right);
  if (low.size() != high.size()) return low.size() <=> high.size();
  return low == high ? a <=> b : low <=> high;
}

// A separator that no typed word holds: two fields never make a word together.
std::string MoreOf(const JotletData& record) {
  return record.userString1.empty() && record.source.empty()
             ? std::string()
             : Folded(record.userString1) + '\n' + Folded(record.source);
}

// What comes after the title, when that is the first line of the text.
Text SnippetOf(TextView text, bool untitled) {
  constexpr std::size_t kLongest = 200;
  if (untitled) {
    const std::size_t begin = text.find_first_not_of(u" \t\r\n\v");
    const std::size_t end = begin == TextView::npos ? begin : text.find_first_of(u"\r\n\v", begin);
    text = end == TextView::npos ? TextView() : text.substr(end);
  }
  return ShownLine(text.substr(0, 2 * kLongest)).substr(0, kLongest);
}

bool IsSame(const ManageRow& row, const JotletData& record) {
  return row.id == record.id && !row.unsaved && row.modified == Known(record.modified) &&
         row.created == Known(record.created) && row.attached == record.IsAttached() &&
         row.nextWake == (record.sleep.asleep ? Known(record.sleep.nextWake) : 0) &&
         row.colour == record.colour &&
         row.type == (record.IsImage() ? ManageRow::Type::kPicture : ManageRow::Type::kText) &&
         (row.untitled ? TrimBlanks(record.title).empty()
                       : row.title == OneLine(record.title).substr(0, kLongestTitle)) &&
         row.more == MoreOf(record);
}

ManageRow RowOf(const JotletData& record) {
  ManageRow row;
  row.id = record.id;
  row.untitled = TrimBlanks(record.title).empty();
  if (!row.untitled) row.title = OneLine(record.title).substr(0, kLongestTitle);
  row.key = Folded(row.title);
  row.more = MoreOf(record);
  row.type = record.IsImage() ? ManageRow::Type::kPicture : ManageRow::Type::kText;
  row.colour = record.colour;
  row.attached = record.IsAttached();
  row.created = Known(record.created);
  row.modified = Known(record.modified);
  row.nextWake = record.sleep.asleep ? Known(record.sleep.nextWake) : 0;
  return row;
}

ManageRow RowOf(const StackRecord& stack) {
  ManageRow row;
  row.id = IntText(stack.number);
  row.title = OneLine(stack.title).substr(0, kLongestTitle);
  row.key = Folded(row.title);
  row.type = ManageRow::Type::kStack;
  return row;
}

}  // namespace

const ManageTexts::Known* ManageTexts::Find(const ManageRow& row) const {
  if (row.unsaved) return nullptr;
  const auto found = known_.find(FoldCase(row.id));
  return found == known_.end() || found->second.modified != row.modified ? nullptr : &found->second;
}

const ManageTexts::Known& ManageTexts::Read(const ManageRow& row) {
  const Text text = source_.TextOf(row);
  Known known{row.modified, Folded(text), row.untitled ? ShownTitle({}, text) : Text(),
              SnippetOf(text, row.untitled)};
  const Text id = FoldCase(row.id);
  if (const auto old = known_.find(id); old != known_.end()) {
    bytes_ -= old->second.folded.size();
    known_.erase(old);
  }
  if (row.unsaved || bytes_ + known.folded.size() > mostBytes_) return passing_ = std::move(known);
  bytes_ += known.folded.size();
  return known_[id] = std::move(known);
}

void ManageTexts::Clear() {
  known_.clear();
  bytes_ = 0;
}

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
  if (std::equal(rows_.begin(), rows_.end(), notes.begin(), notes.end(),
                 [&](const ManageRow& row, const PlacedNote& note) {
                   return IsSame(row, *note.record) && row.category == note.place && !isUnsaved(*note.record);
                 }))
    return false;
  std::vector<ManageRow> rows;
  rows.reserve(notes.size());
  for (const PlacedNote& note : notes) {
    rows.push_back(RowOf(*note.record));
    rows.back().category = note.place;
    rows.back().unsaved = isUnsaved(*note.record);
  }
  SetRows(std::move(rows));
  return true;
}

bool ManageList::SetStored(std::span<const StoredNote> notes, StoredState state) {
  std::vector<ManageRow> rows;
  rows.reserve(notes.size());
  for (const StoredNote& note : notes) {
    rows.push_back(RowOf(note.record));
    rows.back().category = OneLine(note.category);
  }
  SetRows(std::move(rows));
  stored_ = std::move(state);
  return true;
}

bool ManageList::SetStacks(std::span<const StackRecord> stacks) {
  std::vector<ManageRow> rows;
  for (const StackRecord& stack : stacks) rows.push_back(RowOf(stack));
  if (std::equal(rows_.begin(), rows_.end(), rows.begin(), rows.end(),
                 [](const ManageRow& a, const ManageRow& b) {
                   return a.id == b.id && a.title == b.title && a.type == b.type;
                 }))
    return false;
  SetRows(std::move(rows));
  return true;
}

void ManageList::SetRows(std::vector<ManageRow> rows) {
  stored_.reset();
  // What was seen stays to be seen until it is read anew.
  for (std::size_t i = 0; i < std::min(rows.size(), rows_.size()); ++i)
    if (rows[i].id == rows_[i].id) rows[i].snippet = std::move(rows_[i].snippet);
  rows_ = std::move(rows);
  matches_.assign(rows_.size(), Match::kUnknown);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (const ManageTexts::Known* known = texts_.Find(rows_[i])) ApplyText(rows_[i], *known);
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
  if (!IsReading()) return;
  const std::uint32_t index = toRead_[nextToRead_++];
  ManageRow& row = rows_[index];
  const ManageTexts::Known* known = texts_.Find(row);
  if (known == nullptr) known = &texts_.Read(row);
  ApplyText(row, *known);
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

std::vector<std::size_t> ManageList::PlacesOf(const std::vector<Text>& ids) const {
  std::vector<std::size_t> places;
  const std::unordered_set<TextView> wanted(ids.begin(), ids.end());
  for (std::size_t place = 0; place < shown_.size() && places.size() < wanted.size(); ++place) {
    if (wanted.contains(At(place).id)) places.push_back(place);
  }
  return places;
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
  for (std::size_t place = first; place < std::min(last, shown_.size()); ++place) {
    ManageRow& row = rows_[shown_[place]];
    if (row.known != ManageRow::Snippet::kUnknown || row.type != ManageRow::Type::kText) continue;
    row.known = ManageRow::Snippet::kWanted;
    toRead_.insert(toRead_.begin() + static_cast<std::ptrdiff_t>(nextToRead_), shown_[place]);
  }
}

void ManageList::ApplyText(ManageRow& row, const ManageTexts::Known& known) {
  row.known = ManageRow::Snippet::kRead;
  row.snippet = known.snippet;
  if (!row.untitled || row.title == known.beginning) return;
  row.title = known.beginning;
  row.key = Folded(row.title);
  titlesCame_ = true;
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
