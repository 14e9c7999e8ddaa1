// A rule of recurrence told in words, and when it lets a note appear.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "base/clock.h"
#include "base/text.h"
#include "schedule/recurrence.h"

namespace jotlets {

/// What a rule is told with, in the user's language.
struct RuleNames {
  std::function<Text(std::uint32_t id)> textOf;  // resources
  std::vector<Text> days;                        // from Monday on
  std::vector<Text> months;
  Text time;  // of the rule
};

/// One sentence about a rule; empty for one that must not be followed.
Text RuleInWords(const WakeRule& rule, const RuleNames& names);

/// The first `count` times (seconds since 1970 UTC), or as many as there are, at which a note appears by a
/// rule that starts at `start` and ends at `end` (`kNone`: not at all), served at each of them on time.
std::vector<std::int32_t> AppearancesOf(const WakeRule& rule, std::int64_t start, std::int64_t end,
                                        std::int64_t now, const Clock& clock, std::size_t count);

}  // namespace jotlets
