// What the user can do with the time of notes: sleep, alarm, recurrence, snooze.
#pragma once

#include <span>
#include <vector>

#include "schedule/win/sleep_dialog.h"
#include "ui/resources.h"

namespace jotlets {

class BJotlet;
class CMainFrame;

class TimeCommands {
 public:
  TimeCommands(CMainFrame& frame, const Resources& resources) : frame_(frame), resources_(resources) {}

  /// These three ask by a dialog, and do what is chosen to the note and all that are selected with it.
  void Sleep(BJotlet& jotlet);
  void Alarm(BJotlet& jotlet);
  void Recur(BJotlet& jotlet);
  /// Lets the user hear the sound of an alarm.
  void PlayAlarm();
  /// Quietens a sounding note and offers to let it sound again later.
  void Snooze(BJotlet& jotlet);

 private:
  std::vector<Text> GroupOf(BJotlet& jotlet);
  void Remember(const SleepChoice& choice);
  /// Sets one alarm; false when that time is over.
  bool SetAlarm(const Text& id, const SleepChoice& choice);
  void SnoozeNote(const Text& id, bool sleeps);

  CMainFrame& frame_;
  const Resources& resources_;
};

}  // namespace jotlets
