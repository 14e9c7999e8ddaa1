#include "schedule/sleep_times.h"

#include "base/clock.h"

namespace jotlets {
namespace {

enum WakeBit : std::int32_t { kSoundBit = 1, kAlarmBit = 2, kOnTopBit = 4 };

constexpr std::int64_t kUnitSeconds[] = {60, 3600, 86400, 604800, 2592000};

std::int32_t ToBits(const WakeFlags& flags) {
  return (flags.sound ? kSoundBit : 0) | (flags.alarm ? kAlarmBit : 0) | (flags.onTop ? kOnTopBit : 0);
}

}  // namespace

WakeFlags FlagsOf(const JotletData& record) {
  const std::int32_t bits = record.sleep.flags;
  return {(bits & kSoundBit) != 0, (bits & kAlarmBit) != 0, (bits & kOnTopBit) != 0};
}

WakeFlags ParseWakeFlags(TextView text) {
  const auto on = [text](std::size_t at) { return at < text.size() && text[at] == u'1'; };
  return {on(0), on(1), on(2)};
}

std::int64_t UnitSeconds(std::int32_t unit) {
  return unit < kMinutes || unit > kMonths ? 1 : kUnitSeconds[unit];
}

std::int64_t SleepSeconds(std::int32_t number, std::int32_t unit) {
  return number < 1 ? 0 : number * UnitSeconds(unit);
}

void PutToSleep(JotletData& record, std::int64_t wakeTime, const WakeFlags& flags) {
  record.sleep.asleep = true;
  record.sleep.recurring = false;
  record.sleep.nextWake = RecordTime(wakeTime);
  record.sleep.flags = ToBits(flags);
  // An end that a recurrence left behind would keep the note asleep for good.
  record.sleep.lastWake = kNone;
}

void MakeRecurring(JotletData& record, const WakeRule& rule, std::int64_t firstWake, std::int64_t end,
                   const WakeFlags& flags) {
  PutToSleep(record, firstWake, flags);
  record.sleep.recurring = true;
  record.sleep.lastWake = RecordTime(end);
  record.sleep.type = rule.type;
  record.sleep.hours = rule.hours;
  record.sleep.minutes = rule.minutes;
  record.sleep.day = rule.day;
}

}  // namespace jotlets
