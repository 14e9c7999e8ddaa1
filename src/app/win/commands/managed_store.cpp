#include "app/win/commands/managed_store.h"

#include <algorithm>
#include <span>
#include <utility>

#include "res/resource.h"

namespace jotlets {
namespace {

// More are listed by their places.
constexpr std::size_t kMaximumStored = 2000;

// Newer ones have the greater keys, and the newest come first.
bool IsOlder(const StoredNote& note, std::span<const StoredNote> newest) {
  return newest.empty() || note.key < newest.back().key;
}

}  // namespace

Text ManagedStore::Name() const {
  return resources_.String(IDS_MANAGE_VIEW + static_cast<UINT>(ManageView::kStored));
}

void ManagedStore::AddNewest(std::vector<PlacedNote>& notes) {
  if (std::exchange(newestOf_, store_.Version()) != store_.Version())
    newest_ = store_.Newest({}, kMaximumStored);
  const StoredOrder order{{}, StoredBy::kTitle, false, Name()};
  const auto add = [&](const StoredNote& note) {
    notes.push_back({&note.record, PlaceName(order, note.category), note.key});
  };
  for (const StoredNote& note : newest_) add(note);
  for (const StoredNote& note : found_)
    if (IsOlder(note, newest_)) add(note);
}

// They are read from the disk: not again before something has changed.
bool ManagedStore::Fill(const std::optional<Text>& category, ManageList& list) {
  StoredState state{store_.Version(), category, findings_};
  if (list.ShowsStored(state)) return false;
  std::vector<StoredNote> notes = store_.Newest(category, kMaximumStored);
  const std::size_t newest = notes.size();
  for (const StoredNote& note : found_)
    if ((!category || note.category == *category) && IsOlder(note, std::span(notes).first(newest)))
      notes.push_back(note);
  return list.SetStored(notes, std::move(state));
}

bool ManagedStore::HasMany(const ManagePlace& place) {
  return (place.view == ManageView::kAll || place.view == ManageView::kStored) &&
         store_.HasMoreThan(kMaximumStored, place.category);
}

// What has changed in the store, for who browses it.
void ManagedStore::Follow() {
  const StoredChanges changes = store_.MoveShownChanges();
  browser_.Follow(changes);
  changes_.Add(changes);
}

bool ManagedStore::FillByPlace(const ManagePlace& place, const std::vector<PlacedNote>& listed,
                               ManageList& list) {
  Follow();
  const ManageList::SortKey sorted = list.Sorted();
  StoredOrder order{place.category, static_cast<StoredBy>(sorted.column), sorted.backwards, {}};
  if (place.view == ManageView::kAll) order.among = Name();
  if (!list.IsByPlace()) list.ShowByPlace(nullptr);
  ManagePlaces& places = list.ByPlace();
  places.Forget(std::exchange(changes_, {}));
  browser_.Ask(order, places.SetListed(listed, order.by));
  std::shared_ptr<const StoredListing> known = browser_.Listing();
  if (known && (known->order.category != order.category || known->order.among != order.among)) known.reset();
  places.SetSorting(!known || known->state == StoredListing::State::kByAge || known->order != order);
  return list.ShowByPlace(known);
}

std::vector<ManageCategory> ManagedStore::Categories() {
  if (std::exchange(counted_, store_.Version()) != store_.Version()) {
    categories_.clear();
    many_ = store_.HasMoreThan(kMaximumStored, {});
    if (many_) {
      for (Text& name : store_.CategoryNames()) categories_.push_back({std::move(name), {}});
    } else {
      for (StoredCategory& category : store_.Categories())
        categories_.push_back({std::move(category.name), category.notes});
    }
    const std::map<Text, CategoryLook> looks = store_.CategoryLooks();
    for (ManageCategory& category : categories_)
      if (const auto look = looks.find(category.name); look != looks.end()) category.look = look->second;
  }
  if (!many_) return categories_;
  // Counting very many takes a while: who browses them does that, too.
  Follow();
  if (!browser_.IsAsked()) browser_.Ask({}, {});
  if (const auto listing = browser_.Listing())
    for (ManageCategory& category : categories_) {
      const auto counted = listing->categories.find(category.name);
      if (counted != listing->categories.end()) category.notes = counted->second;
    }
  return categories_;
}

std::optional<std::size_t> ManagedStore::Count(const std::optional<Text>& category) {
  std::size_t count = 0;
  for (const ManageCategory& each : Categories()) {
    if (category && each.name != *category) continue;
    if (!each.notes) return std::nullopt;
    count += *each.notes;
  }
  return count;
}

void ManagedStore::SetFound(const SearchSurvey& survey) {
  std::vector<StoredNote> found;
  for (const SearchSurvey::Hit& hit : survey.hits) {
    const std::optional<StoredNote> note = hit.key > 0 ? store_.Find(hit.key) : std::nullopt;
    if (note && !note->record.id.empty()) found.push_back(*note);
  }
  if (!std::ranges::equal(found, found_, {}, &StoredNote::key, &StoredNote::key)) ++findings_;
  found_ = std::move(found);
}

void ManagedStore::ForgetFound() {
  if (!std::exchange(found_, {}).empty()) ++findings_;
}

bool ManagedStore::HasNews() {
  std::shared_ptr<const StoredListing> listing = browser_.Listing();
  return std::exchange(listing_, listing) != listing;
}

void ManagedStore::End() {
  browser_.End();
  listing_.reset();
}

std::vector<Text> ManagedStore::IdsOf(const std::vector<Text>& names) {
  std::vector<Text> ids;
  ids.reserve(names.size());
  for (const Text& name : names) {
    const std::optional<std::int64_t> key = StoredKeyIn(name);
    const std::optional<StoredNote> note = key ? store_.Find(*key) : std::nullopt;
    // One that has gone stays what it is called: nothing is found under that.
    ids.push_back(note ? note->record.id : name);
  }
  return ids;
}

}  // namespace jotlets
