// The one clock. Rules never ask it: they are handed a `Moment`.
#pragma once

#include <cstdint>

#include "base/text.h"

namespace jotlets {

/// A wall-clock time as the user sees it; month and day count from 1.
struct LocalTime {
  int year = 1970;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// One instant, twice: seconds since 1970-01-01 UTC, and the same in local time.
struct Moment {
  std::int64_t utc = 0;
  LocalTime local;
};

/// Where the time comes from.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual Moment Now() const = 0;
  /// Local time of an instant (seconds since 1970 UTC).
  virtual LocalTime ToLocal(std::int64_t utc) const = 0;
  /// The instant (seconds since 1970 UTC) of a local time; of the two in the hour that autumn repeats,
  /// either.
  virtual std::int64_t ToUtc(const LocalTime& local) const = 0;
};

/// `utc` as the signed 32-bit seconds that records hold; saturates in 2038.
std::int32_t RecordTime(std::int64_t utc);

/// "2026-11-21 14:05.09" (minutes, a full stop, seconds), the form of the activity log's time stamps.
Text LogStamp(const LocalTime& t);

/// "202611211405": year, month, day, hour and minute without separators, as backup folders are named.
Text MinuteStamp(const LocalTime& t);

}  // namespace jotlets
