// What the user can do with the time of notes: sleep, alarm, recurrence, snooze.
#pragma once

#include <vector>

#include "app/win/commands/undo_offers.h"
#include "app/win/program_saving.h"
#include "desk/note_desk.h"
#include "desk/win/open_notes.h"
#include "schedule/presets.h"
#include "schedule/win/sleep_dialog.h"
#include "ui/resources.h"

namespace jotlets {

class TimeCommands {
 public:
  TimeCommands(const Resources& resources, const Clock& clock, Log& log, Options& options, NoteDesk& desk,
               OpenNotes& notes, ProgramSaving& saving, UndoOffers& undo, const ProgramWindow& window,
               const ProgramState& state)
      : resources_(resources),
        clock_(clock),
        log_(log),
        options_(options),
        desk_(desk),
        notes_(notes),
        saving_(saving),
        undo_(undo),
        window_(window),
        state_(state) {}

  /// These three ask by a dialog, and do what is chosen to the note and all that are selected with it.
  void Sleep(BJotlet& jotlet);
  void Alarm(BJotlet& jotlet);
  void Recur(BJotlet& jotlet);
  void ClearAlarm(BJotlet& jotlet);
  /// When a preset is now, and how a menu shows it; nothing for one that is over.
  std::optional<Text> ShownPreset(Preset preset) const;
  /// Puts the note, and all that are selected with it, to sleep until then. They sound when they wake.
  void SleepUntil(BJotlet& jotlet, Preset preset);
  /// Lets a sounding note sound again later, without a question.
  void SnoozeNow(BJotlet& jotlet);
  /// Lets the user hear the sound of an alarm.
  void PlayAlarm();
  /// Quietens a sounding note and offers to let it sound again later.
  void Snooze(BJotlet& jotlet);

 private:
  std::vector<Text> GroupOf(BJotlet& jotlet);
  void Remember(const SleepChoice& choice);
  /// Sets one alarm; false when that time is over.
  bool SetAlarm(const Text& id, const SleepChoice& choice);
  std::optional<std::int64_t> PresetTime(Preset preset) const;
  void OfferAsleep(std::vector<Text> ids, const Rect& place);
  void SleepAll(const std::vector<Text>& ids, std::int64_t wakeTime, const WakeFlags& flags);
  void SnoozeNote(const Text& id, std::int64_t time, bool sleeps);

  /// A time to put an alarm off to, and how the menu calls it.
  struct LaterAlarm {
    Text words;
    std::int64_t time = 0;
  };
  std::vector<LaterAlarm> LaterAlarms() const;

  std::int64_t Now() const { return clock_.Now().utc; }

  const Resources& resources_;
  const Clock& clock_;
  Log& log_;
  Options& options_;
  NoteDesk& desk_;
  OpenNotes& notes_;
  ProgramSaving& saving_;
  UndoOffers& undo_;
  const ProgramWindow& window_;
  const ProgramState& state_;
};

}  // namespace jotlets
