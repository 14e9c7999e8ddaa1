#include "base/win/system_clock.h"

#include <windows.h>

namespace jotlets {
namespace {

// File times count 100 ns from 1601.
constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;

std::int64_t SecondsOf(const FILETIME& time) {
  const std::int64_t ticks = (static_cast<std::int64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
  return ticks / kTicksPerSecond - kSecondsTo1970;
}

LocalTime LocalTimeOf(const SYSTEMTIME& t) {
  return {t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond};
}

}  // namespace

Moment SystemClock::Now() const {
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  const std::int64_t utc = SecondsOf(now);
  return {utc, ToLocal(utc)};
}

LocalTime SystemClock::ToLocal(std::int64_t utc) const {
  const std::int64_t ticks = (utc + kSecondsTo1970) * kTicksPerSecond;
  const FILETIME time{static_cast<DWORD>(ticks & 0xFFFFFFFF), static_cast<DWORD>(ticks >> 32)};
  SYSTEMTIME universal{};
  SYSTEMTIME local{};
  if (!FileTimeToSystemTime(&time, &universal) ||
      !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) {
    return {};
  }
  return LocalTimeOf(local);
}

std::int64_t SystemClock::ToUtc(const LocalTime& local) const {
  const auto word = [](int value) { return static_cast<WORD>(value); };
  const SYSTEMTIME time{word(local.year),   word(local.month),  0, word(local.day), word(local.hour),
                        word(local.minute), word(local.second), 0};
  SYSTEMTIME universal{};
  FILETIME file{};
  if (!TzSpecificLocalTimeToSystemTime(nullptr, &time, &universal) ||
      !SystemTimeToFileTime(&universal, &file))
    return 0;
  return SecondsOf(file);
}

}  // namespace jotlets
