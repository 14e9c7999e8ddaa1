#include "skin/skin_scaling.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "picture/bmp_picture.h"

namespace jotlets {
namespace {

constexpr std::int32_t kWhole = 100;

class Scale {
 public:
  explicit Scale(std::int32_t dpi) : dpi_(dpi) {}

  std::int32_t Of(std::int32_t length) const { return ScaledLength(length, dpi_); }
  void Grow(std::int32_t& length) const { length = Of(length); }
  void Grow(Coordinate& at) const {
    if (at.marker != CoordinateMarker::kPercent) Grow(at.value);
  }
  void Grow(CoordinatePoint& at) const {
    Grow(at.x);
    Grow(at.y);
  }
  // A last pixel that belongs to what it ends: the one behind it is a place, and scales.
  void GrowLast(Coordinate& at) const {
    if (at.marker == CoordinateMarker::kPercent) return;
    at.value = Of(Saturated(std::int64_t{at.value} + 1)) - 1;
  }
  void GrowLast(CoordinatePoint& at) const {
    GrowLast(at.x);
    GrowLast(at.y);
  }
  void Grow(Size& size) const {
    Grow(size.width);
    Grow(size.height);
  }
  void Grow(Point& at) const {
    Grow(at.x);
    Grow(at.y);
  }
  void Grow(SheetPlace& place) const {
    if (place.picture) Grow(*place.picture);
    if (place.mask) Grow(*place.mask);
  }
  void Grow(DrawBounds& bounds) const {
    constexpr std::int32_t kNone = std::numeric_limits<std::int32_t>::max();
    for (std::int32_t* bound : {&bounds.widthMinimum, &bounds.heightMinimum}) Grow(*bound);
    // The next size up is where it ends.
    for (std::int32_t* bound : {&bounds.widthMaximum, &bounds.heightMaximum})
      if (*bound != kNone) *bound = Of(Saturated(std::int64_t{*bound} + 1)) - 1;
  }
  void Grow(SkinElement& element) const {
    Grow(element.place);
    if (element.topLeft) Grow(*element.topLeft);
    if (element.bottomRight) GrowLast(*element.bottomRight);
    if (element.extent) Grow(*element.extent);
    if (element.size) Grow(*element.size);
    Grow(element.drawBounds);
    Grow(element.width);
    Grow(element.height);
    Grow(element.pack);
    Grow(element.corner);
    for (SheetPlace* place :
         {&element.source, &element.sourceOff, &element.sourceRollover, &element.sourceChosen})
      Grow(*place);
  }

 private:
  std::int32_t dpi_;
};

// Where a pixel of the larger or smaller picture lies in the source: the pixels before and behind, and how
// much of the second counts, of 256.
struct Tap {
  std::size_t first = 0;
  std::size_t second = 0;
  std::uint32_t part = 0;
};

std::vector<Tap> Taps(std::int32_t from, std::int32_t to, bool hard) {
  std::vector<Tap> taps;
  for (std::int32_t at = 0; at < to; ++at) {
    const double place = (at + 0.5) * from / to - 0.5;
    const double last = from - 1.0;
    const auto first = static_cast<std::size_t>(std::clamp(std::floor(place), 0.0, last));
    const auto nearest = static_cast<std::size_t>(std::clamp(std::round(place), 0.0, last));
    const auto second = static_cast<std::size_t>(std::clamp(std::floor(place) + 1, 0.0, last));
    const double part = std::clamp(place - static_cast<double>(first), 0.0, 1.0);
    taps.push_back(hard ? Tap{nearest, nearest, 0}
                        : Tap{first, second, static_cast<std::uint32_t>(std::lround(part * 256))});
  }
  return taps;
}

Size ScaledSize(Size size, std::int32_t dpi) {
  return {std::max(ScaledLength(size.width, dpi), 1), std::max(ScaledLength(size.height, dpi), 1)};
}

// The usual sheet, or one that the skin carries for this scale or a larger one.
Picture SheetFor(const LoadedSkin& skin, std::int32_t dpi) {
  for (const ScaledSheet& sheet : skin.sheets) {
    if (sheet.percent * kUsualDpi < dpi * kWhole) continue;
    auto picture = DecodePicture(sheet.bytes);
    if (picture && picture->size == ScaledSize(skin.sheet.size, sheet.percent * kUsualDpi / kWhole))
      return *std::move(picture);
  }
  return skin.sheet;
}

// The text of a skin as if it had been written for so many dots per inch. Percentages stay.
SkinData ScaledSkinData(const SkinData& skin, std::int32_t dpi) {
  SkinData scaled = skin;
  const Scale scale(dpi);
  scaled.dpi = dpi;
  for (std::int32_t* length : {&scaled.top, &scaled.bottom, &scaled.left, &scaled.right, &scaled.rolledHeight,
                               &scaled.minimumWidth, &scaled.minimumHeight, &scaled.minimumThumbTrackHeight,
                               &scaled.rowHeight, &scaled.formatBar, &scaled.tagLine, &scaled.alarmFoot})
    scale.Grow(*length);
  if (scaled.pictureFrame) scale.Grow(*scaled.pictureFrame);
  for (Coordinate& at : scaled.region) scale.Grow(at);
  if (scaled.titlebar) {
    scale.Grow(scaled.titlebar->topLeft);
    scale.GrowLast(scaled.titlebar->bottomRight);
  }
  if (scaled.scrollbar) {
    scale.Grow(scaled.scrollbar->x);
    scale.Grow(scaled.scrollbar->top);
    scale.GrowLast(scaled.scrollbar->bottom);
    scale.Grow(scaled.scrollbar->width);
  }
  scale.Grow(scaled.scrollbarDrawBounds);
  scale.Grow(scaled.formatBarDrawBounds);
  scale.Grow(scaled.alarmFootDrawBounds);
  for (SkinElement& element : scaled.elements) scale.Grow(element);
  return scaled;
}

// A picture made larger or smaller. Between the pixels of the source colours are mixed, unless `hard`: then
// each is one of the source.
Picture Resized(const Picture& picture, Size size, bool hard) {
  Picture made{size, std::vector<std::uint8_t>(static_cast<std::size_t>(size.width) *
                                               static_cast<std::size_t>(size.height) * 4)};
  const std::vector<Tap> columns = Taps(picture.size.width, size.width, hard);
  const std::vector<Tap> rows = Taps(picture.size.height, size.height, hard);
  const auto width = static_cast<std::size_t>(picture.size.width);
  std::uint8_t* to = made.pixels.data();
  for (const Tap& row : rows) {
    const std::uint8_t* const upper = &picture.pixels[row.first * width * 4];
    const std::uint8_t* const lower = &picture.pixels[row.second * width * 4];
    for (const Tap& column : columns) {
      for (std::size_t channel = 0; channel < 4; ++channel, ++to) {
        const auto across = [&](const std::uint8_t* line) {
          return line[column.first * 4 + channel] * (256 - column.part) +
                 line[column.second * 4 + channel] * column.part;
        };
        const std::uint32_t sum = across(upper) * (256 - row.part) + across(lower) * row.part;
        *to = static_cast<std::uint8_t>((sum + 0x8000) >> 16);
      }
    }
  }
  return made;
}

}  // namespace

LoadedSkin ScaledSkin(const LoadedSkin& skin, std::int32_t dpi) {
  LoadedSkin scaled;
  scaled.data = ScaledSkinData(skin.data, dpi);
  scaled.path = skin.path;
  const Size size = ScaledSize(skin.sheet.size, dpi);
  if (skin.sheet.pixels.empty() || std::int64_t{size.width} * size.height > kMaxSheetPixels) return scaled;
  scaled.sheet = SheetFor(skin, dpi);
  // Mixed with its neighbours, the colour that is seen through would be another one.
  if (scaled.sheet.size != size)
    scaled.sheet = Resized(scaled.sheet, size, skin.data.transparent.has_value());
  return scaled;
}

}  // namespace jotlets
