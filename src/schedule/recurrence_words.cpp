#include "schedule/recurrence_words.h"

#include "res/resource.h"

namespace jotlets {
namespace {

Text NameAt(const std::vector<Text>& names, std::int32_t index) {
  return index >= 0 && static_cast<std::size_t>(index) < names.size() ? names[static_cast<std::size_t>(index)]
                                                                      : Text();
}

// "Monday, Tuesday and Friday".
Text DaysInWords(std::int32_t bits, const RuleNames& names) {
  std::vector<Text> days;
  for (std::size_t day = 0; day < names.days.size(); ++day)
    if ((bits >> day & 1) != 0) days.push_back(names.days[day]);
  Text text;
  for (std::size_t i = 0; i < days.size(); ++i) {
    if (i > 0) text += i + 1 == days.size() ? names.textOf(IDS_RULE_AND) : Text(u", ");
    text += days[i];
  }
  return text;
}

Text DayOfMonthInWords(std::int32_t day, const RuleNames& names) {
  if (day < kAnyDay) return NameAt(names.days, day);
  return names.textOf(IDS_KIND_OF_DAY + static_cast<std::uint32_t>(day - kAnyDay));
}

}  // namespace

Text RuleInWords(const WakeRule& rule, const RuleNames& names) {
  if (!FaultOf(rule).empty()) return {};
  const auto sentence = [&](TextView day, TextView number) {
    const Text words = names.textOf(IDS_RULE + static_cast<std::uint32_t>(rule.type) - 1);
    return ReplaceAll(ReplaceAll(ReplaceAll(words, u"%t", names.time), u"%d", day), u"%n", number);
  };
  switch (rule.type) {
    case kWeekly: return sentence(DaysInWords(rule.day, names), {});
    case kMonthlyOnDay: return sentence({}, IntText(rule.day));
    case kYearly: return sentence(NameAt(names.months, rule.day / 100 - 1), IntText(rule.day % 100));
    case kMonthlyOnWeekday:
      return sentence(DayOfMonthInWords(rule.day % 100, names),
                      names.textOf(IDS_ORDINAL + static_cast<std::uint32_t>(rule.day / 100)));
    case kEvery: {
      const auto unit = static_cast<std::uint32_t>(rule.day);
      if (rule.minutes == 1)
        return ReplaceAll(names.textOf(IDS_RULE_EVERY_ONE), u"%d", names.textOf(IDS_UNIT_ONE + unit));
      return sentence(names.textOf(IDS_UNIT_MANY + unit), IntText(rule.minutes));
    }
    default: return sentence({}, {});
  }
}

std::vector<std::int32_t> AppearancesOf(const WakeRule& rule, std::int64_t start, std::int64_t end,
                                        std::int64_t now, const Clock& clock, std::size_t count) {
  std::vector<std::int32_t> times;
  const NextAppearance first = AppearanceOf(rule, start, end, now, clock);
  if (first.kind != NextAppearance::Kind::kAt) return times;
  for (std::int32_t time = first.time; times.size() < count; time = TimeAfter(rule, time, time, clock)) {
    if (time == kNeverAgain || (end != kNone && time > end)) break;
    times.push_back(time);
  }
  return times;
}

}  // namespace jotlets
