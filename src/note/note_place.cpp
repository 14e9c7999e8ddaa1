#include "note/note_place.h"

#include <algorithm>

namespace jotlets {
namespace {

// Scales that no system has come from errors and must not blow a note up.
constexpr std::int32_t kMinDpi = 24;
constexpr std::int32_t kMaxDpi = 2400;

std::int32_t Usable(std::int32_t dpi) { return std::clamp(dpi, kMinDpi, kMaxDpi); }

Size SizeOf(const Rect& bounds) { return {bounds.Width(), bounds.Height()}; }

// To the nearest pixel.
std::int32_t Scaled(std::int32_t length, std::int32_t from, std::int32_t to) {
  return Saturated((2 * std::int64_t{length} * to + from) / (2 * std::int64_t{from}));
}

}  // namespace

NotePlace::NotePlace(const Rect& chosen, std::int32_t dpi)
    : chosen_(chosen), dpi_(Usable(dpi)), givenSize_(SizeOf(chosen)), givenDpi_(kUsualDpi) {
  shown_ = RectAt(chosen_.TopLeft(), SizeAt(dpi_));
}

Size NotePlace::SizeAt(std::int32_t dpi) const {
  return {Scaled(givenSize_.width, givenDpi_, dpi), Scaled(givenSize_.height, givenDpi_, dpi)};
}

bool NotePlace::MonitorsChanged(const MonitorSetup& screens) {
  const Rect before = shown_;
  shown_ = RectAt(ShownPlace(RectAt(chosen_.TopLeft(), SizeAt(dpi_)), screens).TopLeft(), SizeAt(dpi_));
  return shown_ != before;
}

bool NotePlace::ScaleChanged(std::int32_t dpi) {
  const Rect before = shown_;
  dpi_ = Usable(dpi);
  shown_ = RectAt(shown_.TopLeft(), SizeAt(dpi_));
  return shown_ != before;
}

void NotePlace::Choose(const Rect& bounds) {
  if (SizeOf(bounds) != SizeOf(shown_)) {
    givenSize_ = SizeOf(bounds);
    givenDpi_ = dpi_;
  }
  chosen_ = RectAt(bounds.TopLeft(), SizeAt(kUsualDpi));
  shown_ = bounds;
}

Rect ResizedOn(const Rect& monitor, const Rect& bounds, Point held, Size size) {
  const auto along = [](std::int32_t from, std::int32_t to, std::int32_t at, std::int32_t length,
                        std::int32_t first, std::int32_t end) {
    const std::int64_t before = to > from ? std::int64_t{at} - from : 0;
    const std::int64_t start = at - before * length / std::max<std::int64_t>(std::int64_t{to} - from, 1);
    const std::int64_t middle = std::clamp<std::int64_t>(start + length / 2, first, std::max(end - 1, first));
    return Saturated(middle - length / 2);
  };
  return RectAt({along(bounds.left, bounds.right, held.x, size.width, monitor.left, monitor.right),
                 along(bounds.top, bounds.bottom, held.y, size.height, monitor.top, monitor.bottom)},
                size);
}

}  // namespace jotlets
