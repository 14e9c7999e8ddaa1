// What tells the user of waking and alarms: sounds, and times in his own form.
#pragma once

#include <cstdint>

#include "base/text.h"

namespace jotlets {

class TimeSigns {
 public:
  virtual ~TimeSigns() = default;
  virtual void PlayWakeSound() = 0;
  virtual void StopSounds() = 0;
  virtual Text ShownTime(std::int32_t utc) = 0;
};

}  // namespace jotlets
