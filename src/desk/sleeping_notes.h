// Sleeping notes wake and sound: what the rules of the schedule decide, carried out on the desk.
#pragma once

#include "desk/note_desk.h"
#include "schedule/time_signs.h"
#include "schedule/waking.h"

namespace jotlets {

class SleepingNotes final : public WakeHost {
 public:
  SleepingNotes(NoteDesk& desk, NoteWindows& windows, const Files& files, const Clock& clock, Log& log,
                const Options& options, TimeSigns& signs)
      : desk_(desk),
        windows_(windows),
        files_(files),
        signs_(signs),
        waking_(desk.Lists().sleeping, *this, clock, log, options) {}

  /// Until then, and while the program must hold still, nothing wakes and nothing sounds.
  void Enable(bool enabled) { waking_.Enable(enabled); }
  /// Wakes what is due.
  void WakeSleeping() { waking_.WakeSleeping(); }
  /// Wakes one note now; false when there is none, its recurrence has ended or it gets no window.
  bool WakeSleeping(TextView id) { return waking_.WakeSleeping(id); }
  /// Starts the alarms that are due.
  void CheckAlarms() { waking_.CheckAlarms(); }

 private:
  bool Wake(TextView id, const WakeFlags& flags) override { return desk_.Wake(id, flags); }
  bool WakeCopy(const JotletData& source, const WakeFlags& flags) override {
    return desk_.CreateCopy(source, flags);
  }
  bool HasCopyOf(const JotletData& source) override;
  void SetNextWake(TextView id, std::int32_t time) override {
    desk_.ChangeSleeping(id, [time](JotletData& record) { record.sleep.nextWake = time; });
  }
  void RemoveFinished(TextView id) override { desk_.RemoveFinished(id); }
  void StartDueAlarms(std::int64_t now) override;
  void PlayWakeSound() override { signs_.PlayWakeSound(); }
  void StopSounds() override { signs_.StopSounds(); }
  Text ShownTime(std::int32_t utc) override { return signs_.ShownTime(utc); }

  NoteDesk& desk_;
  NoteWindows& windows_;
  const Files& files_;
  TimeSigns& signs_;
  Waking waking_;
};

}  // namespace jotlets
