#include "schedule/waking.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace jotlets {
namespace {

constexpr std::int64_t kNotAtAll = std::numeric_limits<std::int64_t>::max();
// A system that has no window to give has none a second later either.
constexpr std::int64_t kHold = 60;

bool HasEnded(const JotletData& record, std::int64_t now) {
  return record.sleep.lastWake != kNone && record.sleep.lastWake < now;
}

std::int64_t WakeTimeOf(const JotletData& record) {
  // What ends before it is due will never wake, however late it is looked at.
  const bool never = record.sleep.recurring
                         ? record.sleep.nextWake == kNeverAgain || !FaultOf(RuleOf(record)).empty()
                         : HasEnded(record, record.sleep.nextWake);
  return never ? kNotAtAll : record.sleep.nextWake;
}

bool IsAlarmDue(const JotletData& record, std::int64_t now) {
  return record.alarm != kNone && record.alarm < now;
}

template <typename Due>
std::vector<Text> IdsWhere(const RecordList& records, Due due) {
  std::vector<Text> ids;
  for (const JotletData& record : records) {
    if (due(record)) ids.push_back(record.id);
  }
  return ids;
}

}  // namespace

bool IsUntouchedCopy(const JotletData& note, const JotletData& source) {
  // Waking may have put the copy on top.
  const bool onTop = source.onTop || FlagsOf(source).onTop;
  return !note.IsAttached() && note.x == source.x && note.y == source.y && note.onTop == onTop &&
         note.colour == source.colour && note.rolled == source.rolled && note.width == source.width &&
         note.height == source.height && note.title == source.title && note.user1 == source.user1 &&
         note.user2 == source.user2 && note.user3 == source.user3;
}

void Waking::FindEarliest() {
  if (seen_ == sleeping_.Version()) return;
  seen_ = sleeping_.Version();
  earliestWake_ = earliestAlarm_ = kNotAtAll;
  for (const JotletData& record : sleeping_) {
    if (record.sleep.recurring) TellFault(record);
    earliestWake_ = std::min(earliestWake_, WakeTimeOf(record));
    if (record.alarm != kNone) earliestAlarm_ = std::min<std::int64_t>(earliestAlarm_, record.alarm);
  }
}

// A rule from a file or a command may be none that can be followed: the note is kept as it is.
void Waking::TellFault(const JotletData& record) {
  const TextView fault = FaultOf(RuleOf(record));
  if (fault.empty() || !told_.insert(FoldCase(record.id)).second) return;
  log_.Write(kLogLifecycle, u"The recurrence of jotlet ", record.id, u" cannot be followed (", fault,
             u"); it stays asleep");
}

void Waking::WakeSleeping() {
  if (!enabled_) return;
  const std::int64_t now = clock_.Now().utc;
  // Set back, the clock must not hold the notes up for longer than it was meant to.
  if (now < holdUntil_ && now >= holdUntil_ - kHold) return;
  FindEarliest();
  if (earliestWake_ > now) return;
  for (const Text& id : IdsWhere(sleeping_, [now](const auto& r) { return WakeTimeOf(r) <= now; })) {
    if (WakeDue(id, now) != Outcome::kNoWindow) continue;
    holdUntil_ = now + kHold;
    break;
  }
  if (std::exchange(soundDue_, false)) host_.PlayWakeSound();
}

bool Waking::WakeSleeping(TextView id) {
  if (!enabled_ || sleeping_.Find(id) == nullptr) return false;
  const bool woken = WakeForGood(Text(id), clock_.Now().utc) == Outcome::kWoken;
  if (std::exchange(soundDue_, false)) host_.PlayWakeSound();
  return woken;
}

// Meanwhile a listener may have taken it away, or changed it.
Waking::Outcome Waking::WakeDue(const Text& id, std::int64_t now) {
  const JotletData* record = sleeping_.Find(id);
  if (record == nullptr || WakeTimeOf(*record) > now) return Outcome::kAsleep;
  return record->sleep.recurring ? WakeRecurring(id, now) : WakeForGood(id, now);
}

Waking::Outcome Waking::WakeForGood(const Text& id, std::int64_t now) {
  const JotletData* asleep = sleeping_.Find(id);
  if (asleep == nullptr || HasEnded(*asleep, now)) return Outcome::kAsleep;
  LogWaking(*asleep, now);
  const WakeFlags flags = FlagsOf(*asleep);
  if (!host_.Wake(id, flags)) return Outcome::kNoWindow;
  soundDue_ = soundDue_ || flags.sound;
  return Outcome::kWoken;
}

Waking::Outcome Waking::WakeRecurring(const Text& id, std::int64_t now) {
  const JotletData source = *sleeping_.Find(id);
  const bool suppressed =
      (options_.preventDuplicates == 1 && host_.HasCopyOf(source)) || HasEnded(source, now);
  if (!suppressed) {
    LogWaking(source, now);
    const WakeFlags flags = FlagsOf(source);
    if (!host_.WakeCopy(source, flags)) return Outcome::kNoWindow;
    soundDue_ = soundDue_ || flags.sound;
  }
  Advance(id, now);
  return suppressed ? Outcome::kAsleep : Outcome::kWoken;
}

void Waking::Advance(const Text& id, std::int64_t now) {
  const JotletData* source = sleeping_.Find(id);
  if (source == nullptr || !source->sleep.recurring) return;
  if (HasEnded(*source, now)) return host_.RemoveFinished(id);
  host_.SetNextWake(id, TimeAfter(RuleOf(*source), source->sleep.nextWake, now, clock_));
}

void Waking::LogWaking(const JotletData& record, std::int64_t now) {
  if (!log_.Writes(kLogDetail)) return;
  log_.Write(kLogDetail, u"Waking jotlet '", record.title, u"'. Jotlet next wake time: ",
             record.sleep.nextWake, u" (", host_.ShownTime(record.sleep.nextWake), u"), time now: ", now);
}

void Waking::CheckAlarms() {
  if (!enabled_) return;
  const std::int64_t now = clock_.Now().utc;
  // Once each: a listener may put a note back to sleep as often as it wakes.
  std::set<Text> tried;
  for (;;) {
    host_.StartDueAlarms(now);
    FindEarliest();
    if (earliestAlarm_ >= now) return;
    bool woken = false;
    for (const Text& id : IdsWhere(sleeping_, [now](const auto& r) { return IsAlarmDue(r, now); }))
      woken = (tried.insert(id).second && WakeSleeping(id)) || woken;
    // Those that cannot be woken are left for the next second.
    if (!woken) return;
    host_.StopSounds();
  }
}

}  // namespace jotlets
