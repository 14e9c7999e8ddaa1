// The two numbers of a size that somebody gives a picture, in pixels or in percent, and how one follows the
// other.
#pragma once

#include <cstdint>
#include <optional>

#include "base/geometry.h"

namespace jotlets {

/// In the numbers of the option `Size type`.
enum class SizeUnit : std::uint8_t { kPercent, kPixels };

class PictureSizing {
 public:
  /// Begins with the size that the picture has.
  PictureSizing(Size now, SizeUnit unit, bool keepsAspect)
      : now_(now), unit_(unit), keepsAspect_(keepsAspect), width_(now.width), height_(now.height) {}

  SizeUnit Unit() const { return unit_; }
  bool KeepsAspect() const { return keepsAspect_; }
  /// The numbers in the unit, to the nearest.
  std::int32_t Width() const { return Shown(width_, now_.width); }
  std::int32_t Height() const { return Shown(height_, now_.height); }

  /// The same size in other numbers.
  void SetUnit(SizeUnit unit) { unit_ = unit; }
  /// When it is switched on the height follows the width.
  void SetKeepsAspect(bool keeps);
  /// Numbers that were written in the unit; the other one follows where the proportions are kept.
  void SetWidth(std::int32_t number);
  void SetHeight(std::int32_t number);

  /// The size in pixels; nothing when no picture can have it.
  std::optional<Size> Wanted() const;

 private:
  std::int32_t Shown(std::int64_t pixels, std::int64_t now) const;
  std::int64_t Pixels(std::int32_t number, std::int64_t now) const;

  Size now_;
  SizeUnit unit_;
  bool keepsAspect_;
  std::int64_t width_;  // in pixels
  std::int64_t height_;
};

}  // namespace jotlets
