#include "note/rolled.h"

#include <algorithm>
#include <limits>

namespace jotlets {
namespace {

constexpr std::int64_t kFarthest = std::numeric_limits<std::int32_t>::max();

bool HasOwnPlace(const JotletData& record, const RollSettings& settings) {
  return settings.rolledHasAltPosition && IsShownRolled(record, settings);
}

}  // namespace

bool IsShownRolled(const JotletData& record, const RollSettings& settings) {
  return record.rolled && settings.rolledHeight > 0;
}

std::optional<std::int32_t> GetJotletHeight(const JotletData& record, std::int32_t windowHeight,
                                            const RollSettings& settings) {
  if (!IsShownRolled(record, settings)) return windowHeight;
  if (record.height == kNone) return std::nullopt;
  return record.height;
}

std::int32_t HeightFromContent(std::int32_t content, std::int32_t top, std::int32_t bottom) {
  return Saturated(std::int64_t{content} + top + bottom);
}

void StoreBounds(JotletData& record, const Rect& bounds, const RollSettings& settings) {
  const bool own = HasOwnPlace(record, settings);
  (own ? record.altX : record.x) = bounds.left;
  (own ? record.altY : record.y) = bounds.top;
  (own ? record.altWidth : record.width) = bounds.Width();
  if (!IsShownRolled(record, settings)) record.height = bounds.Height();
}

Rect BoundsFor(const JotletData& record, const RollSettings& settings) {
  Point at{record.x, record.y};
  Size size{record.width, IsShownRolled(record, settings) ? settings.rolledHeight : record.height};
  if (HasOwnPlace(record, settings) && record.altX != kNotSet) {
    at.x = record.altX;
    if (record.altY != kNotSet) at.y = record.altY;
    if (record.altWidth > 0) size.width = record.altWidth;
  }
  // A place at the end of what numbers hold gives way: the window would be left without a size.
  return RectAt(
      {std::min(at.x, Saturated(kFarthest - size.width)), std::min(at.y, Saturated(kFarthest - size.height))},
      size);
}

}  // namespace jotlets
