#include "editor/font_history.h"

#include <algorithm>

namespace jotlets {
namespace {

constexpr std::size_t kMaxFonts = 8;
constexpr std::size_t kLongestFaceName = 31;  // the system's

bool CanBeKept(TextView face) {
  return !face.empty() && face.size() <= kLongestFaceName &&
         std::ranges::none_of(face, [](char16_t unit) { return unit < u' ' || unit == u'|'; });
}

}  // namespace

std::vector<Text> RecentFonts(TextView option) {
  std::vector<Text> fonts;
  while (!option.empty() && fonts.size() < kMaxFonts) {
    const Split split = SplitAtFirst(option, u'|');
    option = split.tail;
    const TextView face = TrimBlanks(split.head);
    const bool known =
        std::ranges::any_of(fonts, [face](const Text& each) { return EqualIgnoreCase(each, face); });
    if (!known && CanBeKept(face)) fonts.emplace_back(face);
  }
  return fonts;
}

Text WithRecentFont(TextView option, TextView face) {
  if (!CanBeKept(face)) return Text(option);
  Text all;
  for (const Text& each : RecentFonts(Text(face) + u"|" + Text(option)))
    all.append(all.empty() ? u"" : u"|").append(each);
  return all;
}

}  // namespace jotlets
