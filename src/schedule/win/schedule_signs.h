// The sounds and the shown times of waking and alarms, as the system gives them.
#pragma once

#include "base/clock.h"
#include "base/win/shown_time.h"
#include "schedule/time_signs.h"
#include "schedule/win/alarm_sound.h"

namespace jotlets {

class ScheduleSigns final : public TimeSigns {
 public:
  ScheduleSigns(const Options& options, const Clock& clock, Log& log)
      : options_(options), clock_(clock), log_(log) {}

  void PlayWakeSound() override { PlayAlarmSound(options_, log_, kWakeSound); }
  void StopSounds() override { jotlets::StopSounds(); }
  Text ShownTime(std::int32_t utc) override { return jotlets::ShownTime(clock_.ToLocal(utc)); }

 private:
  const Options& options_;
  const Clock& clock_;
  Log& log_;
};

}  // namespace jotlets
