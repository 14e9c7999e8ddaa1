// What time and other programs' windows do with notes, and the stacks.
#include <algorithm>
#include <utility>

#include "desk/note_desk.h"
#include "note/frame_layout.h"
#include "note/placement.h"
#include "schedule/recurrence.h"

namespace jotlets {

bool NoteDesk::Sleep(TextView id, std::int64_t wakeTime, const WakeFlags& flags) {
  const JotletData* record = lists_.desktop.Find(id);
  if (record == nullptr) return false;
  const Text own = record->id;
  if (!FromDesktop(own, NoteList::kSleeping,
                   [&](JotletData& asleep) { PutToSleep(asleep, wakeTime, flags); }))
    return false;
  context_.events.Send({EventKind::kDeleted, Reason::kSlept, {own}, {}});
  return true;
}

bool NoteDesk::Recur(TextView id, const WakeRule& rule, std::int64_t start, std::int64_t end,
                     const WakeFlags& flags) {
  const std::int64_t now = context_.clock.Now().utc;
  const std::int64_t first = FaultOf(rule).empty() ? NextWakeTime(rule, start, now, context_.clock) : 0;
  const JotletData* record = lists_.desktop.Find(id);
  if (first <= 0 || record == nullptr) return false;
  const Text own = record->id;
  if (!FromDesktop(own, NoteList::kSleeping,
                   [&](JotletData& source) { MakeRecurring(source, rule, first, end, flags); }))
    return false;
  context_.events.Send({EventKind::kDeleted, Reason::kSlept, {own}, {}});
  return true;
}

bool NoteDesk::Wake(TextView id, const WakeFlags& flags) {
  const JotletData* record = std::as_const(lists_.sleeping).Find(id);
  if (record == nullptr) return false;
  const Text own = record->id;
  if (!context_.files.Exists(folder_ + ContentPath(*record)))
    context_.log.Write(kLogLifecycle, u"The content of jotlet ", own, u" is gone; it wakes empty");
  if (!ToDesktop(NoteList::kSleeping, own,
                 [](JotletData& awake) { awake.sleep.asleep = awake.sleep.recurring = false; }))
    return false;
  FinishWaking(own, Reason::kWaking, flags);
  return true;
}

void NoteDesk::FinishWaking(const Text& id, Reason reason, const WakeFlags& flags) {
  if (flags.onTop) context_.windows.SetOnTop(id);
  Show(id, Showing::kQuietly);
  TellCreated(id, reason);
  // A listener may have taken it away.
  JotletData* record = lists_.desktop.Find(id);
  if (!flags.alarm || record == nullptr) return;
  // Out of sight it sounds when it is shown, if that is only after the next start.
  if (record->hidden || context_.options.hidden == 1) record->alarm = Now();
  context_.windows.StartAlarm(id);
}

bool NoteDesk::ChangeSleeping(TextView id, const std::function<void(JotletData&)>& change) {
  if (std::as_const(lists_.sleeping).Find(id) == nullptr) return false;
  change(*lists_.sleeping.FindToChange(id));
  Changed();
  return true;
}

void NoteDesk::RemoveFinished(TextView id) {
  const std::optional<JotletData> finished = lists_.sleeping.Remove(id);
  if (!finished) return;
  saver_.RemoveContentLater(*finished);
  Changed();
}

bool NoteDesk::Arrive(TextView id, std::optional<Point> position, bool shown) {
  const JotletData* waiting = std::as_const(lists_.attached).Find(id);
  if (waiting == nullptr) return false;
  const Text own = waiting->id;
  context_.log.Write(kLogDetail, u"About to move attached ", OneLine(waiting->title), u" to the Desktop");
  const auto place = [&](JotletData& record) {
    if (!position) return;
    const Point safe = RescuedPosition(*position, context_.windows.Screen().all);
    record.x = safe.x;
    record.y = safe.y;
    if (safe == *position) return;
    context_.log.Write(kLogLifecycle, u"Saved jotlet ", own, u" from appearing off screen (moved from ",
                       position->x, u",", position->y, u" to ", safe.x, u",", safe.y, u")");
  };
  if (!ToDesktop(NoteList::kAttached, own, place)) return false;
  if (shown) Show(own, Showing::kQuietly);
  TellCreated(own, Reason::kAttached);
  return true;
}

bool NoteDesk::Depart(TextView id) {
  const JotletData* record = lists_.desktop.Find(id);
  if (record == nullptr) return false;
  const Text own = record->id;
  context_.log.Write(kLogDetail, u"About to move Desktop ",
                     OneLine(ShownTitle(record->title, context_.windows.ContentOf(own).TitleWords())),
                     u" to the attached list");
  if (!FromDesktop(own, NoteList::kAttached, [](JotletData&) {})) return false;
  context_.events.Send({EventKind::kDeleted, Reason::kUnattached, {own}, {}});
  return true;
}

std::size_t NoteDesk::Unattach(const std::vector<Text>& ids) {
  std::vector<Text> waiting;
  for (const Text& id : ids) {
    if (lists_.desktop.Find(id) != nullptr) context_.windows.Attach(id, {});
    if (std::as_const(lists_.attached).Find(id) != nullptr) waiting.push_back(id);
  }
  return ManyToDesktop(NoteList::kAttached, waiting, Reason::kUnattached, [](JotletData& record) {
    record.attachment = {};
    record.hidden = false;
  });
}

void NoteDesk::AddStack(const StackRecord& stack) {
  LeaveStack(stack.number);
  lists_.stacks.push_back(stack);
  lists_.stacksChanged = true;
  Changed();
}

void NoteDesk::ChangeStack(const StackRecord& stack) {
  const auto at = std::find_if(lists_.stacks.begin(), lists_.stacks.end(),
                               [&](const StackRecord& known) { return known.number == stack.number; });
  if (at == lists_.stacks.end()) return;
  *at = stack;
  lists_.stacksChanged = true;
  Changed();
}

void NoteDesk::RemoveStack(std::int32_t number) {
  LeaveStack(number);
  std::erase_if(lists_.stacks, [number](const StackRecord& stack) { return stack.number == number; });
  lists_.stacksChanged = true;
  Changed();
}

void NoteDesk::LeaveStack(std::int32_t number) {
  // Hidden in a stack that is gone, a note would come back where nobody finds it.
  for (RecordList* list : {&lists_.attached, &lists_.sleeping, &lists_.closed}) {
    for (const JotletData& record : *list) {
      if (record.stack != number) continue;
      JotletData& leaving = *list->FindToChange(record.id);
      leaving.stack = kNone;
      leaving.hidden = false;
    }
  }
}

}  // namespace jotlets
