// What the command language needs from the program, in the language's own words. The main window implements
// it; tests run the whole interpreter on a fake.
#pragma once

#include <vector>

#include "base/geometry.h"
#include "base/text.h"
#include "data/data_file.h"
#include "data/jotlet_data.h"
#include "schedule/sleep_times.h"

namespace jotlets {

/// One open note, as commands see it. A reference to one is good until the next event is sent: a listener may
/// close any note from inside an event.
class DesktopJotlet {
 public:
  virtual ~DesktopJotlet() = default;
  virtual JotletData& Record() = 0;  // place and size brought up to date with the screen
  virtual Text PlainText() = 0;
  virtual Text Rtf() = 0;  // empty for a picture
  virtual void SetTitle(TextView title) = 0;
  virtual void SetColour(Colour colour) = 0;
  virtual bool SetPlainText(TextView text) = 0;  // these two: false when the note is a picture
  virtual bool SetRtf(TextView rtf) = 0;
  virtual void MoveTo(Point position) = 0;
};

class CommandHost {
 public:
  virtual ~CommandHost() = default;

  /// The open note with this id, without regard to case; nullptr when there is none.
  virtual DesktopJotlet* FindDesktop(TextView id) = 0;
  virtual std::vector<Text> DesktopIds() const = 0;
  virtual std::vector<Text> AttachedIds() const = 0;
  virtual std::vector<Text> SleepingIds() const = 0;
  virtual std::vector<Text> ClosedIds() const = 0;
  virtual std::vector<std::int32_t> StackNumbers() const = 0;
  /// nullptr when there is none; the id without regard to case.
  virtual const JotletData* FindAttached(TextView id) = 0;
  virtual const StackRecord* FindStack(std::int32_t number) const = 0;

  /// Creates an open note with this plain text and returns its id, empty when that failed. Sends event 500.
  virtual Text CreateDesktop(TextView text) = 0;
  /// Closes an open note and sends event 501; false when its content could not be written and it stays open.
  virtual bool CloseDesktop(TextView id) = 0;
  /// Sends event 502, then deletes an open note; false when it is not there (any more).
  virtual bool DeleteDesktop(TextView id) = 0;
  /// The text of a note's rich-text file as the note has it now, empty when there is none.
  virtual Text ContentForTransfer(const JotletData& record) = 0;

  // Sleep and alarms. Of those that answer, false: the note stays what it is, since its content could not be
  // written, or it gets no window.

  virtual const JotletData* FindSleeping(TextView id) = 0;  // nullptr when there is none
  virtual bool WakeSleeping(TextView id) = 0;
  virtual bool Sleep(TextView id, const WakeFlags& flags, std::int64_t seconds) = 0;
  /// From `start`, now for `kNone`, until `end`, for good for `kNone`; seconds since 1970 UTC.
  virtual bool Recur(TextView id, const WakeFlags& flags, const WakeRule& rule, std::int32_t start,
                     std::int32_t end) = 0;
  virtual void SoundAlarm(TextView id, bool on) = 0;
  virtual void MoveSleeping(TextView id, Point position) = 0;
  virtual void SetWakeTime(TextView id, std::int32_t time) = 0;

  /// Saves the data file now, whatever has changed; false when that failed.
  virtual bool SaveNow() = 0;
  virtual void BringForward() = 0;
  virtual void NotifyMoved(TextView id) = 0;
  virtual bool RolledHasAltPosition() const = 0;
  virtual Text DataPath() const = 0;
  virtual Text UniqueId() const = 0;
};

}  // namespace jotlets
