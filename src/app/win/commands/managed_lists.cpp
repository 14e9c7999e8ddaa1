// What the manage window lists and counts.
#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "app/win/commands/managed_notes.h"
#include "res/resource.h"

namespace jotlets {
namespace {

bool IsIn(ManageView view, const JotletData& sleeping) {
  return sleeping.sleep.recurring == (view == ManageView::kRecurring);
}

constexpr std::size_t kMaximumStored = 2000;

bool IsUnsaved(const JotletData& record, void* desktop) {
  const BJotlet* jotlet = static_cast<OpenNotes*>(desktop)->Find(record.id);
  return jotlet != nullptr && jotlet->HasUnsavedContent();
}

// Newer ones have the greater keys, and the newest come first.
bool IsOlder(const StoredNote& note, std::span<const StoredNote> newest) {
  return newest.empty() || note.key < newest.back().key;
}

}  // namespace

bool ManagedNotes::FillManageList(const ManagePlace& place, ManageList& list) {
  const ManageView view = place.view;
  if (view == ManageView::kAll) return FillAll(list);
  if (view == ManageView::kStored) return FillStored(place.category, list);
  const NoteLists& lists = desk_.Lists();
  std::vector<const JotletData*> notes;
  const auto add = [&notes](const JotletData& record) { notes.push_back(&record); };
  switch (view) {
    case ManageView::kDesktop:
      for (const auto& record : lists.desktop) add(*record);
      return list.SetNotes(notes, IsUnsaved, &notes_);
    case ManageView::kAttached: std::for_each(lists.attached.begin(), lists.attached.end(), add); break;
    case ManageView::kSleeping:
    case ManageView::kRecurring:
      for (const JotletData& record : lists.sleeping) {
        if (IsIn(view, record)) add(record);
      }
      break;
    case ManageView::kClosed: std::for_each(lists.closed.begin(), lists.closed.end(), add); break;
    case ManageView::kStacks: return list.SetStacks(lists.stacks);
    case ManageView::kAll:
    case ManageView::kStored: break;
  }
  return list.SetNotes(notes);
}

bool ManagedNotes::FillAll(ManageList& list) {
  if (std::exchange(read_.newestOf, store_.Version()) != store_.Version())
    read_.newest = store_.Newest({}, kMaximumStored);
  std::array<Text, kManageViews> names;
  for (UINT view = 0; view < names.size(); ++view) names[view] = resources_.String(IDS_MANAGE_VIEW + view);
  std::vector<PlacedNote> notes;
  const auto add = [&](const JotletData& record, ManageView home) {
    notes.push_back({&record, names[static_cast<std::size_t>(home)]});
  };
  const NoteLists& lists = desk_.Lists();
  for (const auto& record : lists.desktop) add(*record, ManageView::kDesktop);
  for (const JotletData& record : lists.attached) add(record, ManageView::kAttached);
  for (const JotletData& record : lists.sleeping)
    add(record, IsIn(ManageView::kRecurring, record) ? ManageView::kRecurring : ManageView::kSleeping);
  const auto addStored = [&](const StoredNote& note) {
    add(note.record, ManageView::kStored);
    if (!note.category.empty()) notes.back().place += u": " + OneLine(note.category);
  };
  for (const StoredNote& note : read_.newest) addStored(note);
  for (const StoredNote& note : read_.found)
    if (IsOlder(note, read_.newest)) addStored(note);
  for (const JotletData& record : lists.closed) add(record, ManageView::kClosed);
  return list.SetAll(notes, IsUnsaved, &notes_);
}

// They are read from the disk: not again before something has changed.
bool ManagedNotes::FillStored(const std::optional<Text>& category, ManageList& list) {
  StoredState state{store_.Version(), category, read_.findings};
  if (list.ShowsStored(state)) return false;
  std::vector<StoredNote> notes = store_.Newest(category, kMaximumStored);
  const std::size_t newest = notes.size();
  for (const StoredNote& note : read_.found)
    if ((!category || note.category == *category) && IsOlder(note, std::span(notes).first(newest)))
      notes.push_back(note);
  return list.SetStored(notes, std::move(state));
}

bool ManagedNotes::AskSurvey(SurveyQuestion question) {
  if (question.typed.empty() && !std::exchange(read_.found, {}).empty()) ++read_.findings;
  return survey_(std::move(question));
}

// Those that are too old to be listed otherwise.
void ManagedNotes::OnSurvey(const SearchSurvey& survey) {
  std::vector<StoredNote> found;
  for (const SearchSurvey::Hit& hit : survey.hits) {
    const std::optional<StoredNote> note = hit.key > 0 ? store_.Find(hit.key) : std::nullopt;
    if (note && !note->record.id.empty()) found.push_back(*note);
  }
  if (!std::ranges::equal(found, read_.found, {}, &StoredNote::key, &StoredNote::key)) ++read_.findings;
  read_.found = std::move(found);
  dialog_.ShowSurvey(survey);
}

const std::vector<StoredCategory>& ManagedNotes::Categories() {
  if (read_.counted != store_.Version()) {
    read_.counted = store_.Version();
    read_.categories = store_.Categories();
  }
  return read_.categories;
}

std::size_t ManagedNotes::CountStored(const ManagePlace& place) {
  if (place.view == ManageView::kAll) {
    const NoteLists& lists = desk_.Lists();
    return CountStored({ManageView::kStored, {}}) + lists.desktop.size() + lists.attached.size() +
           lists.sleeping.size() + lists.closed.size();
  }
  if (place.view != ManageView::kStored) return 0;
  std::size_t count = 0;
  for (const StoredCategory& category : Categories())
    if (!place.category || category.name == *place.category) count += category.notes;
  return count;
}

std::array<std::size_t, kManageViews> ManagedNotes::CountManaged() {
  const NoteLists& lists = desk_.Lists();
  const auto recurring = static_cast<std::size_t>(
      std::count_if(lists.sleeping.begin(), lists.sleeping.end(),
                    [](const JotletData& record) { return IsIn(ManageView::kRecurring, record); }));
  return {CountStored({ManageView::kAll, {}}),
          lists.desktop.size(),
          lists.attached.size(),
          lists.sleeping.size() - recurring,
          recurring,
          CountStored({ManageView::kStored, {}}),
          lists.closed.size(),
          lists.stacks.size()};
}

}  // namespace jotlets
