#include "skin/win/picture_bitmap.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "picture/picture_zoom.h"
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
bool PictureBitmap::Resize(const Rect& part, Size size) const {
  if (resizedTo_ == size && resizedPart_ == part) return true;
  const std::int64_t pixels =
      std::max(std::int64_t{size.width} * size.height, std::int64_t{part.Width()} * part.Height());
  if (pixels > kLargestSmoothed) return false;
  GdiFlush();
  Picture seen = BlankPicture({part.Width(), part.Height()});
  const auto bytes = static_cast<std::size_t>(part.Width()) * 4;
  for (std::int32_t y = part.top; y < part.bottom; ++y) {
    const auto from = static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width) +
                      static_cast<std::size_t>(part.left);
    std::memcpy(PixelPlace(seen, 0, y - part.top), pixels_ + from * 4, bytes);
  }
  const Picture made = Resized(seen, size);
  if (made.pixels.empty()) return false;
  PixelBitmap bitmap = MakePixelBitmap(size);
  if (!bitmap.bitmap) return false;
  std::memcpy(bitmap.pixels, made.pixels.data(), made.pixels.size());
  resized_ = std::move(bitmap.bitmap);
  resizedTo_ = size;
  resizedPart_ = part;
  return true;
}

void PictureBitmap::Draw(HDC dc, const Rect& place, const Rect& seen, bool quick) const {
  constexpr std::int64_t kLookedAt = 3;
  const Rect part = PartSeen(size_, place, seen);
  if (!bitmap_ || IsEmptyRect(part)) return;
  const Rect to = PlacedIn(size_, part, place);
  const Size shown{to.Width(), to.Height()};
  if (shown.width <= 0 || shown.height <= 0) return;
  const bool pixelwise = place.Width() == size_.width || place.Width() >= kLookedAt * size_.width;
  const bool smooth = !pixelwise && !quick && Resize(part, shown);
  const UniqueDc memory(CreateCompatibleDC(dc));
  const Selected selected(memory.get(), smooth ? resized_.get() : bitmap_.get());
  const Rect from = smooth ? WholeOf(shown) : part;
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  GdiAlphaBlend(dc, to.left, to.top, shown.width, shown.height, memory.get(), from.left, from.top,
                from.Width(), from.Height(), blend);
}

}  // namespace jotlets
