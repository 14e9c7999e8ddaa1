#include "note/alarm.h"

#include <algorithm>

namespace jotlets {
namespace {

constexpr std::int32_t kPhases = 25;
constexpr std::int32_t kFlashPhases = 12;
constexpr std::int32_t kJiggleStep = 5461;
constexpr std::int32_t kJiggleShift = 2;

}  // namespace

std::int32_t NextAlarmPhase(std::int32_t phase) { return (phase + 1) % kPhases; }

std::int32_t JiggleOffset(std::int32_t random) { return random / kJiggleStep - kJiggleShift; }

Colour FlashColour(Colour paper, std::int32_t phase) {
  if (phase < 0 || phase >= kFlashPhases) return paper;
  // Half the range away, which also grey shows.
  const auto other = [](std::uint8_t value) { return static_cast<std::uint8_t>(value ^ 0x80); };
  return {other(paper.r), other(paper.g), other(paper.b)};
}

std::int64_t SnoozeUntil(std::int64_t now, std::int32_t minutes) {
  constexpr std::int64_t kSecondsPerMinute = 60;
  // With none at all the alarm would sound again at once, and again.
  return now + std::max(minutes, 1) * kSecondsPerMinute;
}

}  // namespace jotlets
