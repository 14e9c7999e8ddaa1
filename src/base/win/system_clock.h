// The system's clock and time zone.
#pragma once

#include "base/clock.h"

namespace jotlets {

class SystemClock final : public Clock {
 public:
  Moment Now() const override;
  LocalTime ToLocal(std::int64_t utc) const override;
  std::int64_t ToUtc(const LocalTime& local) const override;
};

}  // namespace jotlets
