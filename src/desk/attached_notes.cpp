#include "desk/attached_notes.h"

#include <algorithm>
#include <utility>

namespace jotlets {
namespace {

const WindowFacts* FirstMatch(std::span<const WindowFacts> windows, const Attachment& attachment) {
  AttachMatcher matcher(windows);
  const AttachMatch& match = matcher.Find(attachment);
  return match.target ? &windows[*match.target] : nullptr;
}

}  // namespace

void AttachedNotes::Pass() {
  const NoteLists& lists = desk_.Lists();
  const bool any = std::any_of(lists.desktop.begin(), lists.desktop.end(),
                               [](const auto& record) { return record->IsAttached(); });
  if (busy_ || (lists.attached.empty() && !any)) return;
  busy_ = true;
  Run(RecordTime(clock_.Now().utc));
  busy_ = false;
}

void AttachedNotes::Run(std::int32_t now) {
  const NoteLists& lists = desk_.Lists();
  const std::vector<WindowFacts> windows = watcher_.Look();
  std::vector<AttachedNote> notes;
  // Telling listeners lets everything go on: once notes move, they are looked up by their ids.
  std::vector<Text> ids;
  for (const auto& record : lists.desktop) {
    if (!record->IsAttached()) continue;
    const NoteWindowState state = windows_.StateOf(record->id);
    // A sounding note jiggles about a place of its own.
    notes.push_back(
        {record.get(), state.bounds.TopLeft(), state.moving || state.sounding, state.sounding, state.waits});
    ids.push_back(record->id);
  }
  std::vector<const JotletData*> waiting;
  for (const JotletData& record : lists.attached) waiting.push_back(&record);
  const std::vector<Text> waitingIds = IdsOf(lists.attached);
  AttachMatcher matcher(windows);
  const AttachDecision decision = DecideAttachPass(waiting, notes, matcher, windows_.Screen().all, now);
  const auto isOpen = [&](const Text& id) { return lists.desktop.Find(id) != nullptr; };
  for (const auto& arrival : decision.arrivals) {
    const Text& id = waitingIds[arrival.waiting];
    const JotletData* record = std::as_const(lists.attached).Find(id);
    if (record == nullptr) continue;
    // One whose alarm must wait is not seen for a moment first.
    const bool shown = !arrival.alarmDue || !jotlets::IsTargetBehind(record->attachment, matcher);
    if (desk_.Arrive(id, arrival.position, shown) && arrival.alarmDue && isOpen(id)) windows_.StartAlarm(id);
  }
  for (const auto& move : decision.moves) {
    if (isOpen(ids[move.note])) windows_.PlaceAt(ids[move.note], move.to);
  }
  for (const std::size_t alarm : decision.alarms) {
    if (isOpen(ids[alarm]) && options_.hidden != 1) windows_.EndWaitForWindow(ids[alarm]);
  }
  for (const std::size_t depart : decision.departs) desk_.Depart(ids[depart]);
}

void AttachedNotes::Attach(TextView id, const Attachment& wanted, std::span<const WindowFacts> windows) {
  Attachment attachment = wanted;
  // What must be in front or seen to be matched is found all the same: the user is looking at it.
  Attachment anywhere = wanted;
  anywhere.onlyFocus = anywhere.onlyVisible = false;
  attachment.posType = 0;
  if (const WindowFacts* target = FirstMatch(windows, anywhere)) {
    attachment.posType = 1;
    HoldToTarget(attachment, windows_.StateOf(id).bounds.TopLeft(), target->bounds);
  }
  windows_.Attach(id, attachment);
}

void AttachedNotes::OnMoved(const JotletData& record) {
  Attachment attachment = record.attachment;
  if (!attachment.IsSet() || attachment.posType != 1) return;
  const std::vector<WindowFacts> windows = watcher_.Look();
  const WindowFacts* target = FirstMatch(windows, attachment);
  if (target == nullptr) return;
  HoldToTarget(attachment, windows_.StateOf(record.id).bounds.TopLeft(), target->bounds);
  windows_.Attach(record.id, attachment);
}

bool AttachedNotes::IsTargetBehind(const JotletData& record) {
  if (!record.IsAttached()) return false;
  const std::vector<WindowFacts> windows = watcher_.Look();
  AttachMatcher matcher(windows);
  return jotlets::IsTargetBehind(record.attachment, matcher);
}

}  // namespace jotlets
