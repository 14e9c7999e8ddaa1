#include "desk/win/attachments.h"

#include <algorithm>
#include <utility>

#include "app/win/main_frame.h"
#include "note/placement.h"
#include "ui/foreground_keeper.h"

namespace jotlets {
namespace {

const WindowFacts* FirstMatch(std::span<const WindowFacts> windows, const Attachment& attachment) {
  AttachMatcher matcher(windows);
  const AttachMatch& match = matcher.Find(attachment);
  return match.target ? &windows[*match.target] : nullptr;
}

}  // namespace

std::vector<WindowFacts> Attachments::Look() {
  std::vector<WindowFacts> facts;
  for (ForeignWindow& window : ListForeignWindows(front_.Now())) facts.push_back(std::move(window.facts));
  return facts;
}

void Attachments::Pass() {
  const auto& open = frame_.Desktop().All();
  const bool any = std::any_of(open.begin(), open.end(),
                               [](const auto& jotlet) { return jotlet->StoredRecord().IsAttached(); });
  if (busy_ || (lists_.attached.empty() && !any)) return;
  busy_ = true;
  {
    const ForegroundKeeper keeper;
    Run(RecordTime(frame_.Now().utc));
  }
  busy_ = false;
}

void Attachments::Run(std::int32_t now) {
  const std::vector<WindowFacts> windows = Look();
  std::vector<AttachedNote> notes;
  std::vector<Text> ids;
  for (const auto& jotlet : frame_.Desktop().All()) {
    const JotletData& record = jotlet->StoredRecord();
    if (!record.IsAttached()) continue;
    // A sounding note jiggles about a place of its own.
    notes.push_back({&record, jotlet->Bounds().TopLeft(), jotlet->IsMoving() || jotlet->IsSounding(),
                     jotlet->IsSounding(), jotlet->WaitsForWindow()});
    ids.push_back(record.id);
  }
  AttachMatcher matcher(windows);
  std::vector<const JotletData*> waiting;
  for (const JotletData& record : lists_.attached) waiting.push_back(&record);
  const AttachDecision decision =
      DecideAttachPass(waiting, notes, matcher, frame_.Desktop().Screens().virtualScreen, now);
  // Telling listeners lets everything go on: from here on notes are looked up by their ids.
  std::vector<Text> arrivals;
  for (const auto& arrival : decision.arrivals) arrivals.push_back(waiting[arrival.waiting]->id);
  for (std::size_t each = 0; each < arrivals.size(); ++each)
    Bring(arrivals[each], decision.arrivals[each].position, decision.arrivals[each].alarmDue);
  for (const auto& move : decision.moves) {
    if (BJotlet* jotlet = frame_.FindJotlet(ids[move.note])) jotlet->PlaceAt(move.to);
  }
  for (const std::size_t alarm : decision.alarms) {
    BJotlet* jotlet = frame_.FindJotlet(ids[alarm]);
    if (jotlet != nullptr && frame_.CurrentOptions().hidden != 1) jotlet->EndWaitForWindow();
  }
  for (const std::size_t depart : decision.departs) PutAway(ids[depart]);
}

void Attachments::Bring(const Text& id, std::optional<Point> position, bool alarmDue) {
  const auto at = std::find_if(lists_.attached.begin(), lists_.attached.end(),
                               [&id](const JotletData& record) { return record.id == id; });
  if (at == lists_.attached.end()) return;
  frame_.Log(kLogDetail, u"About to move attached ", OneLine(at->title), u" to the Desktop");
  JotletData record = *at;
  if (position) PutOnScreen(record, *position);
  // Off the list first: a note must not be there and on the desktop when a listener looks.
  JotletData waiting = std::exchange(*at, {});
  lists_.attached.erase(at);
  // One whose alarm must wait is not seen for a moment first.
  const bool shown = !alarmDue || !IsTargetBehind(record);
  if (!frame_.OpenAttached(std::move(record), shown)) {
    lists_.attached.push_back(std::move(waiting));
  } else if (BJotlet* jotlet = alarmDue ? frame_.FindJotlet(id) : nullptr) {
    jotlet->StartAlarm();
  }
}

void Attachments::PutOnScreen(JotletData& record, Point position) {
  const Point safe = RescuedPosition(position, frame_.Desktop().Screens().virtualScreen);
  record.x = safe.x;
  record.y = safe.y;
  if (safe != position)
    frame_.Log(kLogLifecycle, u"Saved jotlet ", record.id, u" from appearing off screen (moved from ",
               position.x, u",", position.y, u" to ", safe.x, u",", safe.y, u")");
}

void Attachments::PutAway(const Text& id) {
  BJotlet* jotlet = frame_.FindJotlet(id);
  if (jotlet == nullptr) return;
  frame_.Log(kLogDetail, u"About to move Desktop ", OneLine(jotlet->TitleShown()), u" to the attached list");
  std::optional<JotletData> record = frame_.TakeOffDesktop(id);
  if (!record) return;
  lists_.attached.push_back(std::move(*record));
  frame_.SetDirty();
  frame_.NotifyListeners(u"502 deleted desktop jotlet unattached", id);
}

void Attachments::Attach(BJotlet& jotlet, const AttachChoice& choice) {
  Attachment wanted = choice.attachment;
  // The window that the user pointed at goes before others that match, unless he changed the patterns so that
  // it does not.
  std::vector<WindowFacts> facts;
  for (ForeignWindow& window : ListForeignWindows(front_.Now())) {
    const bool chosen = choice.window != nullptr && window.window == choice.window;
    facts.insert(chosen ? facts.begin() : facts.end(), std::move(window.facts));
  }
  // What must be in front or seen to be matched is found all the same: the user is looking at it.
  Attachment anywhere = wanted;
  anywhere.onlyFocus = anywhere.onlyVisible = false;
  if (const WindowFacts* target = FirstMatch(facts, anywhere)) {
    wanted.posType = 1;
    HoldToTarget(wanted, jotlet.Bounds().TopLeft(), target->bounds);
  }
  jotlet.SetAttachment(wanted);
}

void Attachments::OnMoved(BJotlet& jotlet) {
  Attachment attachment = jotlet.StoredRecord().attachment;
  if (!attachment.IsSet() || attachment.posType != 1) return;
  const std::vector<WindowFacts> windows = Look();
  const WindowFacts* target = FirstMatch(windows, attachment);
  if (target == nullptr) return;
  HoldToTarget(attachment, jotlet.Bounds().TopLeft(), target->bounds);
  jotlet.SetAttachment(attachment);
}

bool Attachments::IsTargetBehind(const JotletData& record) {
  if (!record.IsAttached()) return false;
  const std::vector<WindowFacts> windows = Look();
  AttachMatcher matcher(windows);
  return jotlets::IsTargetBehind(record.attachment, matcher);
}

}  // namespace jotlets
