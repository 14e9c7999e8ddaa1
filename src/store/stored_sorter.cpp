#include "store/stored_sorter.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace jotlets {
namespace {

// So many are read at a time: whoever changes the store waits for no more.
constexpr std::int64_t kNotesAtOnce = 200;
constexpr std::int64_t kPlacesAtOnce = 4000;
// Nobody reads more of a title than that.
constexpr std::size_t kLongestTitle = 1000;

StoredPlace FrontPlace() { return {{}, INT64_MIN}; }

// The file is nobody else's, and of no use after a power cut.
constexpr const char* kScratch =
    "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"
    "CREATE TABLE sorted (key INTEGER PRIMARY KEY, value TEXT NOT NULL COLLATE natural_order);"
    "BEGIN;";

}  // namespace

Text PlaceName(const StoredOrder& order, TextView category) {
  const Text own = OneLine(category);
  if (!order.among) return own;
  return own.empty() ? *order.among : *order.among + u": " + own;
}

Text SortText(const JotletData& record, TextView place, StoredBy by) {
  const auto time = [](std::int32_t seconds) { return IntText(std::max(seconds, 0)); };
  switch (by) {
    case StoredBy::kTitle: return FoldCase(OneLine(record.title).substr(0, kLongestTitle));
    case StoredBy::kType: return record.IsImage() ? u"1" : u"0";
    case StoredBy::kCreated: return time(record.created);
    case StoredBy::kModified: return time(record.modified);
    case StoredBy::kPlace: break;
  }
  return Text(place) + u'\n' + time(record.sleep.asleep ? record.sleep.nextWake : 0);
}

void StoredSorter::SetPath(TextView path) {
  Close();
  store_.SetPath(path);
}

void StoredSorter::Close() {
  phase_ = Phase::kDone;
  shows_ = false;
  put_ = {};
  precedes_ = {};
  scratch_.Close();
  store_.Close();
  listing_.reset();
  keys_ = {};
  pending_ = {};
}

bool StoredSorter::OpenScratch() {
  put_ = {};
  precedes_ = {};
  if (scratch_.Open({}, true) != DatabaseResult::kDone) return false;
  scratch_.AddNaturalOrder();
  if (scratch_.Run(kScratch) != DatabaseResult::kDone) return false;
  put_ = scratch_.Prepare("INSERT OR REPLACE INTO sorted VALUES (?, ?)");
  precedes_ = scratch_.Prepare(
      order_.backwards ? "SELECT value > ?1 OR (value = ?1 AND key > ?2) FROM sorted WHERE key = ?3"
                       : "SELECT value < ?1 OR (value = ?1 AND key > ?2) FROM sorted WHERE key = ?3");
  return true;
}

void StoredSorter::Begin(StoredOrder order, std::vector<ListedNote> listed) {
  shows_ = listing_ && order.category == order_.category && order.among == order_.among;
  order_ = std::move(order);
  listed_ = std::move(listed);
  std::ranges::sort(listed_);
  newListed_ = listed_;
  pending_ = {};
  keys_ = {};
  counting_.clear();
  lastPlace_ = FrontPlace();
  lastKey_ = 0;
  phase_ = Phase::kPlaces;
  if (!OpenScratch()) Fail();
}

void StoredSorter::Follow(const StoredChanges& changes, std::vector<ListedNote> listed) {
  newListed_ = std::move(listed);
  std::ranges::sort(newListed_);
  pending_.Add(changes);
  // What is being read is read to its end first: else it never would be while notes come all the time.
  if (phase_ == Phase::kDone || phase_ == Phase::kRecount) phase_ = Phase::kFollow;
}

bool StoredSorter::Step() {
  switch (phase_) {
    case Phase::kDone: return false;
    case Phase::kPlaces:
    case Phase::kRecount: return StepPlaces();
    case Phase::kNotes: return StepNotes();
    case Phase::kSort: return StepSort();
    case Phase::kFollow: return StepFollow();
  }
  return false;
}

// A later change tries it again.
bool StoredSorter::Fail() {
  phase_ = Phase::kDone;
  Publish(StoredListing::State::kFailed, shows_ ? listing_->keys : std::make_shared<StoredListing::Keys>());
  return false;
}

void StoredSorter::Publish(StoredListing::State state, std::shared_ptr<const StoredListing::Keys> keys) {
  listing_ = std::make_shared<StoredListing>(StoredListing{order_, state, std::move(keys), counts_});
}

void StoredSorter::PublishKeys(StoredListing::State state, StoredListing::Keys keys) {
  Publish(state, std::make_shared<StoredListing::Keys>(std::move(keys)));
}

bool StoredSorter::StepPlaces() {
  const auto places = store_.PlacesAfter(lastPlace_, kPlacesAtOnce);
  if (!places) return Fail();
  if (places->empty()) return EndPlaces();
  const bool lists = phase_ == Phase::kPlaces && !shows_;
  for (const StoredPlace& place : *places) {
    ++counting_[place.category];
    if (lists && (!order_.category || place.category == *order_.category)) keys_.push_back(place.key);
  }
  lastPlace_ = places->back();
  return true;
}

bool StoredSorter::EndPlaces() {
  recounts_ = false;
  counts_ = std::exchange(counting_, {});
  if (phase_ == Phase::kRecount) {
    phase_ = Phase::kDone;
    Publish(listing_->state, listing_->keys);
    return false;
  }
  phase_ = Phase::kNotes;
  if (shows_) return true;
  std::ranges::sort(keys_, std::greater<>());
  StoredListing::Keys keys;
  keys.reserve(listed_.size() + keys_.size());
  for (const ListedNote& note : listed_) keys.push_back(note.key);
  keys.insert(keys.end(), keys_.begin(), keys_.end());
  keys_ = {};
  shows_ = true;
  PublishKeys(StoredListing::State::kByAge, std::move(keys));
  return true;
}

bool StoredSorter::StepNotes() {
  if (lastKey_ == 0)
    for (const ListedNote& note : listed_) Keep(note);
  const auto notes = order_.category ? store_.After(lastKey_, kNotesAtOnce, *order_.category)
                                     : store_.After(lastKey_, kNotesAtOnce);
  if (!notes) return Fail();
  for (const StoredNote& note : *notes)
    Keep({note.key, SortText(note.record, PlaceName(order_, note.category), order_.by)});
  if (notes->empty()) {
    phase_ = Phase::kSort;
  } else {
    lastKey_ = notes->back().key;
  }
  return true;
}

bool StoredSorter::StepSort() {
  StoredListing::Keys keys;
  keys.reserve(static_cast<std::size_t>(scratch_.Number("SELECT count(*) FROM sorted", 0)));
  Statement select =
      scratch_.Prepare(order_.backwards ? "SELECT key FROM sorted ORDER BY value DESC, key DESC"
                                        : "SELECT key FROM sorted ORDER BY value, key DESC");
  DatabaseResult result = select.Step();
  for (; result == DatabaseResult::kRow; result = select.Step()) keys.push_back(select.NumberAt(0));
  if (result != DatabaseResult::kDone) return Fail();
  PublishKeys(StoredListing::State::kSorted, std::move(keys));
  // What changed meanwhile may have been read before that.
  phase_ = pending_.IsEmpty() && newListed_ == listed_ ? Phase::kDone : Phase::kFollow;
  return phase_ != Phase::kDone;
}

void StoredSorter::Keep(const ListedNote& note) {
  put_.Reset();
  put_.Bind(note.key).Bind(note.value).Run();
}

// Whether a note that was kept stands before another.
bool StoredSorter::Precedes(std::int64_t kept, const ListedNote& note) {
  precedes_.Reset();
  precedes_.Bind(note.value).Bind(note.key).Bind(kept);
  return precedes_.Step() == DatabaseResult::kRow && precedes_.NumberAt(0) != 0;
}

StoredListing::Keys StoredSorter::Without(std::vector<std::int64_t> gone) const {
  std::ranges::sort(gone);
  StoredListing::Keys keys;
  keys.reserve(listing_->keys->size() + StoredChanges::kMaximum);
  std::ranges::copy_if(*listing_->keys, std::back_inserter(keys),
                       [&](std::int64_t key) { return !std::ranges::binary_search(gone, key); });
  return keys;
}

StoredListing::Keys StoredSorter::Merged(StoredListing::Keys keys, std::vector<ListedNote> added) {
  std::ranges::sort(added, [this](const ListedNote& a, const ListedNote& b) {
    return a.key != b.key && Precedes(a.key, b);
  });
  // From the end on, so that nothing is moved twice.
  std::size_t end = keys.size();
  keys.resize(keys.size() + added.size());
  std::size_t to = keys.size();
  for (std::size_t left = added.size(); left > 0; --left) {
    const ListedNote& note = added[left - 1];
    const auto first = keys.begin();
    const auto at = std::partition_point(first, first + static_cast<std::ptrdiff_t>(end),
                                         [&](std::int64_t kept) { return Precedes(kept, note); });
    const auto moved = std::move_backward(at, first + static_cast<std::ptrdiff_t>(end),
                                          first + static_cast<std::ptrdiff_t>(to));
    end = static_cast<std::size_t>(at - first);
    to = static_cast<std::size_t>(moved - first) - 1;
    keys[to] = note.key;
  }
  return keys;
}

bool StoredSorter::StepFollow() {
  if (pending_.many || !listing_ || listing_->state != StoredListing::State::kSorted) {
    Begin(order_, newListed_);
    return true;
  }
  const StoredChanges changes = std::exchange(pending_, {});
  std::vector<std::int64_t> gone = changes.keys;
  std::vector<ListedNote> added;
  std::vector<ListedNote> left;
  std::ranges::set_difference(listed_, newListed_, std::back_inserter(left));
  for (const ListedNote& note : left) gone.push_back(note.key);
  std::ranges::set_difference(newListed_, listed_, std::back_inserter(added));
  listed_ = newListed_;
  for (const std::int64_t key : changes.keys) {
    const auto notes = store_.At(key);
    if (!notes) return Fail();
    for (const StoredNote& note : *notes)
      if (Belongs(note))
        added.push_back({key, SortText(note.record, PlaceName(order_, note.category), order_.by)});
  }
  for (const ListedNote& note : added) Keep(note);
  if (!gone.empty() || !added.empty())
    PublishKeys(StoredListing::State::kSorted, Merged(Without(std::move(gone)), std::move(added)));
  // The numbers of the categories follow.
  recounts_ = recounts_ || !changes.IsEmpty();
  counting_.clear();
  lastPlace_ = FrontPlace();
  phase_ = recounts_ ? Phase::kRecount : Phase::kDone;
  return phase_ != Phase::kDone;
}

}  // namespace jotlets
