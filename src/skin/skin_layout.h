// Where a skin's parts lie in a window of some size, which of them show, and what is under the mouse.
#pragma once

#include <vector>

#include "action/actions.h"
#include "skin/skin_data.h"
#include "skin/skin_view.h"

namespace jotlets {

/// The element's rectangle in client pixels; it may reach out of the window.
Rect ElementRect(const SkinElement& element, const SkinView& view);

/// Whether the element shows: its draw bounds hold, the window is in the states that it names, and its
/// condition has its value. A condition of an unknown name counts as 0. `normal=0` hides it while the note is
/// not rolled up, `rolled=0` while it is; `focus` and `mouseover` ask for the state they give.
bool IsShown(const SkinElement& element, const SkinView& view);

/// An element as a window shows it.
struct ArrangedElement {
  bool shown = false;
  Rect area;
  const SheetPlace* picture = nullptr;  // of a button or an indicator; null: none in this state
};

/// All elements in their places, those that pack or give way after they have done so.
std::vector<ArrangedElement> ArrangeElements(const SkinData& skin, const SkinView& view);

/// The uppermost button shown under a point, by its place among the elements; `kNoElement` for none.
std::size_t ButtonAt(const SkinData& skin, const SkinView& view, Point at);

/// What shows only under the mouse lies in here.
Rect AreaUnderMouse(const SkinData& skin, const SkinView& view);

/// Whether a note in this view has room for the skin's bar with which texts are formatted.
bool HasRoomForFormatBar(const SkinData& skin, const SkinView& view);

/// The place of that bar; empty while it is not there.
Rect FormatBarArea(const SkinData& skin, const SkinView& view);

/// The place of the foot with which a note in this view is quietened while it sounds; empty while it is not
/// there.
Rect AlarmFootArea(const SkinData& skin, const SkinView& view);

/// What the line at the foot of a note in this view tells: its alarm before its window before its stack, as
/// the one of their tag states; nothing for pictures, beside the bar for formatting, while it
/// sounds, and where hardly any
/// text would be left.
std::optional<SkinState> TagOf(const SkinData& skin, const SkinView& view);

/// The text area: what the widths of the frame and the bar or the line at the foot leave. Empty while the
/// note is rolled up.
Rect TextArea(const SkinData& skin, const SkinView& view);

/// The window's smallest size.
Size MinimumSize(const SkinData& skin);

/// How far a text is scrolled, in pixels.
struct ScrollState {
  std::int32_t position = 0;
  std::int32_t page = 0;   // height that is seen
  std::int32_t range = 0;  // height of all of it
  friend bool operator==(const ScrollState&, const ScrollState&) = default;
};

/// Whether the skin draws its scroll bar: it has one, the window's size is within its bounds, and the text is
/// higher than what is seen of it.
bool IsScrollbarRequired(const SkinData& skin, const SkinView& view, const ScrollState& scroll);

/// The track of the skin's scroll bar; empty when it has none.
Rect ScrollTrack(const SkinData& skin, Size window);

/// The thumb on its track: as high, for the track, as the part of the text that is seen, but never less than
/// `minimumHeight` (nor more than the track).
Rect ScrollThumb(const Rect& track, std::int32_t minimumHeight, const ScrollState& scroll);

/// The scroll position that puts the thumb's top as close to `thumbTop` as possible.
std::int32_t ScrollPositionAt(std::int32_t thumbTop, const Rect& track, std::int32_t minimumHeight,
                              const ScrollState& scroll);

}  // namespace jotlets
