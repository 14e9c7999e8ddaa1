#include "picture/picture_sizing.h"

#include <algorithm>

#include "picture/pixels.h"

namespace jotlets {
namespace {

constexpr std::int64_t kMaxSide = 30000;

// `value` * `times` / `of`, to the nearest, and at least one pixel of something.
std::int64_t InProportion(std::int64_t value, std::int64_t times, std::int64_t of) {
  const std::int64_t exact = (2 * value * times + of) / (2 * std::max<std::int64_t>(of, 1));
  return value > 0 ? std::max<std::int64_t>(exact, 1) : 0;
}

}  // namespace

std::int32_t PictureSizing::Shown(std::int64_t pixels, std::int64_t now) const {
  return Saturated(unit_ == SizeUnit::kPixels ? pixels : InProportion(pixels, 100, now));
}

std::int64_t PictureSizing::Pixels(std::int32_t number, std::int64_t now) const {
  const std::int64_t written = std::max(number, 0);
  return unit_ == SizeUnit::kPixels ? written : InProportion(written, now, 100);
}

void PictureSizing::SetKeepsAspect(bool keeps) {
  keepsAspect_ = keeps;
  if (keeps) height_ = InProportion(width_, now_.height, now_.width);
}

void PictureSizing::SetWidth(std::int32_t number) {
  width_ = Pixels(number, now_.width);
  if (keepsAspect_) height_ = InProportion(width_, now_.height, now_.width);
}

void PictureSizing::SetHeight(std::int32_t number) {
  height_ = Pixels(number, now_.height);
  if (keepsAspect_) width_ = InProportion(height_, now_.width, now_.height);
}

std::optional<Size> PictureSizing::Wanted() const {
  const bool isSide = std::min(width_, height_) >= 1 && std::max(width_, height_) <= kMaxSide;
  const Size size{Saturated(width_), Saturated(height_)};
  return isSide && IsPictureSize(size) ? std::optional(size) : std::nullopt;
}

}  // namespace jotlets
