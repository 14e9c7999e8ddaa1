#include "manage/manage_columns.h"

#include <algorithm>
#include <numeric>

namespace jotlets {
namespace {

constexpr std::size_t kLast = kManageColumns - 1;
constexpr std::int32_t kMinLast = 90;
constexpr std::int32_t kEnoughLast = 180;

struct Giving {
  std::size_t column;
  std::int32_t least;
};

// In the order in which they give way: created, type, title, changed.
constexpr std::array kGiving{Giving{2, 0}, Giving{1, 0}, Giving{0, 140}, Giving{3, 90}};

}  // namespace

ColumnWidths FittedColumns(const ColumnWidths& wanted, std::int32_t room) {
  ColumnWidths widths = wanted;
  widths[kLast] = 0;
  std::int32_t left = room - std::accumulate(widths.begin(), widths.end(), 0);
  for (const auto& [column, least] : kGiving) {
    if (left >= kMinLast) break;
    const std::int32_t given = std::clamp(kMinLast - left, 0, std::max(widths[column] - least, 0));
    // Of a time or a type half a column tells nothing.
    const std::int32_t taken = least == 0 && given > 0 ? widths[column] : given;
    widths[column] -= taken;
    left += taken;
  }
  if (wanted[0] == kUsualTitleWidth) {
    const std::int32_t more = std::max(left - kEnoughLast, 0);
    widths[0] += more;
    left -= more;
  }
  widths[kLast] = std::max(left, kMinLast);
  return widths;
}

}  // namespace jotlets
