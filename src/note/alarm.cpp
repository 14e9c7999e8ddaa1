#include "note/alarm.h"

#include <algorithm>
#include <cstdlib>

#include "looks/ink.h"

namespace jotlets {
namespace {

constexpr std::int32_t kPhases = 25;
constexpr std::int32_t kFlashPhases = 12;
constexpr std::int32_t kJiggleStep = 5461;
constexpr std::int32_t kJiggleShift = 2;

}  // namespace

std::int32_t NextAlarmPhase(std::int32_t phase) { return (phase + 1) % kPhases; }

std::int32_t JiggleOffset(std::int32_t random) { return random / kJiggleStep - kJiggleShift; }

// The text keeps its ink meanwhile.
Colour FlashColour(Colour paper, std::int32_t phase) {
  if (phase < 0 || phase >= kFlashPhases) return paper;
  constexpr Colour kUnderLightInk[] = {{128, 48, 0}, {0, 64, 128}};
  constexpr Colour kUnderDarkInk[] = {{255, 193, 7}, {255, 255, 255}};
  const auto& flashes = IsDarkPaper(paper) ? kUnderLightInk : kUnderDarkInk;
  const auto distance = [paper](Colour other) {
    return std::abs(other.r - paper.r) + std::abs(other.g - paper.g) + std::abs(other.b - paper.b);
  };
  return distance(flashes[0]) >= distance(flashes[1]) ? flashes[0] : flashes[1];
}

std::int64_t SnoozeUntil(std::int64_t now, std::int32_t minutes) {
  constexpr std::int64_t kSecondsPerMinute = 60;
  // With none at all the alarm would sound again at once, and again.
  return now + std::max(minutes, 1) * kSecondsPerMinute;
}

}  // namespace jotlets
