#include "app/win/commands/managed_notes.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "app/win/main_frame.h"
#include "base/win/shown_time.h"
#include "data/rtf_text.h"
#include "res/resource.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

// As much of a text as is searched, and a file that is too large to be opened for it.
constexpr std::size_t kMostSearched = 1 << 16;
constexpr std::uint64_t kLargestFile = 8 << 20;
constexpr std::size_t kMostUndone = 100;

bool IsIn(ManageView view, const JotletData& sleeping) {
  return sleeping.sleep.recurring == (view == ManageView::kRecurring);
}

// A record comes to the desktop as a plain note that is seen.
void Awaken(JotletData& record) {
  record.sleep.asleep = false;
  record.sleep.recurring = false;
  record.hidden = false;
  record.deletedTime = kNotSet;
}

void Detach(JotletData& record) { record.attachment = {}; }

bool IsUnsaved(const JotletData& record, void* desktop) {
  const BJotlet* jotlet = static_cast<DesktopJotlets*>(desktop)->Find(record.id);
  return jotlet != nullptr && jotlet->HasUnsavedContent();
}

}  // namespace

bool ManagedNotes::FillManageList(ManageView view, ManageList& list) {
  std::vector<const JotletData*> notes;
  const auto add = [&notes](const JotletData& record) { notes.push_back(&record); };
  switch (view) {
    case ManageView::kDesktop:
      for (const auto& jotlet : desktop_.All()) add(jotlet->StoredRecord());
      return list.SetNotes(notes, IsUnsaved, &desktop_);
    case ManageView::kAttached: std::for_each(lists_.attached.begin(), lists_.attached.end(), add); break;
    case ManageView::kSleeping:
    case ManageView::kRecurring:
      for (const JotletData& record : lists_.sleeping) {
        if (IsIn(view, record)) add(record);
      }
      break;
    case ManageView::kClosed: std::for_each(lists_.deleted.begin(), lists_.deleted.end(), add); break;
    case ManageView::kStacks: return list.SetStacks(lists_.stacks);
  }
  return list.SetNotes(notes);
}

std::array<std::size_t, kManageViews> ManagedNotes::CountManaged() {
  const auto recurring = static_cast<std::size_t>(
      std::count_if(lists_.sleeping.begin(), lists_.sleeping.end(),
                    [](const JotletData& record) { return IsIn(ManageView::kRecurring, record); }));
  return {desktop_.All().size(), lists_.attached.size(), lists_.sleeping.size() - recurring, recurring,
          lists_.deleted.size(), lists_.stacks.size()};
}

Text ManagedNotes::ManagedTime(std::int32_t utc) { return ShownTime(desktop_.ToLocal(utc)); }

void ManagedNotes::OnManageSettings() { frame_.SetOptionsDirty(); }

Text ManagedNotes::TextOf(const ManageRow& row) {
  if (row.type != ManageRow::Type::kText) return {};
  if (const BJotlet* jotlet = desktop_.Find(row.id))
    return jotlet->Content().PlainText().substr(0, kMostSearched);
  JotletData named;
  named.id = row.id;
  const Text path = frame_.DataFolder() + ContentPath(named);
  if (files_.Size(path) > kLargestFile) return {};
  return RtfTextStart(files_.Read(path).bytes, kMostSearched);
}

void ManagedNotes::DoManageAction(ManageAction action, ManageView view, const std::vector<Text>& ids) {
  if (!IsAgreed(action, view, ids.size()) || frame_.IsExiting()) return;
  const std::size_t left = Do(action, view, ids);
  if (left == 0 || frame_.IsExiting()) return;
  const HWND owner = dialog_.IsOpen() ? dialog_.Window() : frame_.Handle();
  TellCount(owner, resources_, IDS_MANAGE_NOT_ALL, left);
}

bool ManagedNotes::IsAgreed(ManageAction action, ManageView view, std::size_t count) {
  UINT question = 0;
  switch (QuestionBefore(action, view, count, options_.keepDeleted, options_.confirmClosure)) {
    case ManageQuestion::kNothing: return true;
    case ManageQuestion::kMany: question = IDS_MANAGE_ASK_MANY; break;
    case ManageQuestion::kClose: question = IDS_MANAGE_ASK_CLOSE; break;
    case ManageQuestion::kForGood: question = IDS_MANAGE_ASK_FOR_GOOD; break;
    case ManageQuestion::kNoRoom: question = IDS_MANAGE_ASK_NO_ROOM; break;
    case ManageQuestion::kEndsRecurrence: question = IDS_MANAGE_ASK_RECURRENCE; break;
  }
  return AskCount(dialog_.Window(), resources_, question, count);
}

std::size_t ManagedNotes::Do(ManageAction action, ManageView view, const std::vector<Text>& ids) {
  switch (action) {
    case ManageAction::kOpen: OpenNotes(ids); return 0;
    case ManageAction::kWake: return Wake(ids);
    case ManageAction::kUnattach: return Unattach(ids);
    case ManageAction::kRestore: return Restore(ids);
    case ManageAction::kDelete: return Delete(view, ids);
    case ManageAction::kUndo: return Undo();
  }
  return 0;
}

void ManagedNotes::OpenNotes(const std::vector<Text>& ids) {
  for (const Text& id : ids) {
    BJotlet* jotlet = desktop_.Find(id);
    if (jotlet == nullptr) continue;
    if (jotlet->StoredRecord().hidden) jotlet->SetHidden(false);
    jotlet->Show();
    jotlet->BringForward();
    if (&id == &ids.back()) jotlet->TakeFocus();
  }
}

void ManagedNotes::OpenStacks(const std::vector<Text>& ids) {
  for (const Text& id : ids) {
    BStackDlg* stack = frame_.Stacks().Find(ParseInt(id));
    if (stack == nullptr) continue;
    stack->Show();
    stack->BringForward();
    if (&id == &ids.back()) SetForegroundWindow(stack->Handle());
  }
}

std::size_t ManagedNotes::Wake(const std::vector<Text>& ids) {
  return static_cast<std::size_t>(
      std::count_if(ids.begin(), ids.end(), [this](const Text& id) { return !frame_.WakeSleeping(id); }));
}

// Nobody is told before all of them are where they belong: whoever hears of it may make the program save or
// end.
std::vector<JotletData> ManagedNotes::OpenOnDesktop(std::vector<JotletData> records, TextView reason,
                                                    void (*change)(JotletData&)) {
  std::vector<Text> opened;
  std::vector<JotletData> left;
  for (JotletData& record : records) {
    JotletData awake = record;
    Awaken(awake);
    if (change != nullptr) change(awake);
    // Two notes of one id would share a content file.
    BJotlet* jotlet = desktop_.Find(record.id) == nullptr ? maker_.OpenLoaded(std::move(awake)) : nullptr;
    if (jotlet == nullptr) {
      left.push_back(std::move(record));
      continue;
    }
    jotlet->Show();
    opened.push_back(jotlet->StoredRecord().id);
  }
  frame_.SetDirty();
  if (opened.size() == 1 && records.size() == 1) desktop_.Find(opened[0])->TakeFocus();
  for (const Text& id : opened) {
    frame_.Log(kLogDetail, u"Created (", reason, u") ", id);
    frame_.NotifyListeners(Text(u"500 created desktop jotlet ").append(reason), id);
  }
  return left;
}

std::size_t ManagedNotes::Restore(const std::vector<Text>& ids) {
  std::vector<JotletData> records = lists_.TakeClosed(ids);
  const std::size_t gone = ids.size() - records.size();
  std::vector<JotletData> left = OpenOnDesktop(std::move(records), u"restored");
  const std::size_t count = left.size();
  lists_.deleted.insert(lists_.deleted.begin(), std::make_move_iterator(left.begin()),
                        std::make_move_iterator(left.end()));
  return gone + count;
}

void ManagedNotes::DeleteClosed(const std::vector<Text>& ids) {
  const std::vector<JotletData> records = lists_.TakeClosed(ids);
  for (const JotletData& record : records) saver_.RemoveContentLater(record);
  frame_.SetDirty();
  for (const JotletData& record : records)
    frame_.NotifyListenersText(u"508 deleted closed jotlet " + record.id);
}

std::size_t ManagedNotes::Unattach(const std::vector<Text>& ids) {
  for (const Text& id : ids) {
    if (BJotlet* jotlet = desktop_.Find(id)) jotlet->SetAttachment({});
  }
  std::vector<JotletData> records = TakeWaiting(ManageView::kAttached, ids);
  std::vector<JotletData> left = OpenOnDesktop(std::move(records), u"unattached", Detach);
  const std::size_t count = left.size();
  lists_.attached.insert(lists_.attached.end(), std::make_move_iterator(left.begin()),
                         std::make_move_iterator(left.end()));
  return count;
}

std::size_t ManagedNotes::Delete(ManageView view, const std::vector<Text>& ids) {
  switch (view) {
    case ManageView::kDesktop: return CloseOpen(ids);
    case ManageView::kClosed: DeleteClosed(ids); return 0;
    case ManageView::kStacks:
      for (const Text& id : ids) frame_.Stacks().Close(ParseInt(id));
      return 0;
    case ManageView::kAttached:
    case ManageView::kSleeping:
    case ManageView::kRecurring: CloseWaiting(view, ids); return 0;
  }
  return 0;
}

std::size_t ManagedNotes::CloseOpen(const std::vector<Text>& ids) {
  Deleted step{ManageView::kDesktop, {}};
  for (const Text& id : ids) {
    if (frame_.CloseJotlet(id, u"user")) step.ids.push_back(id);
  }
  const std::size_t left = static_cast<std::size_t>(
      std::count_if(ids.begin(), ids.end(), [this](const Text& id) { return desktop_.Find(id) != nullptr; }));
  Remember(std::move(step));
  return left;
}

std::vector<JotletData> ManagedNotes::TakeWaiting(ManageView view, const std::vector<Text>& ids) {
  std::vector<JotletData> taken;
  for (const Text& id : ids) {
    if (view != ManageView::kAttached) {
      if (std::optional<JotletData> record = lists_.sleeping.Remove(id)) taken.push_back(std::move(*record));
      continue;
    }
    const auto at = std::find_if(lists_.attached.begin(), lists_.attached.end(),
                                 [&id](const JotletData& record) { return EqualIgnoreCase(record.id, id); });
    if (at == lists_.attached.end()) continue;
    taken.push_back(std::move(*at));
    lists_.attached.erase(at);
  }
  return taken;
}

void ManagedNotes::CloseWaiting(ManageView view, const std::vector<Text>& ids) {
  Deleted step{view, {}};
  std::vector<JotletData> records = TakeWaiting(view, ids);
  for (const JotletData& record : records) step.ids.push_back(record.id);
  Remember(std::move(step));
  frame_.CloseRecords(std::move(records));
}

void ManagedNotes::Remember(Deleted step) {
  if (step.ids.empty()) return;
  deleted_.push_back(std::move(step));
  if (deleted_.size() > kMostUndone) deleted_.erase(deleted_.begin());
}

std::size_t ManagedNotes::Undo() {
  if (deleted_.empty()) return 0;
  const Deleted step = std::move(deleted_.back());
  deleted_.pop_back();
  if (step.view == ManageView::kDesktop) return Restore(step.ids);
  std::vector<JotletData> records = lists_.TakeClosed(step.ids);
  const std::size_t gone = step.ids.size() - records.size();
  for (JotletData& record : records) {
    record.deletedTime = kNotSet;
    if (step.view == ManageView::kAttached) {
      lists_.attached.push_back(std::move(record));
    } else {
      lists_.sleeping.push_back(std::move(record));
    }
  }
  frame_.SetDirty();
  return gone;
}

}  // namespace jotlets
