#include "manage/manage_places.h"

#include <algorithm>
#include <utility>

namespace jotlets {
namespace {

// More than a few screens, so that small steps find their rows there.
constexpr std::size_t kAround = 64;
constexpr std::size_t kMaximumFetched = 2000;

const ManageRow& Unknown() {
  static const ManageRow row;
  return row;
}

}  // namespace

void ManagePlaces::Clear() {
  listing_.reset();
  fetched_ = {};
  listed_ = {};
  numbers_ = {};
  near_ = {};
  toRead_ = {};
  comes_ = false;
  sorting_ = false;
}

std::vector<ListedNote> ManagePlaces::SetListed(std::span<const PlacedNote> notes, StoredBy by) {
  std::unordered_map<std::int64_t, ManageRow> listed;
  std::vector<ListedNote> told;
  for (const PlacedNote& note : notes) {
    const auto next = -static_cast<std::int64_t>(numbers_.size()) - 1;
    const std::int64_t key = numbers_.try_emplace(FoldCase(note.record->id), next).first->second;
    const auto known = listed_.find(key);
    const bool same = known != listed_.end() && IsSame(known->second, note);
    listed[key] = same ? std::move(known->second) : RowOf(note, false);
    told.push_back({key, SortText(*note.record, note.place, by)});
  }
  listed_ = std::move(listed);
  return told;
}

bool ManagePlaces::Show(std::shared_ptr<const StoredListing> listing) {
  if (listing == listing_) return false;
  const bool other = listing == nullptr || listing_ == nullptr || listing->keys != listing_->keys;
  const bool samePlace = listing && listing_ && listing->order.category == listing_->order.category &&
                         listing->order.among == listing_->order.among;
  if (!samePlace) {
    fetched_ = {};
    comes_ = false;
  }
  listing_ = std::move(listing);
  return other;
}

void ManagePlaces::Forget(const StoredChanges& changes) {
  for (auto& [key, fetched] : fetched_)
    if (changes.many || std::ranges::binary_search(changes.keys, key)) fetched.stale = true;
}

const ManageRow* ManagePlaces::Find(std::int64_t key) const {
  if (const auto listed = listed_.find(key); listed != listed_.end()) return &listed->second;
  const auto fetched = fetched_.find(key);
  return fetched == fetched_.end() ? nullptr : &fetched->second.row;
}

const ManageRow& ManagePlaces::At(std::size_t place) const {
  const ManageRow* row = Find(KeyAt(place));
  return row == nullptr ? Unknown() : *row;
}

Text ManagePlaces::NameAt(std::size_t place) const {
  const std::int64_t key = KeyAt(place);
  return key > 0 ? NameOfStored(key) : At(place).id;
}

std::vector<std::size_t> ManagePlaces::PlacesOf(const std::vector<Text>& names) const {
  std::vector<std::int64_t> wanted;
  for (const Text& name : names) {
    if (const auto key = StoredKeyIn(name)) {
      wanted.push_back(*key);
    } else if (const auto number = numbers_.find(FoldCase(name)); number != numbers_.end()) {
      wanted.push_back(number->second);
    }
  }
  std::ranges::sort(wanted);
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < Size() && places.size() < wanted.size(); ++place)
    if (std::ranges::binary_search(wanted, KeyAt(place))) places.push_back(place);
  return places;
}

std::vector<std::int64_t> ManagePlaces::Missing(std::size_t first, std::size_t last) const {
  std::vector<std::int64_t> missing;
  for (std::size_t place = first; place < std::min(last, Size()); ++place) {
    const std::int64_t key = KeyAt(place);
    const auto known = fetched_.find(key);
    if (key > 0 && (known == fetched_.end() || known->second.stale)) missing.push_back(key);
  }
  return missing;
}

std::vector<std::int64_t> ManagePlaces::Want(std::size_t first, std::size_t last) {
  if (comes_) return {};
  const std::size_t begin = first - std::min(first, kAround);
  const std::size_t end = std::min(last + kAround, Size());
  near_.clear();
  for (std::size_t place = begin; place < end; ++place) near_.push_back(KeyAt(place));
  std::ranges::sort(near_);
  std::vector<std::int64_t> wanted = Missing(first, last);
  if (wanted.empty()) wanted = Missing(begin, end);
  comes_ = !wanted.empty();
  return wanted;
}

void ManagePlaces::Put(const std::vector<std::int64_t>& keys, const std::vector<StoredNote>& notes) {
  comes_ = false;
  if (listing_ == nullptr) return;
  // What has gone is not asked for again, nor what the store cannot tell.
  std::unordered_map<std::int64_t, Text> seen;
  for (const std::int64_t key : keys) seen[key] = std::move(std::exchange(fetched_[key], {}).row.snippet);
  for (const StoredNote& note : notes) {
    ManageRow row = RowOf({&note.record, PlaceName(listing_->order, note.category), note.key}, false);
    row.snippet = std::move(seen[note.key]);
    fetched_[note.key].row = std::move(row);
  }
  if (fetched_.size() > kMaximumFetched)
    std::erase_if(fetched_,
                  [this](const auto& item) { return !std::ranges::binary_search(near_, item.first); });
}

void ManagePlaces::WantTexts(std::size_t first, std::size_t last) {
  toRead_.clear();
  for (std::size_t place = std::min(last, Size()); place > first; --place) {
    const ManageRow& row = At(place - 1);
    if (!row.id.empty() && row.known == ManageRow::Snippet::kUnknown && row.type == ManageRow::Type::kText)
      toRead_.push_back(KeyAt(place - 1));
  }
}

void ManagePlaces::ReadOne() {
  if (toRead_.empty()) return;
  const std::int64_t key = toRead_.back();
  toRead_.pop_back();
  if (Find(key) == nullptr) return;
  ManageRow& row = key < 0 ? listed_[key] : fetched_[key].row;
  const ManageTexts::Known* known = texts_.Find(row);
  ApplyText(row, known == nullptr ? texts_.Read(row) : *known);
}

}  // namespace jotlets
