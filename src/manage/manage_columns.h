// How wide the columns of the manage window are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace jotlets {

inline constexpr std::size_t kManageColumns = 5;

using ColumnWidths = std::array<std::int32_t, kManageColumns>;

/// The title's, until the user gives it another.
inline constexpr std::int32_t kUsualTitleWidth = 200;

/// The widths at which the columns fit into `room`. `wanted` holds those that the user gave the first four;
/// the last one takes what they leave, and the title what is more than that one needs, unless its own width
/// was chosen. Where that is too little the others give way: the time of making first and the type after the
/// title, which may go altogether, and none further than can be read. All in pixels at 96 dots per inch.
ColumnWidths FittedColumns(const ColumnWidths& wanted, std::int32_t room);

}  // namespace jotlets
