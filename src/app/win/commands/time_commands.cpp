#include "app/win/commands/time_commands.h"

#include "app/win/main_frame.h"
#include "base/win/wide.h"
#include "note/win/action_menu.h"
#include "res/resource.h"
#include "schedule/alarm.h"
#include "schedule/win/recurrence_dialog.h"
#include "ui/user_messages.h"

namespace jotlets {

std::vector<Text> TimeCommands::GroupOf(BJotlet& jotlet) {
  std::vector<Text> ids;
  for (const BJotlet* other : frame_.Desktop().GroupOf(jotlet)) ids.push_back(other->StoredRecord().id);
  return ids;
}

void TimeCommands::Remember(const SleepChoice& choice) {
  const std::array<std::int32_t, 2> values = {choice.number, choice.unit};
  Options& options = frame_.CurrentOptions();
  if (choice.clear || options.sleepValues == values) return;
  options.sleepValues = values;
  frame_.SetOptionsDirty();
}

void TimeCommands::Sleep(BJotlet& jotlet) {
  const std::vector<Text> ids = GroupOf(jotlet);
  SleepingJotlets& sleeping = frame_.Sleeping();
  const auto choice = BSleepDlg(resources_, BSleepDlg::Form::kSleep, frame_.CurrentOptions(), sleeping.Time())
                          .Ask(jotlet.Handle());
  if (!choice || frame_.IsExiting()) return;
  Remember(*choice);
  const std::int64_t now = sleeping.Now();
  const std::int64_t wakeTime = choice->relative ? now + choice->seconds : choice->seconds;
  if (!choice->relative && wakeTime <= now) return Tell(frame_.Handle(), resources_, IDS_SLEEP_PAST, {});
  bool all = true;
  for (const Text& id : ids)
    all = (sleeping.Sleep(id, wakeTime, choice->flags) || frame_.FindJotlet(id) == nullptr) && all;
  if (!all) Tell(frame_.Handle(), resources_, IDS_SAVE_FAILED, frame_.DataFolder());
}

void TimeCommands::Recur(BJotlet& jotlet) {
  const std::vector<Text> ids = GroupOf(jotlet);
  SleepingJotlets& sleeping = frame_.Sleeping();
  const auto chosen =
      BRecurranceDlg(resources_, jotlet.StoredRecord(), frame_.CurrentOptions(), sleeping.Time())
          .Ask(jotlet.Handle());
  if (!chosen || frame_.IsExiting()) return;
  bool all = true;
  for (const Text& id : ids) {
    all = (sleeping.Recur(id, chosen->rule, chosen->start, chosen->end, chosen->flags) ||
           frame_.FindJotlet(id) == nullptr) &&
          all;
  }
  if (!all) Tell(frame_.Handle(), resources_, IDS_SAVE_FAILED, frame_.DataFolder());
}

void TimeCommands::Alarm(BJotlet& jotlet) {
  const std::vector<Text> ids = GroupOf(jotlet);
  const auto choice =
      BSleepDlg(resources_, BSleepDlg::Form::kAlarm, frame_.CurrentOptions(), frame_.Sleeping().Time())
          .Ask(jotlet.Handle());
  if (!choice || frame_.IsExiting()) return;
  Remember(*choice);
  bool inTime = true;
  for (const Text& id : ids) inTime = SetAlarm(id, *choice) && inTime;
  if (!inTime) Tell(frame_.Handle(), resources_, IDS_ALARM_PAST, {});
}

bool TimeCommands::SetAlarm(const Text& id, const SleepChoice& choice) {
  BJotlet* jotlet = frame_.FindJotlet(id);
  if (jotlet == nullptr) return true;
  const std::int64_t now = frame_.Sleeping().Now();
  const std::int64_t time = choice.clear ? kNone : choice.relative ? now + choice.seconds : choice.seconds;
  frame_.Log(kLogDetail, u"Setting alarm type ", choice.relative ? 0 : 1, u" for ", jotlet->TitleShown(),
             u" to ", time);
  if (choice.clear || time <= now) {
    jotlet->SetAlarm(kNone);
    return choice.clear;
  }
  jotlet->SetAlarm(RecordTime(time));
  const WakeFlags flags{false, false, jotlet->StoredRecord().onTop};
  if (choice.sleepUntilAlarm) frame_.Sleeping().Sleep(id, time + kSleepPastAlarm, flags);
  return true;
}

void TimeCommands::PlayAlarm() { frame_.PlayAlarmSound(kAlarmSound); }

void TimeCommands::Snooze(BJotlet& jotlet) {
  enum : UINT { kSnooze = 1, kSnoozeAndSleep };
  const Text id = jotlet.StoredRecord().id;
  jotlet.StopAlarm();
  const UniqueMenu menu(CreatePopupMenu());
  for (const UINT command : {kSnooze, kSnoozeAndSleep}) {
    const Text words = resources_.String(command == kSnooze ? IDS_SNOOZE : IDS_SNOOZE_AND_SLEEP);
    const Text minutes = ReplaceAll(words, u"%i", IntText(frame_.CurrentOptions().snoozeMinutes));
    const Text text = ReplaceAll(minutes, u"%s", resources_.String(IDS_UNIT_MANY));
    AppendMenuW(menu.get(), MF_STRING, command, Wide(text));
  }
  const UINT chosen = ChooseFromMenu(menu.get(), jotlet.Handle());
  if (chosen != 0) SnoozeNote(id, chosen == kSnoozeAndSleep);
}

void TimeCommands::SnoozeNote(const Text& id, bool sleeps) {
  BJotlet* jotlet = frame_.FindJotlet(id);
  if (jotlet == nullptr || frame_.IsExiting()) return;
  const std::int64_t time = SnoozeUntil(frame_.Sleeping().Now(), frame_.CurrentOptions().snoozeMinutes);
  jotlet->SetAlarm(RecordTime(time));
  const WakeFlags flags{false, false, jotlet->StoredRecord().onTop};
  if (sleeps) frame_.Sleeping().Sleep(id, time, flags);
}

}  // namespace jotlets
