#include "base/natural_order.h"

#include <algorithm>

namespace jotlets {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view DigitsAt(std::string_view text, std::size_t at) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789", at), text.size());
  return text.substr(at, end - at);
}

}  // namespace

std::strong_ordering NaturalOrder(std::string_view a, std::string_view b) {
  const auto number = [](std::string_view digits) {
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
  };
  const auto at = static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
  // Where they differ inside of a number, its beginning counts.
  std::size_t begin = at;
  while (begin > 0 && IsDigit(a[begin - 1])) --begin;
  const std::string_view left = DigitsAt(a, begin);
  const std::string_view right = DigitsAt(b, begin);
  if (left.empty() || right.empty()) return a <=> b;
  const std::string_view low = number(left);
  const std::string_view high = number(right);
  if (low.size() != high.size()) return low.size() <=> high.size();
  return low == high ? a <=> b : low <=> high;
}

}  // namespace jotlets
