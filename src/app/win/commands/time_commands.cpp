#include "app/win/commands/time_commands.h"

#include <algorithm>

#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "note/alarm.h"
#include "res/resource.h"
#include "schedule/win/alarm_sound.h"
#include "schedule/win/recurrence_dialog.h"
#include "ui/drawn_menu.h"
#include "ui/popup_menu.h"
#include "ui/user_messages.h"

namespace jotlets {

std::vector<Text> TimeCommands::GroupOf(BJotlet& jotlet) {
  std::vector<Text> ids;
  for (const BJotlet* other : notes_.GroupOf(jotlet)) ids.push_back(other->StoredRecord().id);
  return ids;
}

void TimeCommands::Remember(const SleepChoice& choice) {
  const std::array<std::int32_t, 2> values = {choice.number, choice.unit};
  if (choice.clear || options_.sleepValues == values) return;
  options_.sleepValues = values;
  saving_.SetOptionsDirty();
}

void TimeCommands::Sleep(BJotlet& jotlet) {
  const std::vector<Text> ids = GroupOf(jotlet);
  const auto choice = BSleepDlg(resources_, BSleepDlg::Form::kSleep, options_, clock_).Ask(jotlet.Handle());
  if (!choice || state_.exiting) return;
  Remember(*choice);
  const std::int64_t now = Now();
  const std::int64_t wakeTime = choice->relative ? now + choice->seconds : choice->seconds;
  if (!choice->relative && wakeTime <= now) return Tell(window_.Handle(), resources_, IDS_SLEEP_PAST, {});
  SleepAll(ids, wakeTime, choice->flags);
}

void TimeCommands::SleepAll(const std::vector<Text>& ids, std::int64_t wakeTime, const WakeFlags& flags) {
  bool all = true;
  Rect place;
  std::vector<Text> asleep;
  for (const Text& id : ids) {
    const BJotlet* note = notes_.Find(id);
    if (note == nullptr) continue;
    if (asleep.empty()) place = note->SettledBounds();
    const bool sleeps = desk_.Sleep(id, wakeTime, flags);
    if (sleeps) asleep.push_back(id);
    all = (sleeps || notes_.Find(id) == nullptr) && all;
  }
  OfferAsleep(std::move(asleep), place);
  if (!all) Tell(window_.Handle(), resources_, IDS_SAVE_FAILED, desk_.Folder());
}

// With the time at which the first comes back.
void TimeCommands::OfferAsleep(std::vector<Text> ids, const Rect& place) {
  const JotletData* first = ids.empty() ? nullptr : desk_.Lists().sleeping.Find(ids.front());
  Text words;
  if (first != nullptr)
    words = ReplaceAll(resources_.String(IDS_UNDO_ASLEEP_UNTIL), u"%s",
                       ShownNear(clock_, first->sleep.nextWake, ShownTime));
  undo_.Offer(UndoKind::kAsleep, std::move(ids), place, words);
}

std::optional<std::int64_t> TimeCommands::PresetTime(Preset preset) const {
  return TimeOf(preset, Now(), {options_.eveningTime, options_.morningTime}, clock_);
}

std::optional<Text> TimeCommands::ShownPreset(Preset preset) const {
  const auto time = PresetTime(preset);
  if (!time) return std::nullopt;
  return ShownSoon(clock_.ToLocal(*time), clock_.Now().local);
}

void TimeCommands::SleepUntil(BJotlet& jotlet, Preset preset) {
  const auto time = PresetTime(preset);
  if (time) SleepAll(GroupOf(jotlet), *time, {options_.alarm.number == 1, true, options_.aotDefault == 1});
}

void TimeCommands::Recur(BJotlet& jotlet) {
  const std::vector<Text> ids = GroupOf(jotlet);
  const auto chosen =
      BRecurranceDlg(resources_, jotlet.StoredRecord(), options_, clock_).Ask(jotlet.Handle());
  if (!chosen || state_.exiting) return;
  bool all = true;
  Rect place;
  std::vector<Text> asleep;
  for (const Text& id : ids) {
    const BJotlet* note = notes_.Find(id);
    if (note == nullptr) continue;
    if (asleep.empty()) place = note->SettledBounds();
    const bool recurs = desk_.Recur(id, chosen->rule, chosen->start, chosen->end, chosen->flags);
    if (recurs) asleep.push_back(id);
    all = (recurs || notes_.Find(id) == nullptr) && all;
  }
  OfferAsleep(std::move(asleep), place);
  if (!all) Tell(window_.Handle(), resources_, IDS_SAVE_FAILED, desk_.Folder());
}

void TimeCommands::Alarm(BJotlet& jotlet) {
  const std::vector<Text> ids = GroupOf(jotlet);
  const bool isSet = std::ranges::any_of(ids, [this](const Text& id) {
    const BJotlet* note = notes_.Find(id);
    return note != nullptr && note->StoredRecord().alarm > 0;
  });
  const auto choice =
      BSleepDlg(resources_, BSleepDlg::Form::kAlarm, options_, clock_).Ask(jotlet.Handle(), isSet);
  if (!choice || state_.exiting) return;
  Remember(*choice);
  bool inTime = true;
  for (const Text& id : ids) inTime = SetAlarm(id, *choice) && inTime;
  if (!inTime) Tell(window_.Handle(), resources_, IDS_ALARM_PAST, {});
}

bool TimeCommands::SetAlarm(const Text& id, const SleepChoice& choice) {
  BJotlet* jotlet = notes_.Find(id);
  if (jotlet == nullptr) return true;
  const std::int64_t now = Now();
  const std::int64_t time = choice.clear ? kNone : choice.relative ? now + choice.seconds : choice.seconds;
  log_.Write(kLogDetail, u"Setting alarm type ", choice.relative ? 0 : 1, u" for ", jotlet->TitleShown(),
             u" to ", time);
  if (choice.clear || time <= now) {
    jotlet->SetAlarm(kNone);
    return choice.clear;
  }
  jotlet->SetAlarm(RecordTime(time));
  const WakeFlags flags{false, false, jotlet->StoredRecord().onTop};
  if (choice.sleepUntilAlarm) desk_.Sleep(id, time + kSleepPastAlarm, flags);
  return true;
}

void TimeCommands::ClearAlarm(BJotlet& jotlet) {
  for (BJotlet* note : notes_.GroupOf(jotlet)) note->SetAlarm(kNone);
}

void TimeCommands::PlayAlarm() { PlayAlarmSound(options_, log_, kAlarmSound, true); }

void TimeCommands::Snooze(BJotlet& jotlet) {
  enum : UINT { kSnooze = 1, kSnoozeAndSleep, kDismiss, kOther, kLater };
  const Text id = jotlet.StoredRecord().id;
  const Point at = jotlet.MenuPlace(false);
  jotlet.StopAlarm();
  const UniqueMenu menu(CreatePopupMenu());
  const auto append = [&menu](UINT command, const Text& text, Icon icon) {
    AppendMenuW(menu.get(), MF_STRING, command, Wide(text));
    SetLastMenuIcon(menu.get(), icon);
  };
  for (const UINT command : {kSnooze, kSnoozeAndSleep}) {
    const Text words = resources_.String(command == kSnooze ? IDS_SNOOZE : IDS_SNOOZE_AND_SLEEP);
    const Text minutes = ReplaceAll(words, u"%i", IntText(options_.snoozeMinutes));
    Text text = ReplaceAll(minutes, u"%s", resources_.String(IDS_UNIT_MANY));
    if (command == kSnooze) text += u"\t" + resources_.Key(u"Shift+Esc");
    append(command, text, command == kSnooze ? Icon::kClock : Icon::kMoon);
  }
  AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
  const std::vector<LaterAlarm> later = LaterAlarms();
  for (std::size_t i = 0; i < later.size(); ++i)
    append(kLater + static_cast<UINT>(i),
           later[i].words + u"\t" + ShownSoon(clock_.ToLocal(later[i].time), clock_.Now().local),
           Icon::kClock);
  append(kOther, resources_.String(IDS_SNOOZE_OTHER), Icon::kBell);
  AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
  append(kDismiss, resources_.String(IDS_DISMISS) + u"\t" + resources_.Key(u"Esc"), Icon::kBellOff);
  const UINT chosen = ChooseFromMenu(resources_.Look(), menu.get(), at, jotlet.Handle());
  if (chosen == kSnooze || chosen == kSnoozeAndSleep)
    return SnoozeNote(id, SnoozeUntil(Now(), options_.snoozeMinutes), chosen == kSnoozeAndSleep);
  if (chosen >= kLater) return SnoozeNote(id, later[chosen - kLater].time, false);
  BJotlet* still = notes_.Find(id);
  if (chosen == kOther && still != nullptr) Alarm(*still);
}

std::vector<TimeCommands::LaterAlarm> TimeCommands::LaterAlarms() const {
  constexpr std::int32_t kQuarter = 15;
  constexpr std::int32_t kHour = 60;
  std::vector<LaterAlarm> later{{resources_.String(IDS_SNOOZE_QUARTER), SnoozeUntil(Now(), kQuarter)},
                                {resources_.String(IDS_SNOOZE_HOUR), SnoozeUntil(Now(), kHour)}};
  if (const auto morning = PresetTime(Preset::kTomorrowMorning))
    later.push_back({resources_.String(IDS_PRESET + static_cast<UINT>(Preset::kTomorrowMorning)), *morning});
  return later;
}

void TimeCommands::SnoozeNow(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  jotlet.StopAlarm();
  SnoozeNote(id, SnoozeUntil(Now(), options_.snoozeMinutes), false);
}

void TimeCommands::SnoozeNote(const Text& id, std::int64_t time, bool sleeps) {
  BJotlet* jotlet = notes_.Find(id);
  if (jotlet == nullptr || state_.exiting) return;
  jotlet->SetAlarm(RecordTime(time));
  const WakeFlags flags{false, false, jotlet->StoredRecord().onTop};
  if (sleeps) desk_.Sleep(id, time, flags);
}

}  // namespace jotlets
