// Notes go to sleep, wake and sound: what the rules of the schedule decide, done to windows and files.
#pragma once

#include <optional>

#include "desk/note_saver.h"
#include "desk/win/desktop_jotlets.h"
#include "desk/win/jotlet_maker.h"
#include "schedule/waking.h"

namespace jotlets {

class SleepingJotlets final : public WakeHost {
 public:
  SleepingJotlets(DesktopOwner& owner, Files& files, const Clock& clock, Log& log, const Options& options,
                  JotletLists& lists, DesktopJotlets& desktop, JotletMaker& maker, NoteSaver& saver)
      : owner_(owner),
        files_(files),
        clock_(clock),
        log_(log),
        options_(options),
        lists_(lists),
        desktop_(desktop),
        maker_(maker),
        saver_(saver),
        waking_(lists.sleeping, *this, clock, log, options) {}

  void SetFolder(TextView dataFolder) { folder_ = dataFolder; }
  /// Until then, and while the program must hold still, nothing wakes and nothing sounds.
  void Enable(bool enabled) { waking_.Enable(enabled); }

  /// Wakes what is due.
  void WakeSleeping() { waking_.WakeSleeping(); }
  /// Wakes one note now; false when there is none, its recurrence has ended or it gets no window.
  bool WakeSleeping(TextView id) { return waking_.WakeSleeping(id); }
  /// Starts the alarms that are due.
  void CheckAlarms();

  /// Puts a note of the desktop to sleep until `wakeTime` (seconds since 1970 UTC), whatever the time is now.
  /// False when it is not there, or its content could not be written: then it stays.
  bool Sleep(TextView id, std::int64_t wakeTime, const WakeFlags& flags);
  /// Makes a note of the desktop a sleeping one that comes again and again, from `start` until `end`
  /// (`kNone`: for good). False also when the rule gives no time.
  bool Recur(TextView id, const WakeRule& rule, std::int64_t start, std::int64_t end, const WakeFlags& flags);

  std::int64_t Now() const { return clock_.Now().utc; }
  const Clock& Time() const { return clock_; }

 private:
  bool Wake(JotletData record, TextView reason, const WakeFlags& flags) override;
  bool HasCopyOf(const JotletData& source) override;
  Text NewJotletId() override { return maker_.NewJotletId(); }
  FileStatus CopyContent(const JotletData& from, const JotletData& to) override;
  void ForgetContent(const JotletData& record) override { saver_.RemoveContentLater(record); }
  void StartDueAlarms(std::int64_t now) override;
  void PlayWakeSound() override;
  void StopSounds() override;
  void OnListsChanged() override { owner_.OnListsChanged(); }
  Text ShownTime(std::int32_t utc) override;

  std::optional<JotletData> TakeOffDesktop(TextView id);
  Text ContentFile(const JotletData& record) const { return folder_ + ContentPath(record); }

  DesktopOwner& owner_;
  Files& files_;
  const Clock& clock_;
  Log& log_;
  const Options& options_;
  JotletLists& lists_;
  DesktopJotlets& desktop_;
  JotletMaker& maker_;
  NoteSaver& saver_;
  Waking waking_;
  Text folder_;
};

}  // namespace jotlets
