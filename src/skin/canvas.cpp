#include "skin/canvas.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace jotlets {
namespace {

constexpr std::int32_t kShortestRun = 64;

std::uint8_t Between(std::uint8_t from, std::uint8_t to, std::int64_t at, std::int64_t last) {
  return static_cast<std::uint8_t>(from + (std::int64_t{to} - from) * at / std::max<std::int64_t>(last, 1));
}

void Blend(std::uint8_t* pixel, Colour colour, std::uint8_t alpha) {
  const std::uint32_t rest = kOpaque - alpha;
  pixel[0] = static_cast<std::uint8_t>(ByteProduct(colour.b, alpha) + ByteProduct(pixel[0], rest));
  pixel[1] = static_cast<std::uint8_t>(ByteProduct(colour.g, alpha) + ByteProduct(pixel[1], rest));
  pixel[2] = static_cast<std::uint8_t>(ByteProduct(colour.r, alpha) + ByteProduct(pixel[2], rest));
}

}  // namespace

void Canvas::SetClip(const Rect& area) { clip_ = CommonPart(clip_, area); }

void Canvas::Fill(const Rect& area, Colour colour, std::uint8_t alpha) {
  const Rect part = CommonPart(area, clip_);
  if (IsEmptyRect(part)) return;
  const std::size_t left = static_cast<std::size_t>(part.left) * 4;
  const std::size_t count = static_cast<std::size_t>(part.Width()) * 4;
  std::uint8_t* const first = Row(part.top) + left;
  if (alpha == kOpaque) {
    const std::uint8_t pixel[4] = {colour.b, colour.g, colour.r, kOpaque};
    for (std::size_t at = 0; at < count; at += 4) std::memcpy(first + at, pixel, sizeof pixel);
    // Copies of a whole row are several times as fast as pixels.
    for (std::int32_t y = part.top + 1; y < part.bottom; ++y) std::memcpy(Row(y) + left, first, count);
    return;
  }
  for (std::int32_t y = part.top; y < part.bottom; ++y) {
    std::uint8_t* const row = Row(y) + left;
    for (std::size_t at = 0; at < count; at += 4) Blend(row + at, colour, alpha);
  }
}

void Canvas::FillRound(const Rect& area, std::int32_t radius, Colour colour, std::uint8_t alpha) {
  const Rect part = CommonPart(area, clip_);
  if (IsEmptyRect(part)) return;
  radius = std::clamp(radius, 0, std::min(area.Width(), area.Height()) / 2);
  const Rect between{area.left + radius, area.top, area.right - radius, area.bottom};
  Fill({area.left, area.top + radius, area.right, area.bottom - radius}, colour, alpha);
  // A corner may be much larger than what of it is seen.
  for (std::int32_t y = part.top; y < part.bottom; ++y) {
    const std::int32_t row = std::min(y - area.top, area.bottom - 1 - y);
    if (row >= radius) {
      y = std::max(y, std::min(area.bottom - radius, part.bottom) - 1);
      continue;
    }
    Fill({between.left, y, between.right, y + 1}, colour, alpha);
    const auto corner = [&](std::int32_t from, std::int32_t to) {
      for (std::int32_t x = std::max(from, part.left); x < std::min(to, part.right); ++x) {
        const std::int32_t column = std::min(x - area.left, area.right - 1 - x);
        const std::uint32_t covered = ByteProduct(CornerCoverage({column, row}, radius), alpha);
        Fill({x, y, x + 1, y + 1}, colour, static_cast<std::uint8_t>(covered));
      }
    };
    corner(area.left, between.left);
    corner(between.right, area.right);
  }
}

void Canvas::FillGradient(const Rect& area, Colour from, Colour to, bool downwards, std::uint8_t alpha) {
  const Rect part = CommonPart(area, clip_);
  if (IsEmptyRect(part)) return;
  const auto colourAt = [&](std::int64_t at, std::int64_t last) {
    return Colour{Between(from.r, to.r, at, last), Between(from.g, to.g, at, last),
                  Between(from.b, to.b, at, last)};
  };
  if (downwards) {
    for (std::int32_t y = part.top; y < part.bottom; ++y) {
      Fill({part.left, y, part.right, y + 1},
           colourAt(std::int64_t{y} - area.top, std::int64_t{area.bottom} - area.top - 1), alpha);
    }
  } else {
    for (std::int32_t x = part.left; x < part.right; ++x) {
      Fill({x, part.top, x + 1, part.bottom},
           colourAt(std::int64_t{x} - area.left, std::int64_t{area.right} - area.left - 1), alpha);
    }
  }
}

Colour Tinted(Colour colour, Colour tint) {
  return {static_cast<std::uint8_t>(ByteProduct(colour.r, tint.r)),
          static_cast<std::uint8_t>(ByteProduct(colour.g, tint.g)),
          static_cast<std::uint8_t>(ByteProduct(colour.b, tint.b))};
}

// Puts rows of a part on to a canvas. A row is first made ready, pixel by pixel, and can then be put down as
// often as it comes up.
class PicturePen {
 public:
  PicturePen(Canvas& canvas, const SheetPart& part) : canvas_(canvas), part_(part) {}

  const Rect& Clip() const { return canvas_.clip_; }

  /// Makes row `y` of the part ready. Both it and the columns, one for each pixel, count from the corner of
  /// the part's source and lie inside it.
  void PrepareRow(std::int32_t y, const std::vector<std::int32_t>& columns) {
    colours_.assign(columns.size() * 4, 0);
    rests_.assign(columns.size(), kOpaque);
    keys_.assign(columns.size(), false);
    for (std::size_t at = 0; at < columns.size(); ++at) PreparePixel(at, columns[at], y);
    covers_ = std::all_of(rests_.begin(), rests_.end(), [](std::uint8_t rest) { return rest == 0; });
  }

  /// Mixes each pixel with the one of `other` at its place, of which `weights` says how much of 256.
  void MixWith(const PicturePen& other, const std::vector<std::uint32_t>& weights) {
    for (std::size_t at = 0; at < rests_.size(); ++at) {
      const std::uint32_t weight = weights[at];
      if (keys_[at] || other.keys_[at]) {
        if (weight >= kEvenly) CopyPixel(other, at);
        continue;
      }
      for (std::size_t i = at * 4; i < at * 4 + 4; ++i)
        colours_[i] = Mixed(colours_[i], other.colours_[i], weight);
      rests_[at] = Mixed(rests_[at], other.rests_[at], weight);
    }
    covers_ = std::all_of(rests_.begin(), rests_.end(), [](std::uint8_t rest) { return rest == 0; });
  }

  /// Puts the row down from `left` to `right`, over and over.
  void PutRow(std::int32_t y, std::int32_t left, std::int32_t right) const {
    std::uint8_t* to = canvas_.Row(y) + static_cast<std::size_t>(left) * 4;
    for (auto count = static_cast<std::size_t>(right - left); count > 0;) {
      const std::size_t run = std::min(count, rests_.size());
      if (covers_) {
        std::memcpy(to, colours_.data(), run * 4);
      } else {
        BlendRun(to, run);
      }
      to += run * 4;
      count -= run;
    }
  }

 private:
  static constexpr std::uint32_t kEvenly = 128;

  static std::uint8_t Mixed(std::uint32_t one, std::uint32_t other, std::uint32_t weight) {
    return static_cast<std::uint8_t>((one * (256 - weight) + other * weight + kEvenly) / 256);
  }

  void CopyPixel(const PicturePen& other, std::size_t at) {
    std::memcpy(&colours_[at * 4], &other.colours_[at * 4], 4);
    rests_[at] = other.rests_[at];
    keys_[at] = other.keys_[at];
  }

  void PreparePixel(std::size_t at, std::int32_t x, std::int32_t y) {
    const std::uint8_t* from =
        PixelAt(std::int64_t{part_.source.left} + x, std::int64_t{part_.source.top} + y);
    if (from == nullptr) return;
    // Most of a sign is empty, and stays as it was made: nothing, put over what is there.
    constexpr std::uint8_t kEmpty[4] = {};
    if (std::memcmp(from, kEmpty, sizeof kEmpty) == 0) return;
    std::uint8_t* const colour = &colours_[at * 4];
    if (IsKey(from)) {
      std::memcpy(colour, from, 4);
      rests_[at] = 0;
      keys_[at] = true;
      return;
    }
    const std::uint32_t opacity = ByteProduct(part_.alpha, MaskAt(x, y));
    const Colour tint = part_.ink.value_or(part_.tint.value_or(Colour{255, 255, 255}));
    const std::uint32_t tints[] = {tint.b, tint.g, tint.r};
    for (int channel = 0; channel < 3; ++channel) {
      const std::uint32_t own = part_.ink ? from[3] : from[channel];
      colour[channel] = static_cast<std::uint8_t>(ByteProduct(ByteProduct(own, tints[channel]), opacity));
    }
    colour[3] = kOpaque;
    rests_[at] = static_cast<std::uint8_t>(kOpaque - ByteProduct(from[3], opacity));
  }

  void BlendRun(std::uint8_t* to, std::size_t count) const {
    const std::uint8_t* colour = colours_.data();
    for (std::size_t at = 0; at < count; ++at, to += 4, colour += 4) {
      for (int channel = 0; channel < 3; ++channel) {
        const std::uint32_t sum = colour[channel] + ByteProduct(to[channel], rests_[at]);
        to[channel] = static_cast<std::uint8_t>(std::min<std::uint32_t>(sum, 255));
      }
    }
  }

  const std::uint8_t* PixelAt(std::int64_t x, std::int64_t y) const {
    const Size size = part_.sheet.size;
    if (x < 0 || y < 0 || x >= size.width || y >= size.height) return nullptr;
    return part_.sheet.pixels.data() + static_cast<std::size_t>(y * size.width + x) * 4;
  }
  bool IsKey(const std::uint8_t* pixel) const {
    return part_.key && pixel[3] == kOpaque && pixel[0] == part_.key->b && pixel[1] == part_.key->g &&
           pixel[2] == part_.key->r;
  }
  std::uint32_t MaskAt(std::int32_t x, std::int32_t y) const {
    if (!part_.mask) return kOpaque;
    const std::uint8_t* mask = PixelAt(std::int64_t{part_.mask->x} + x, std::int64_t{part_.mask->y} + y);
    // A mask is grey: any of its channels is its brightness.
    return mask == nullptr ? 0 : mask[1];
  }

  Canvas& canvas_;
  const SheetPart& part_;
  std::vector<std::uint8_t> colours_;  // of the row: what each pixel adds, in the form of the canvas
  std::vector<std::uint8_t> rests_;    // and how much of what was there remains
  std::vector<bool> keys_;             // copied as they are
  bool covers_ = false;                // nothing of it remains anywhere
};

void DrawPart(Canvas& canvas, const SheetPart& part, Point at) {
  TilePart(canvas, part, {at.x, at.y, at.x + part.source.Width(), at.y + part.source.Height()});
}

void TilePart(Canvas& canvas, const SheetPart& part, const Rect& area) {
  const std::int32_t width = part.source.Width();
  const std::int32_t height = part.source.Height();
  PicturePen pen(canvas, part);
  const Rect drawn = CommonPart(area, pen.Clip());
  if (width <= 0 || height <= 0 || IsEmptyRect(drawn)) return;
  // Narrow parts are put down several at a time.
  const std::int32_t run = width * (std::max(kShortestRun / width, 1));
  std::vector<std::int32_t> columns(static_cast<std::size_t>(std::min(run, drawn.Width())));
  for (std::size_t at = 0; at < columns.size(); ++at)
    columns[at] = (drawn.left - area.left + static_cast<std::int32_t>(at)) % width;
  for (std::int32_t y = drawn.top; y < drawn.bottom; ++y) {
    pen.PrepareRow((y - area.top) % height, columns);
    pen.PutRow(y, drawn.left, drawn.right);
  }
}

namespace {

void StretchNearest(Canvas& canvas, const SheetPart& part, const Rect& area) {
  const std::int64_t width = part.source.Width();
  const std::int64_t height = part.source.Height();
  PicturePen pen(canvas, part);
  const Rect drawn = CommonPart(area, pen.Clip());
  if (width <= 0 || height <= 0 || IsEmptyRect(drawn)) return;
  std::vector<std::int32_t> columns(static_cast<std::size_t>(drawn.Width()));
  for (std::size_t at = 0; at < columns.size(); ++at) {
    const std::int64_t x = std::int64_t{drawn.left} - area.left + static_cast<std::int64_t>(at);
    columns[at] = static_cast<std::int32_t>(x * width / area.Width());
  }
  std::int32_t taken = -1;
  for (std::int32_t y = drawn.top; y < drawn.bottom; ++y) {
    const auto row = static_cast<std::int32_t>((std::int64_t{y} - area.top) * height / area.Height());
    if (std::exchange(taken, row) != row) pen.PrepareRow(row, columns);
    pen.PutRow(y, drawn.left, drawn.right);
  }
}

// Between which two pixels of a part each of a row or a column lies, and how near the second, of 256.
struct Neighbours {
  std::vector<std::int32_t> first;
  std::vector<std::int32_t> second;
  std::vector<std::uint32_t> weights;
};

// For the pixels from `from` to `to` of a length that starts at `start`.
Neighbours NeighboursOf(std::int32_t from, std::int32_t to, std::int32_t start, std::int64_t length,
                        std::int64_t source) {
  Neighbours places;
  for (std::int64_t at = from; at < to; ++at) {
    // The middles of the pixels lie on one another.
    const std::int64_t exact = ((at - start) * 2 + 1) * source * 128 / length - 128;
    const std::int64_t within = std::clamp<std::int64_t>(exact, 0, (source - 1) * 256);
    const auto first = static_cast<std::int32_t>(within / 256);
    places.first.push_back(first);
    places.second.push_back(static_cast<std::int32_t>(std::min<std::int64_t>(first + 1, source - 1)));
    places.weights.push_back(static_cast<std::uint32_t>(within % 256));
  }
  return places;
}

void StretchMixed(Canvas& canvas, const SheetPart& part, const Rect& area) {
  PicturePen above(canvas, part);
  PicturePen below(canvas, part);
  PicturePen beside(canvas, part);
  const Rect drawn = CommonPart(area, above.Clip());
  if (part.source.Width() <= 0 || part.source.Height() <= 0 || IsEmptyRect(drawn)) return;
  const Neighbours columns =
      NeighboursOf(drawn.left, drawn.right, area.left, area.Width(), part.source.Width());
  const Neighbours rows =
      NeighboursOf(drawn.top, drawn.bottom, area.top, area.Height(), part.source.Height());
  const auto prepare = [&](PicturePen& pen, std::int32_t row) {
    pen.PrepareRow(row, columns.first);
    beside.PrepareRow(row, columns.second);
    pen.MixWith(beside, columns.weights);
  };
  for (std::int32_t y = drawn.top; y < drawn.bottom; ++y) {
    const auto at = static_cast<std::size_t>(y - drawn.top);
    prepare(above, rows.first[at]);
    prepare(below, rows.second[at]);
    above.MixWith(below, std::vector<std::uint32_t>(columns.weights.size(), rows.weights[at]));
    above.PutRow(y, drawn.left, drawn.right);
  }
}

}  // namespace

void StretchPart(Canvas& canvas, const SheetPart& part, const Rect& area, Sampling sampling) {
  sampling == Sampling::kMixed ? StretchMixed(canvas, part, area) : StretchNearest(canvas, part, area);
}

}  // namespace jotlets
