#include "skin/skin_layout.h"

#include <algorithm>
#include <limits>

namespace jotlets {
namespace {

CoordinateSpace SpaceOf(const SkinView& view) { return {view.window, view.thumb}; }

bool Wants(std::optional<bool> wanted, bool state) { return !wanted || *wanted == state; }

bool HoldsCondition(const SkinElement& element, const SkinView& view) {
  if (element.condition.empty()) return true;
  const std::optional<SkinState> state = SkinStateFromName(element.condition);
  const std::int32_t value = state && view.states.Has(*state) ? 1 : 0;
  return value == element.conditionValue;
}

// How far the text can be scrolled.
std::int64_t LastPosition(const ScrollState& scroll) {
  return std::max<std::int64_t>(std::int64_t{scroll.range} - scroll.page, 0);
}

std::int32_t ThumbHeight(const Rect& track, std::int32_t minimumHeight, const ScrollState& scroll) {
  if (LastPosition(scroll) == 0) return track.Height();
  const std::int64_t seen =
      std::int64_t{track.Height()} * std::max(scroll.page, 0) / std::max(scroll.range, 1);
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(seen, std::min(minimumHeight, track.Height()), track.Height()));
}

}  // namespace

Rect ElementRect(const SkinElement& element, const SkinView& view) {
  const CoordinateSpace space = SpaceOf(view);
  if (element.topLeft && element.bottomRight)
    return ResolveCorners({*element.topLeft, *element.bottomRight}, space);
  if (element.extent) return ResolvePlaceAndExtent(element.place, *element.extent, space);
  return ResolvePlaceAndSize(element.place, element.size.value_or(Size{}), space);
}

bool IsShown(const SkinElement& element, const SkinView& view) {
  const bool hiddenHere = view.rolled ? element.rolled == false : element.normal == false;
  return !hiddenHere && Wants(element.focus, view.focus) && Wants(element.mouseOver, view.mouseOver) &&
         element.drawBounds.Hold(view.window) && HoldsCondition(element, view);
}

namespace {

const SheetPlace* PictureOf(const SkinElement& element, bool hot, const SkinView& view) {
  const SheetPlace* picture = &element.source;
  if (element.kind == ElementKind::kIndicator) {
    const std::optional<SkinState> state = SkinStateFromName(element.type);
    if (!state || !view.states.Has(*state)) picture = &element.sourceOff;
  } else if (element.kind != ElementKind::kButton) {
    return nullptr;
  } else if (hot && element.sourceRollover.picture) {
    picture = &element.sourceRollover;
  }
  return picture->picture ? picture : nullptr;
}

// Ends the text before the first glyph that lies on it, a little off that.
void GiveWay(Rect& text, const std::vector<ArrangedElement>& elements) {
  for (const ArrangedElement& other : elements) {
    if (other.shown && other.picture != nullptr && other.area.left > text.left && Overlap(text, other.area))
      text.right = std::max(other.area.left - other.area.Width() / 4, text.left);
  }
}

}  // namespace

std::vector<ArrangedElement> ArrangeElements(const SkinData& skin, const SkinView& view) {
  std::vector<ArrangedElement> arranged(skin.elements.size());
  std::int32_t packed = 0;
  for (std::size_t index = 0; index < arranged.size(); ++index) {
    const SkinElement& element = skin.elements[index];
    ArrangedElement& made = arranged[index];
    made.shown = IsShown(element, view);
    if (!made.shown) continue;
    made.area = ElementRect(element, view);
    made.picture = PictureOf(element, index == view.hotButton, view);
    if (element.pack == 0) continue;
    made.area = RectAt({Saturated(std::int64_t{made.area.left} + packed), made.area.top},
                       {made.area.Width(), made.area.Height()});
    if (made.picture == nullptr) packed = std::min(packed + element.pack, kLongestLength);
  }
  for (std::size_t index = 0; index < arranged.size(); ++index)
    if (skin.elements[index].giveWay && arranged[index].shown) GiveWay(arranged[index].area, arranged);
  return arranged;
}

std::size_t ButtonAt(const SkinData& skin, const SkinView& view, Point at) {
  for (std::size_t index = skin.elements.size(); index-- > 0;) {
    const SkinElement& element = skin.elements[index];
    if (element.kind == ElementKind::kButton && IsShown(element, view) &&
        ElementRect(element, view).Contains(at))
      return index;
  }
  return kNoElement;
}

Rect AreaUnderMouse(const SkinData& skin, const SkinView& view) {
  Rect all;
  for (const SkinElement& element : skin.elements) {
    if (element.mouseOver == true && IsShown(element, view)) all = Enclosing(all, ElementRect(element, view));
  }
  return all;
}

bool HasRoomForFormatBar(const SkinData& skin, const SkinView& view) {
  return skin.formatBar > 0 && !view.rolled && skin.formatBarDrawBounds.Hold(view.window);
}

Rect FormatBarArea(const SkinData& skin, const SkinView& view) {
  const bool hasBar = view.states.Has(SkinState::kFormatBar) || view.states.Has(SkinState::kPictureBar);
  if (!hasBar || !HasRoomForFormatBar(skin, view)) return {};
  return {0, std::max(view.window.height - skin.formatBar, 0), view.window.width, view.window.height};
}

Rect AlarmFootArea(const SkinData& skin, const SkinView& view) {
  if (!view.states.Has(SkinState::kSounding) || !skin.alarmFootDrawBounds.Hold(view.window) || view.rolled)
    return {};
  return {0, std::max(view.window.height - skin.alarmFoot, 0), view.window.width, view.window.height};
}

std::optional<SkinState> TagOf(const SkinData& skin, const SkinView& view) {
  constexpr std::int32_t kLinesLeft = 3;
  const SkinStates& states = view.states;
  const std::int64_t room = std::int64_t{view.window.height} - skin.top;
  if (skin.tagLine <= 0 || view.rolled || states.Has(SkinState::kFormatBar) ||
      states.Has(SkinState::kSounding) || states.Has(SkinState::kImage) ||
      room < std::int64_t{kLinesLeft} * skin.tagLine)
    return std::nullopt;
  if (states.Has(SkinState::kAlarm)) return SkinState::kTagAlarm;
  if (states.Has(SkinState::kAttached)) return SkinState::kTagAttached;
  if (states.Has(SkinState::kInStack)) return SkinState::kTagInStack;
  return std::nullopt;
}

Rect TextArea(const SkinData& skin, const SkinView& view) {
  if (view.rolled) return {};
  const std::int32_t line = view.states.Has(SkinState::kTagLine) ? skin.tagLine : 0;
  const std::int32_t bar = std::max(FormatBarArea(skin, view).Height(), AlarmFootArea(skin, view).Height());
  const std::int32_t foot = std::max(skin.bottom + bar, line);
  Rect area{skin.left, skin.top, view.window.width - skin.right,
            Saturated(std::int64_t{view.window.height} - foot)};
  if (view.states.Has(SkinState::kImage) && skin.pictureFrame && skin.titlebar) {
    const std::int32_t frame = *skin.pictureFrame;
    const std::int32_t below = ResolveCorners(*skin.titlebar, {view.window, {}}).bottom;
    area = {frame, below, view.window.width - frame,
            Saturated(std::int64_t{view.window.height} - std::max(frame, bar))};
  }
  area.right = std::max(area.right, area.left);
  area.bottom = std::max(area.bottom, area.top);
  return area;
}

Size MinimumSize(const SkinData& skin) { return {skin.minimumWidth, skin.minimumHeight}; }

bool IsScrollbarRequired(const SkinData& skin, const SkinView& view, const ScrollState& scroll) {
  return skin.useScrollbar && skin.scrollbar && !view.rolled && skin.scrollbarDrawBounds.Hold(view.window) &&
         scroll.page > 0 && scroll.range > scroll.page;
}

Rect ScrollTrack(const SkinData& skin, Size window) {
  if (!skin.scrollbar) return {};
  return ResolveTrack(*skin.scrollbar, {window, {}});
}

Rect ScrollThumb(const Rect& track, std::int32_t minimumHeight, const ScrollState& scroll) {
  const std::int32_t height = ThumbHeight(track, minimumHeight, scroll);
  const std::int64_t way = track.Height() - height;
  const std::int64_t last = std::max<std::int64_t>(LastPosition(scroll), 1);
  const std::int64_t at = std::clamp<std::int64_t>(scroll.position, 0, last);
  const std::int32_t top = track.top + static_cast<std::int32_t>((way * at + last / 2) / last);
  return {track.left, top, track.right, top + height};
}

std::int32_t ScrollPositionAt(std::int32_t thumbTop, const Rect& track, std::int32_t minimumHeight,
                              const ScrollState& scroll) {
  const std::int64_t way = track.Height() - ThumbHeight(track, minimumHeight, scroll);
  if (way <= 0) return 0;
  const std::int64_t at = std::clamp<std::int64_t>(std::int64_t{thumbTop} - track.top, 0, way);
  const std::int64_t position = (at * LastPosition(scroll) + way / 2) / way;
  return static_cast<std::int32_t>(
      std::min<std::int64_t>(position, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace jotlets
