// Clocks of real time zones, with their summer times, computed by nothing that the program uses.
#pragma once

#include <chrono>
#include <optional>

#include "base/clock.h"

namespace jotlets {

/// A change of the clocks: the n-th Sunday of a month (5: the last) at an hour of the clock before the
/// change.
struct Change {
  unsigned month;
  unsigned sunday;
  int hour;
};

struct Zone {
  const char* name;
  int standard;  // minutes ahead of UTC
  std::optional<Change> toSummer, fromSummer;
};

inline constexpr Zone kUtc{"UTC", 0, {}, {}};
inline constexpr Zone kBerlin{"Berlin", 60, Change{3, 5, 2}, Change{10, 5, 3}};
inline constexpr Zone kNewYork{"New York", -300, Change{3, 2, 2}, Change{11, 1, 2}};
inline constexpr Zone kSydney{"Sydney", 600, Change{10, 1, 2}, Change{4, 1, 3}};
inline constexpr Zone kSantiago{"Santiago", -240, Change{9, 1, 0}, Change{4, 1, 0}};
inline constexpr Zone kKathmandu{"Kathmandu", 345, {}, {}};
inline constexpr Zone kZones[] = {kUtc, kBerlin, kNewYork, kSydney, kSantiago, kKathmandu};

class ZoneClock final : public Clock {
 public:
  explicit ZoneClock(const Zone& zone) : zone_(zone) {}
  std::int64_t now = 0;

  Moment Now() const override { return {now, ToLocal(now)}; }
  LocalTime ToLocal(std::int64_t utc) const override { return Parts(utc + Offset(utc)); }
  std::int64_t ToUtc(const LocalTime& t) const override {
    using namespace std::chrono;
    const sys_days day = year(t.year) / t.month / t.day;
    return Instant(sys_seconds(day).time_since_epoch().count() + t.hour * 3600 + t.minute * 60 + t.second);
  }
  /// The first instant at which the clocks show this many seconds since 1970; in the gap of spring, what they
  /// would show had they not changed yet.
  std::int64_t Instant(std::int64_t wall) const {
    const std::int64_t standard = wall - zone_.standard * 60;
    const std::int64_t summer = standard - 3600;
    if (Offset(summer) == wall - summer) return summer;
    return standard;
  }

 private:
  static LocalTime Parts(std::int64_t wall) {
    using namespace std::chrono;
    const sys_seconds time{seconds(wall)};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const auto rest = static_cast<int>((time - day).count());
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            rest / 3600,
            rest / 60 % 60,
            rest % 60};
  }
  std::int64_t ChangeAt(int y, const Change& change, int minutesAhead) const {
    using namespace std::chrono;
    const month m{change.month};
    const sys_days day = change.sunday == 5 ? sys_days(year(y) / m / Sunday[last])
                                            : sys_days(year(y) / m / Sunday[change.sunday]);
    return sys_seconds(day).time_since_epoch().count() + change.hour * 3600 - minutesAhead * 60;
  }
  std::int64_t Offset(std::int64_t utc) const {
    const std::int64_t standard = zone_.standard * 60;
    if (!zone_.toSummer) return standard;
    const int y = Parts(utc + standard).year;
    const bool since = utc >= ChangeAt(y, *zone_.toSummer, zone_.standard);
    const bool until = utc < ChangeAt(y, *zone_.fromSummer, zone_.standard + 60);
    const bool southern = zone_.toSummer->month > zone_.fromSummer->month;
    return standard + ((southern ? since || until : since && until) ? 3600 : 0);
  }

  Zone zone_;
};

}  // namespace jotlets
