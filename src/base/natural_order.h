// The order in which people count: 9 before 10.
#pragma once

#include <compare>
#include <string_view>

namespace jotlets {

/// Byte by byte, but that numbers inside are compared by their value; of equal ones that with more zeros in
/// front comes first.
std::strong_ordering NaturalOrder(std::string_view a, std::string_view b);

}  // namespace jotlets
