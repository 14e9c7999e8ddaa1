#include "schedule/stack_rules.h"

#include <algorithm>

namespace jotlets {
namespace {

// How far the notes of one round are set off from those of the round before, and how many rounds there are
// before the first place comes up again.
constexpr std::int32_t kRoundOffset = 24;
constexpr std::int32_t kRounds = 8;

}  // namespace

Colour StackColour(const StackRecord& stack, std::span<const StackMember> members) {
  return stack.keepColour || members.empty() ? ColourOfNumber(stack.colour) : members.front().colour;
}

bool WouldGather(std::span<const StackMember> members) {
  return std::ranges::any_of(members,
                             [](const StackMember& member) { return member.state == MemberState::kShown; });
}

bool IsStackRolled(std::int32_t height, std::int32_t rolledHeight) {
  return rolledHeight > 0 && height <= rolledHeight;
}

std::optional<std::size_t> StackList::RowAt(Point at) const {
  if (!area.Contains(at)) return std::nullopt;
  const auto row = static_cast<std::size_t>((std::int64_t{at.y} - area.top + scroll) / rowHeight);
  if (row >= rows) return std::nullopt;
  return row;
}

Rect StackList::RowRect(std::size_t row) const {
  const std::int64_t top =
      std::int64_t{area.top} - scroll + static_cast<std::int64_t>(row) * std::int64_t{rowHeight};
  return RectAt({area.left, Saturated(top)}, {area.Width(), rowHeight});
}

std::int32_t StackList::Height() const {
  return Saturated(static_cast<std::int64_t>(rows) * std::int64_t{rowHeight});
}

std::int32_t StackList::SafeScroll(std::int32_t wanted) const {
  return std::clamp(wanted, 0, std::max(Height() - area.Height(), 0));
}

std::vector<Point> SpreadPlaces(const Rect& stack, std::span<const Size> notes, const Rect& area,
                                std::int32_t gap) {
  const std::int64_t roomRight = std::int64_t{area.right} - stack.right;
  const std::int64_t roomLeft = std::int64_t{stack.left} - area.left;
  const bool toLeft = roomLeft > roomRight;
  const std::int64_t room = std::max(roomLeft, roomRight);
  std::int64_t along = gap;  // from the stack outwards
  std::int64_t top = std::clamp(stack.top, area.top, std::max(area.top, area.bottom));
  std::int64_t rowHeight = 0;
  std::int64_t round = 0;
  std::vector<Point> places;
  places.reserve(notes.size());
  for (const Size& note : notes) {
    if (along + note.width > room && rowHeight > 0) {
      along = gap + round * kRoundOffset;
      top += rowHeight + gap;
      rowHeight = 0;
    }
    if (rowHeight == 0 && top + note.height > area.bottom && top > area.top + round * kRoundOffset) {
      if (!places.empty()) round = (round + 1) % kRounds;
      along = gap + round * kRoundOffset;
      top = area.top + round * kRoundOffset;
    }
    std::int64_t left = toLeft ? stack.left - along - note.width : stack.right + along;
    // Where the stack leaves no room on either side, the notes lie over it.
    left = std::max<std::int64_t>(std::min<std::int64_t>(left, std::int64_t{area.right} - note.width),
                                  area.left);
    places.push_back({Saturated(left), Saturated(top)});
    along += std::int64_t{note.width} + gap;
    rowHeight = std::max<std::int64_t>(rowHeight, note.height);
  }
  return places;
}

std::optional<Point> RescuedStackPosition(const Rect& stack, const Rect& screen) {
  if (screen.Contains(stack.TopLeft())) return std::nullopt;
  return Point{Saturated(std::int64_t{screen.left} + screen.Width() / 2 - stack.Width() / 2),
               Saturated(std::int64_t{screen.top} + screen.Height() / 2 - stack.Height() / 2)};
}

}  // namespace jotlets
