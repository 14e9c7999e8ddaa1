#include "skin/win/picture_bitmap.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "picture/resizing.h"
#include "ui/pixel_bitmap.h"

namespace jotlets {
namespace {

// More pixels than these take longer than the user interface may be kept waiting.
constexpr std::int64_t kLargestSmoothed = 2'200'000;

}  // namespace

bool PictureBitmap::Load(const Picture& picture) {
  PixelBitmap made = MakePixelBitmap(picture.size);
  bitmap_ = std::move(made.bitmap);
  resizedTo_ = {};
  size_ = {};
  if (!bitmap_) return false;
  std::memcpy(made.pixels, picture.pixels.data(), picture.pixels.size());
  pixels_ = made.pixels;
  size_ = picture.size;
  return true;
}

void PictureBitmap::Put(Point at, const Picture& part) {
  const Rect seen = CommonPart(RectAt(at, part.size), WholeOf(size_));
  if (!bitmap_ || IsEmptyRect(seen)) return;
  GdiFlush();
  resizedTo_ = {};
  const auto bytes = static_cast<std::size_t>(seen.Width()) * 4;
  for (std::int32_t y = seen.top; y < seen.bottom; ++y) {
    const auto to = static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width) +
                    static_cast<std::size_t>(seen.left);
    std::memcpy(pixels_ + to * 4, PixelPlace(part, seen.left - at.x, y - at.y), bytes);
  }
}

// What the system makes of it when it stretches a bitmap has steps and loses thin lines.
bool PictureBitmap::Resize(Size size) const {
  if (resizedTo_ == size) return true;
  const std::int64_t pixels =
      std::max(std::int64_t{size.width} * size.height, std::int64_t{size_.width} * size_.height);
  if (pixels > kLargestSmoothed) return false;
  GdiFlush();
  const auto bytes = static_cast<std::size_t>(size_.width) * static_cast<std::size_t>(size_.height) * 4;
  const Picture made = Resized({size_, std::vector<std::uint8_t>(pixels_, pixels_ + bytes)}, size);
  if (made.pixels.empty()) return false;
  PixelBitmap bitmap = MakePixelBitmap(size);
  if (!bitmap.bitmap) return false;
  std::memcpy(bitmap.pixels, made.pixels.data(), made.pixels.size());
  resized_ = std::move(bitmap.bitmap);
  resizedTo_ = size;
  return true;
}

void PictureBitmap::Draw(HDC dc, const Rect& area, bool quick) const {
  const Size shown{area.Width(), area.Height()};
  if (!bitmap_ || shown.width <= 0 || shown.height <= 0) return;
  const bool smooth = shown != size_ && !quick && Resize(shown);
  const UniqueDc memory(CreateCompatibleDC(dc));
  const Selected selected(memory.get(), smooth ? resized_.get() : bitmap_.get());
  const Size from = smooth ? shown : size_;
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  GdiAlphaBlend(dc, area.left, area.top, shown.width, shown.height, memory.get(), 0, 0, from.width,
                from.height, blend);
}

}  // namespace jotlets
