// A rectangle of pixels that a skin is drawn on: colours, gradients and parts of a picture, blended.
#pragma once

#include <cstdint>
#include <optional>

#include "base/geometry.h"
#include "picture/picture.h"

namespace jotlets {

inline constexpr std::uint8_t kOpaque = 255;

/// Draws only inside its pixels and its clip, whatever it is asked for. Pixels are blue, green, red and one
/// unused byte, top row first; they belong to somebody else. Rectangles may reach out to 2^30 either way.
class Canvas {
 public:
  /// `pixels` holds `stride` bytes for each of `size.height` rows.
  Canvas(std::uint8_t* pixels, Size size, std::size_t stride) : pixels_(pixels), stride_(stride) {
    clip_ = {0, 0, size.width, size.height};
  }

  const Rect& Clip() const { return clip_; }
  /// Narrows what is drawn on to the part inside `area`.
  void SetClip(const Rect& area);

  void Fill(const Rect& area, Colour colour, std::uint8_t alpha = kOpaque);
  /// The same with round corners, soft at their edges.
  void FillRound(const Rect& area, std::int32_t radius, Colour colour, std::uint8_t alpha = kOpaque);
  /// From one colour at the top (or left) edge of `area` to the other at its bottom (or right).
  void FillGradient(const Rect& area, Colour from, Colour to, bool downwards, std::uint8_t alpha = kOpaque);

 private:
  friend class PicturePen;
  std::uint8_t* Row(std::int32_t y) const { return pixels_ + static_cast<std::size_t>(y) * stride_; }

  std::uint8_t* pixels_;
  std::size_t stride_;
  Rect clip_;
};

/// A rectangle of a sheet, and how it is put on to the canvas.
struct SheetPart {
  const Picture& sheet;
  Rect source;                // parts outside the sheet are left out
  std::optional<Point> mask;  // a place in the sheet: the brightness there is the opacity
  std::uint8_t alpha = kOpaque;
  std::optional<Colour> tint;  // each channel is multiplied by it
  std::optional<Colour> ink;   // every pixel has this colour, and its own opacity
  std::optional<Colour> key;   // sheet pixels of this colour are copied as they are
};

/// Draws the part once, its top-left corner at `at`.
void DrawPart(Canvas& canvas, const SheetPart& part, Point at);
/// Repeats the part from the top-left corner of `area` until it is filled.
void TilePart(Canvas& canvas, const SheetPart& part, const Rect& area);
/// Fills `area` with the part, larger or smaller as it must be.
void StretchPart(Canvas& canvas, const SheetPart& part, const Rect& area, Sampling sampling);

/// A colour multiplied by a tint, channel by channel.
Colour Tinted(Colour colour, Colour tint);

}  // namespace jotlets
