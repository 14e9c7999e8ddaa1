#include "desk/note_lists.h"

#include <algorithm>
#include <utility>

namespace jotlets {

void OpenNoteList::Add(std::shared_ptr<JotletData> record) {
  changes_.Add(*record);
  byId_[FoldCase(record->id)] = record.get();
  records_.push_back(std::move(record));
}

std::shared_ptr<JotletData> OpenNoteList::Remove(TextView id) {
  const auto found = byId_.find(FoldCase(id));
  if (found == byId_.end()) return nullptr;
  const auto at = std::find_if(records_.begin(), records_.end(),
                               [&](const auto& record) { return record.get() == found->second; });
  byId_.erase(found);
  std::shared_ptr<JotletData> record = std::move(*at);
  records_.erase(at);
  changes_.Add(*record);
  return record;
}

JotletData* OpenNoteList::Find(TextView id) const {
  const auto found = byId_.find(FoldCase(id));
  return found == byId_.end() ? nullptr : found->second;
}

void OpenNoteList::Rename(TextView id, TextView newId) {
  const auto found = byId_.find(FoldCase(id));
  if (found == byId_.end()) return;
  JotletData* record = found->second;
  byId_.erase(found);
  changes_.Add(*record);
  record->id = newId;
  changes_.Add(*record);
  byId_[FoldCase(newId)] = record;
}

void OpenNoteList::MarkChanged(TextView id) {
  const JotletData* record = Find(id);
  if (record != nullptr) changes_.Add(*record);
}

std::vector<Text> IdsOf(const OpenNoteList& records) {
  std::vector<Text> ids;
  ids.reserve(records.size());
  for (const auto& record : records) ids.push_back(record->id);
  return ids;
}

void NoteLists::MoveChangesTo(std::unordered_map<Text, bool>& into, ChangeReader reader) {
  for (ChangedNotes* changes :
       {&desktop.Changes(), &attached.Changes(), &sleeping.Changes(), &closed.Changes()})
    changes->MoveTo(into, reader);
}

std::optional<NoteList> NoteLists::WhereIs(TextView id) const {
  if (desktop.Find(id) != nullptr) return NoteList::kDesktop;
  if (attached.Find(id) != nullptr) return NoteList::kAttached;
  if (sleeping.Find(id) != nullptr) return NoteList::kSleeping;
  if (closed.Find(id) != nullptr) return NoteList::kClosed;
  return std::nullopt;
}

const JotletData* NoteLists::FindRecord(TextView id) const {
  if (const JotletData* record = desktop.Find(id)) return record;
  for (const RecordList* list : {&attached, &sleeping, &closed})
    if (const JotletData* record = list->Find(id)) return record;
  return nullptr;
}

const StackRecord* NoteLists::FindStack(std::int32_t number) const {
  const auto at = std::find_if(stacks.begin(), stacks.end(),
                               [number](const StackRecord& stack) { return stack.number == number; });
  return at == stacks.end() ? nullptr : &*at;
}

std::vector<ContentClaim> NoteLists::Claims() const {
  std::vector<ContentClaim> claims;
  const auto add = [&claims](TextView kind, const JotletData& record) {
    claims.push_back({kind, record.id, record.IsImage()});
  };
  for (const auto& record : desktop) add(u"Desktop", *record);
  for (const JotletData& record : attached) add(u"Attached", record);
  for (const JotletData& record : sleeping) add(u"Sleeping/recurring", record);
  for (const JotletData& record : closed) add(u"Closed", record);
  // Their content is no orphan.
  for (const JotletData& record : discarded) add(u"Closed", record);
  return claims;
}

}  // namespace jotlets
