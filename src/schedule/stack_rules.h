// What a stack shows and does with its notes: its list, its colour, and where its notes go when they are
// spread out. Windows ask; nothing here knows them.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "data/jotlet_data.h"
#include "data/options.h"
#include "data/stack_record.h"

namespace jotlets {

/// How a note of a stack is there at the moment.
enum class MemberState {
  kShown,
  kHidden,
  kAsleep,
  kWaiting,  // for the window that it is attached to
};

/// A line of a stack's list.
struct StackMember {
  Text id;
  Text title;
  Colour colour;
  bool alarm = false;  // is set
  MemberState state = MemberState::kShown;
  Text until = {};  // of one that is away: until when, or that it waits
  friend bool operator==(const StackMember&, const StackMember&) = default;
};

/// Whether the button of a stack with these members gathers them in: some are shown. Else it spreads them
/// out.
bool WouldGather(std::span<const StackMember> members);

/// The colour that a stack is drawn in. With "keep colour" it is the stack's own, which the user chose; else
/// it is that of the first note in the list, so that a stack of green notes is green, and the stack's own
/// while it is empty.
Colour StackColour(const StackRecord& stack, std::span<const StackMember> members);

/// A stack is rolled up when it is no higher than its skin's `rolledheight` (0: the skin has no such form).
/// The record has no field of its own for it, so the height that it had before is known to its window only.
bool IsStackRolled(std::int32_t height, std::int32_t rolledHeight);

/// The list in a stack's window: rows of one height, scrolled by pixels.
struct StackList {
  Rect area;  // in client pixels
  std::int32_t rowHeight = 1;
  std::size_t rows = 0;
  std::int32_t scroll = 0;  // pixels of the list above the area

  /// The row under a point; nothing beside and below them.
  std::optional<std::size_t> RowAt(Point at) const;
  /// Where a row lies; it may reach out of the area.
  Rect RowRect(std::size_t row) const;
  /// Height of all rows.
  std::int32_t Height() const;
  /// `wanted` as far as the list can be scrolled.
  std::int32_t SafeScroll(std::int32_t wanted) const;
};

/// Where notes are put that are spread out next to a stack, in their order: side by side on the side of it
/// that has more room in `area` (of a monitor), in rows from the stack's top down. Notes that find no room
/// begin again at the top of the area, set off a little, so that of each one something is seen.
std::vector<Point> SpreadPlaces(const Rect& stack, std::span<const Size> notes, const Rect& area,
                                std::int32_t gap);

/// The place of a stack whose top-left corner lies outside the virtual screen: its middle. Nothing for one
/// that lies inside.
std::optional<Point> RescuedStackPosition(const Rect& stack, const Rect& screen);

}  // namespace jotlets
