// Sleeping notes come back: when they are due, when their alarm is, or when somebody asks for one.
#pragma once

#include <cstdint>
#include <set>

#include "base/clock.h"
#include "base/files.h"
#include "base/log.h"
#include "data/options.h"
#include "data/record_list.h"
#include "schedule/sleep_times.h"

namespace jotlets {

/// What waking needs of the desktop. Any call may let a listener change every list.
class WakeHost {
 public:
  virtual ~WakeHost() = default;

  /// Puts a sleeping note on the desktop, where it can be seen and without taking the keyboard focus from
  /// anyone, and does what `flags` ask for but the sound. False when it gets no window and sleeps on.
  virtual bool Wake(TextView id, const WakeFlags& flags) = 0;
  /// The same with a copy of a recurring note, which sleeps on.
  virtual bool WakeCopy(const JotletData& source, const WakeFlags& flags) = 0;
  /// Whether the desktop has an untouched copy of a recurring note.
  virtual bool HasCopyOf(const JotletData& source) = 0;
  /// When a recurring note comes next.
  virtual void SetNextWake(TextView id, std::int32_t time) = 0;
  /// A recurrence has ended: the note is deleted for good.
  virtual void RemoveFinished(TextView id) = 0;

  /// Starts the alarms of the notes on the desktop, in list order, that are due before `now`.
  virtual void StartDueAlarms(std::int64_t now) = 0;

  virtual void PlayWakeSound() = 0;
  virtual void StopSounds() = 0;
  /// A time in the user's own form.
  virtual Text ShownTime(std::int32_t utc) = 0;
};

/// Whether a note on the desktop is still what a recurring note put there, as far as the records tell; the
/// contents are to be compared too.
bool IsUntouchedCopy(const JotletData& note, const JotletData& source);

class Waking {
 public:
  Waking(const RecordList& sleeping, WakeHost& host, const Clock& clock, Log& log, const Options& options)
      : sleeping_(sleeping), host_(host), clock_(clock), log_(log), options_(options) {}

  /// The notes can be woken from now on, or, while the program must hold still, cannot.
  void Enable(bool enabled) { enabled_ = enabled; }

  /// Wakes what is due, in list order. Costs no look at the list as long as nothing is.
  void WakeSleeping();
  /// Wakes one note now, whether it is due or not, recurring or not; false when that is not possible.
  bool WakeSleeping(TextView id);

  /// Starts the alarms that are due, those of sleeping notes, which wake for it, among them.
  void CheckAlarms();

 private:
  enum class Outcome { kAsleep, kWoken, kNoWindow };

  void FindEarliest();
  Outcome WakeDue(const Text& id, std::int64_t now);
  Outcome WakeRecurring(const Text& id, std::int64_t now);
  Outcome WakeForGood(const Text& id, std::int64_t now);
  void Advance(const Text& id, std::int64_t now);
  void LogWaking(const JotletData& record, std::int64_t now);
  void TellFault(const JotletData& record);

  const RecordList& sleeping_;
  WakeHost& host_;
  const Clock& clock_;
  Log& log_;
  const Options& options_;
  bool enabled_ = false;
  bool soundDue_ = false;
  std::int64_t holdUntil_ = 0;  // after a window could not be made
  std::set<Text> told_;         // ids of the notes whose rule was found to be none
  std::uint64_t seen_ = 0;      // the version of the list that the two times were found for
  std::int64_t earliestWake_ = 0;
  std::int64_t earliestAlarm_ = 0;
};

}  // namespace jotlets
