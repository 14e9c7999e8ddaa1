#include "app/win/commands/managed_notes.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "base/win/shown_time.h"
#include "data/rtf_text.h"
#include "data/text_export.h"
#include "desk/notes_export.h"
#include "desk/undo_import.h"
#include "res/resource.h"
#include "ui/job_dialog.h"
#include "ui/system_choosers.h"
#include "ui/text_dialog.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

// So many go together: few enough that windows stay alive, many enough to share what is written.
constexpr std::size_t kTogether = 50;

void MoveBack(OpenNotes& notes, const UndoStep& step) {
  for (std::size_t at = 0; at < step.ids.size() && at < step.places.size(); ++at) {
    BJotlet* jotlet = notes.Find(step.ids[at]);
    if (jotlet == nullptr) continue;
    jotlet->FinishAnimation();
    jotlet->StartAnimation(jotlet->Bounds().TopLeft(), step.places[at], AnimationKind::kMove);
  }
}

void ShowNotes(OpenNotes& notes, const std::vector<Text>& ids) {
  for (const Text& id : ids) {
    BJotlet* jotlet = notes.Find(id);
    if (jotlet == nullptr) continue;
    if (jotlet->StoredRecord().hidden) jotlet->SetHidden(false);
    jotlet->Show();
    jotlet->BringForward();
    if (&id == &ids.back()) jotlet->FocusNow();
  }
}

void ShowStacks(OpenStacks& stacks, const std::vector<Text>& ids) {
  for (const Text& id : ids) {
    BStackDlg* stack = stacks.Find(ParseInt(id));
    if (stack == nullptr) continue;
    stack->Show();
    stack->BringForward();
    if (&id == &ids.back()) SetForegroundWindow(stack->Handle());
  }
}

// The view that is a note's own.
ManageView HomeOf(const NoteLists& lists, const Text& id) {
  const std::optional<NoteList> list = lists.WhereIs(id);
  if (!list) return ManageView::kStored;
  switch (*list) {
    case NoteList::kDesktop: return ManageView::kDesktop;
    case NoteList::kAttached: return ManageView::kAttached;
    case NoteList::kClosed: return ManageView::kClosed;
    case NoteList::kSleeping: break;
  }
  return lists.sleeping.Find(id)->sleep.recurring ? ManageView::kRecurring : ManageView::kSleeping;
}

}  // namespace

// Each note as in the view that is its own, with the questions of that. How many are left where there is
// nothing that opens them.
std::size_t ManagedNotes::DoAll(ManageAction action, const std::vector<Text>& ids) {
  std::map<ManageView, std::vector<Text>> byHome;
  for (const Text& id : ids) byHome[HomeOf(desk_.Lists(), id)].push_back(id);
  std::size_t left = 0;
  for (const auto& [home, own] : byHome) {
    const std::optional<ManageAction> does = action == ManageAction::kOpen ? DefaultAction(home) : action;
    if (!does) {
      left += own.size();
    } else if (IsAgreed(*does, home, own.size()) && !state_.exiting) {
      left += Do(*does, home, own);
    }
    if (state_.exiting) break;
  }
  return left;
}

void ManagedNotes::ShowStored(std::int64_t key) {
  dialog_.OpenWindow(false);
  dialog_.ShowNote({ManageView::kStored, {}}, NameOfStored(key));
}

std::optional<Text> ManagedNotes::RenameCategory(const Text& name) {
  const auto asked = BTextDlg(resources_, IDS_CATEGORY_NAME, IDS_LABEL_NAME, name).Ask(dialog_.Window());
  Text category(asked ? TrimBlanks(*asked) : TextView());
  if (category.empty() || category == name || state_.exiting) return std::nullopt;
  if (store_.RenameCategory(name, category)) return category;
  Tell(dialog_.Window(), resources_, IDS_NOT_RENAMED, category);
  return std::nullopt;
}

void ManagedNotes::SetCategoryLook(const Text& name, const CategoryLook& look) {
  if (!store_.SetCategoryLook(name, look)) Tell(dialog_.Window(), resources_, IDS_NOT_MARKED, name);
}

Text ManagedNotes::ManagedTime(std::int32_t utc) {
  return ShownTime(utc == 0 ? clock_.Now().local : clock_.ToLocal(utc));
}

void ManagedNotes::OnManageSettings() { saving_.SetOptionsDirty(); }

Text ManagedNotes::TextOf(const ManageRow& row) {
  return row.type == ManageRow::Type::kText ? contents_.WordsOf(row.id, kMaximumSearchedText) : Text();
}

void ManagedNotes::DoManageAction(ManageAction action, ManageView view, const std::vector<Text>& names) {
  const bool ofNone = action == ManageAction::kUndo || action == ManageAction::kImport;
  if (const auto ids = IdsOf(ofNone ? std::vector<Text>() : names)) ActOn(action, view, *ids);
}

void ManagedNotes::ActOn(ManageAction action, ManageView view, const std::vector<Text>& ids) {
  const bool each =
      view == ManageView::kAll && (action == ManageAction::kOpen || action == ManageAction::kDelete);
  if (!each && (!IsAgreed(action, view, ids.size()) || state_.exiting)) return;
  TellLeft(each ? DoAll(action, ids) : Do(action, view, ids));
}

void ManagedNotes::TellLeft(std::size_t left) {
  if (left > 0 && !state_.exiting) TellCount(jobs_.Asker(), resources_, IDS_MANAGE_NOT_ALL, left);
}

// Nothing when the user has stopped it.
std::optional<std::vector<Text>> ManagedNotes::IdsOf(const std::vector<Text>& names) {
  std::vector<Text> ids;
  jobs_.ForEach(names, kTogether, [&](const std::vector<Text>& part) {
    const std::vector<Text> found = stored_.IdsOf(part);
    ids.insert(ids.end(), found.begin(), found.end());
    return std::size_t{0};
  });
  return ids.size() == names.size() ? std::optional(std::move(ids)) : std::nullopt;
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
    case ManageAction::kOpen:
      if (view == ManageView::kStacks) {
        ShowStacks(stacks_, ids);
      } else {
        ShowNotes(notes_, ids);
      }
      return 0;
    case ManageAction::kWake:
      return jobs_.ForEach(ids, 1, [this](const std::vector<Text>& part) {
        return static_cast<std::size_t>(!sleeping_.WakeSleeping(part.front()));
      });
    case ManageAction::kUnattach:
      return jobs_.ForEach(ids, 1, [this](const std::vector<Text>& part) { return desk_.Unattach(part); });
    case ManageAction::kSaveCopies: return SaveCopies(ids);
    case ManageAction::kRestore: return view == ManageView::kStored ? moves_.Fetch(ids) : Restore(ids);
    case ManageAction::kStore: {
      const std::optional<Text> category = moves_.AskCategory(dialog_.Window());
      return category && !state_.exiting ? moves_.Store(view, ids, *category) : 0;
    }
    case ManageAction::kImport: import_(dialog_.Window(), {}); return 0;
    case ManageAction::kDelete: return Delete(view, ids);
    case ManageAction::kUndo: {
      const auto step = steps_.RemoveLast();
      const std::size_t failed = step ? Undo(*step) : 0;
      // A note that comes back would have the keyboard.
      dialog_.Activate();
      return failed;
    }
  }
  return 0;
}

std::size_t ManagedNotes::Delete(ManageView view, const std::vector<Text>& ids) {
  switch (view) {
    case ManageView::kDesktop: return CloseOpen(ids);
    case ManageView::kClosed:
      return jobs_.ForEach(ids, kTogether, [this](const std::vector<Text>& part) {
        desk_.DeleteClosed(part);
        return std::size_t{0};
      });
    case ManageView::kStored: return moves_.Delete(ids);
    case ManageView::kStacks:
      for (const Text& id : ids) stacks_.Close(ParseInt(id));
      return 0;
    case ManageView::kAttached:
    case ManageView::kSleeping:
    case ManageView::kRecurring: CloseWaiting(view, ids); return 0;
    case ManageView::kAll: break;
  }
  return 0;
}

std::size_t ManagedNotes::Restore(const std::vector<Text>& ids) {
  // Each opens a window.
  constexpr std::size_t kWindows = 3;
  return jobs_.ForEach(ids, kWindows, [this](const std::vector<Text>& part) { return desk_.Restore(part); });
}

std::size_t ManagedNotes::CloseOpen(const std::vector<Text>& ids) {
  std::vector<Text> closed;
  const std::size_t left = jobs_.ForEach(ids, 1, [&](const std::vector<Text>& part) {
    if (desk_.Close(part.front(), Reason::kUser)) closed.push_back(part.front());
    return static_cast<std::size_t>(notes_.Find(part.front()) != nullptr);
  });
  steps_.Add(UndoKind::kClosed, std::move(closed));
  return left;
}

void ManagedNotes::CloseWaiting(ManageView view, const std::vector<Text>& ids) {
  std::vector<Text> closed;
  jobs_.ForEach(ids, kTogether, [&](const std::vector<Text>& part) {
    const std::vector<Text> gone = desk_.CloseWaiting(part);
    closed.insert(closed.end(), gone.begin(), gone.end());
    return std::size_t{0};
  });
  steps_.Add(view == ManageView::kAttached ? UndoKind::kClosedAttached : UndoKind::kClosedSleeping,
             std::move(closed));
}

std::size_t ManagedNotes::SaveCopies(const std::vector<Text>& ids) {
  std::vector<JotletData> notes;
  for (const Text& id : ids)
    if (std::optional<JotletData> record = desk_.RecordOf(id)) notes.push_back(std::move(*record));
  if (notes.empty()) return ids.size();
  const bool pictures = std::ranges::all_of(notes, &JotletData::IsImage);
  // The first tells the kind, which a picture among texts could not.
  std::stable_partition(notes.begin(), notes.end(),
                        [&](const JotletData& note) { return note.IsImage() == pictures; });
  const Text kind(pictures ? u"png" : u"rtf");
  const HWND owner = dialog_.Window();
  const Text path = ChooseNewFile(owner, resources_.String(pictures ? IDS_FILTER_PICTURE : IDS_FILTER_COPIES),
                                  kind, FileNameOfTitle(contents_.TitleOf(notes.front())));
  if (path.empty()) return 0;
  std::vector<Text> chosen;
  for (const JotletData& note : notes) chosen.push_back(note.id);
  NotesExport job({files_, desk_.Lists(), store_, contents_}, std::move(chosen), path);
  const Job::State state = RunJob(owner, resources_, IDS_SAVING_COPIES, job, true);
  if (state == Job::State::kFailed && job.Faults().empty())
    Tell(owner, resources_, IDS_NOT_WRITTEN, job.Reason());
  if (job.Faults().empty()) return job.Left();
  Text told = ReplaceAll(resources_.String(IDS_COPIES_LEFT), u"%n",
                         IntText(static_cast<std::int64_t>(job.Faults().size())));
  constexpr std::size_t kTold = 10;
  for (std::size_t i = 0; i < std::min(job.Faults().size(), kTold); ++i)
    told += u"\n" + job.Faults()[i].title + u": " + job.Faults()[i].reason;
  Report(owner, resources_, told, true);
  return 0;
}

Text ManagedNotes::TitleOf(const Text& id) {
  const std::optional<JotletData> record = desk_.RecordOf(id);
  return record ? contents_.TitleOf(*record) : Text();
}

void ManagedNotes::UndoStepOf(int number) {
  if (const auto step = steps_.Remove(number)) Undo(*step);
}

std::size_t ManagedNotes::Undo(const UndoStep& step) {
  undone_(step.number);
  // Stopped half way, what is left could not be undone any more.
  const ManageJobs::Whole whole(jobs_);
  const auto failures = [&](auto undo) {
    return jobs_.ForEach(step.ids, 1, [&](const std::vector<Text>& part) {
      return static_cast<std::size_t>(!undo(part.front()));
    });
  };
  const auto bringBack = [&](NoteList list) {
    return jobs_.ForEach(step.ids, kTogether,
                         [&](const std::vector<Text>& part) { return desk_.BringBack(part, list); });
  };
  switch (step.kind) {
    case UndoKind::kClosed: return Restore(step.ids);
    case UndoKind::kDeleted: return failures([this](const Text& id) { return desk_.Undelete(id); });
    case UndoKind::kClosedSleeping: return bringBack(NoteList::kSleeping);
    case UndoKind::kClosedAttached: return bringBack(NoteList::kAttached);
    case UndoKind::kAsleep: {
      const std::size_t left = failures([this](const Text& id) { return desk_.Wake(id, {}); });
      ShowNotes(notes_, step.ids);
      return left;
    }
    case UndoKind::kStored: return moves_.Fetch(step.ids);
    case UndoKind::kRecategorized: return moves_.UndoRecategorized(step);
    case UndoKind::kHidden: ShowNotes(notes_, step.ids); return 0;
    case UndoKind::kArranged: MoveBack(notes_, step); return 0;
    case UndoKind::kImported: {
      UndoImport job(desk_, store_, step.keys);
      RunJob(dialog_.Window(), resources_, IDS_IMPORT_UNDONE, job, true);
      return job.Left();
    }
  }
  return 0;
}

}  // namespace jotlets
