// What the manage window lists and counts.
#include <algorithm>
#include <array>
#include <utility>

#include "app/win/commands/managed_notes.h"
#include "res/resource.h"

namespace jotlets {
namespace {

bool IsIn(ManageView view, const JotletData& sleeping) {
  return sleeping.sleep.recurring == (view == ManageView::kRecurring);
}

bool IsUnsaved(const JotletData& record, void* desktop) {
  const BJotlet* jotlet = static_cast<OpenNotes*>(desktop)->Find(record.id);
  return jotlet != nullptr && jotlet->HasUnsavedContent();
}

// The notes of all lists, and perhaps the newest stored ones before those that are closed.
std::vector<PlacedNote> AllListed(const NoteLists& lists, const Resources& resources, ManagedStore* stored) {
  std::vector<PlacedNote> notes;
  std::array<Text, kManageViews> names;
  for (UINT view = 0; view < names.size(); ++view) names[view] = resources.String(IDS_MANAGE_VIEW + view);
  const auto add = [&](const JotletData& record, ManageView home) {
    notes.push_back({&record, names[static_cast<std::size_t>(home)], 0});
  };
  for (const auto& record : lists.desktop) add(*record, ManageView::kDesktop);
  for (const JotletData& record : lists.attached) add(record, ManageView::kAttached);
  for (const JotletData& record : lists.sleeping)
    add(record, IsIn(ManageView::kRecurring, record) ? ManageView::kRecurring : ManageView::kSleeping);
  if (stored != nullptr) stored->AddNewest(notes);
  for (const JotletData& record : lists.closed) add(record, ManageView::kClosed);
  return notes;
}

}  // namespace

bool ManagedNotes::FillManageList(const ManagePlace& place, ManageList& list) {
  const ManageView view = place.view;
  const NoteLists& lists = desk_.Lists();
  const bool all = view == ManageView::kAll;
  if (stored_.HasMany(place) && !list.IsSearched())
    return stored_.FillByPlace(place, all ? AllListed(lists, resources_, nullptr) : std::vector<PlacedNote>(),
                               list);
  if (all) return list.SetAll(AllListed(lists, resources_, &stored_), IsUnsaved, &notes_);
  if (view == ManageView::kStored) return stored_.Fill(place.category, list);
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

bool ManagedNotes::AskSurvey(SurveyQuestion question) {
  if (question.typed.empty()) stored_.ForgetFound();
  return survey_(std::move(question));
}

void ManagedNotes::OnSurvey(const SearchSurvey& survey) {
  stored_.SetFound(survey);
  dialog_.ShowSurvey(survey);
}

void ManagedNotes::OnBrowsed() {
  const std::vector<StoredBrowser::Page> pages = stored_.Browser().Pages();
  if (stored_.HasNews() || !pages.empty()) dialog_.FollowStored(pages);
}

std::optional<std::size_t> ManagedNotes::CountStored(const ManagePlace& place) {
  if (place.view != ManageView::kAll && place.view != ManageView::kStored) return 0;
  std::optional<std::size_t> count = stored_.Count(place.category);
  const NoteLists& lists = desk_.Lists();
  if (count && place.view == ManageView::kAll)
    *count += lists.desktop.size() + lists.attached.size() + lists.sleeping.size() + lists.closed.size();
  return count;
}

std::array<std::optional<std::size_t>, kManageViews> ManagedNotes::CountManaged() {
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
