#include "picture/picture.h"

#include <png.h>

#include <algorithm>
#include <utility>

#include "picture/resizing.h"

namespace jotlets {
namespace {

// Releases what libpng's simplified interface holds, on every way out.
struct PngImage {
  png_image image{};
  PngImage() { image.version = PNG_IMAGE_VERSION; }
  ~PngImage() { png_image_free(&image); }
  PngImage(const PngImage&) = delete;
  PngImage& operator=(const PngImage&) = delete;
};

// Made smaller, keeping its proportions, until it fits; at least 1 by 1.
Size FittedSize(Size size, Size area) {
  if (size.width <= area.width && size.height <= area.height) return size;
  const std::int64_t byWidth = static_cast<std::int64_t>(area.width) * size.height;
  const std::int64_t byHeight = static_cast<std::int64_t>(area.height) * size.width;
  const bool widthDecides = byWidth <= byHeight;
  const std::int64_t width = widthDecides ? area.width : byHeight / size.height;
  const std::int64_t height = widthDecides ? byWidth / size.width : area.height;
  return {static_cast<std::int32_t>(std::max<std::int64_t>(width, 1)),
          static_cast<std::int32_t>(std::max<std::int64_t>(height, 1))};
}

}  // namespace

std::optional<Picture> DecodePng(std::string_view bytes, std::int64_t mostPixels) {
  PngImage png;
  if (png_image_begin_read_from_memory(&png.image, bytes.data(), bytes.size()) == 0) return std::nullopt;
  const auto count = static_cast<std::int64_t>(png.image.width) * static_cast<std::int64_t>(png.image.height);
  if (count <= 0 || count > mostPixels) return std::nullopt;
  png.image.format = PNG_FORMAT_BGRA;
  StraightPicture picture;
  picture.size = {static_cast<std::int32_t>(png.image.width), static_cast<std::int32_t>(png.image.height)};
  picture.pixels.resize(static_cast<std::size_t>(count) * 4);
  if (png_image_finish_read(&png.image, nullptr, picture.pixels.data(), 0, nullptr) == 0) return std::nullopt;
  return Premultiplied(std::move(picture));
}

std::optional<Size> SizeOfPng(std::string_view bytes) {
  PngImage png;
  constexpr png_uint_32 kMaxSide = 1'000'000;
  if (png_image_begin_read_from_memory(&png.image, bytes.data(), bytes.size()) == 0) return std::nullopt;
  return Size{static_cast<std::int32_t>(std::min(png.image.width, kMaxSide)),
              static_cast<std::int32_t>(std::min(png.image.height, kMaxSide))};
}

Picture Shrunk(Picture picture, Size most) {
  const Size size = FittedSize(picture.size, most);
  if (size == picture.size) return picture;
  return Resized(picture, size);
}

std::string EncodePng(const Picture& picture) {
  const StraightPicture straight = Straight(picture);
  PngImage png;
  png.image.width = static_cast<png_uint_32>(picture.size.width);
  png.image.height = static_cast<png_uint_32>(picture.size.height);
  png.image.format = PNG_FORMAT_BGRA;
  png.image.flags = PNG_IMAGE_FLAG_FAST;
  // Asking for the size first would compress all of it twice.
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png.image);
  std::string bytes(size, '\0');
  if (png_image_write_to_memory(&png.image, bytes.data(), &size, 0, straight.pixels.data(), 0, nullptr) == 0)
    return {};
  bytes.resize(size);
  return bytes;
}

Rect PicturePlace(Size size, const Rect& area, std::int32_t dpi) {
  if (size.width <= 0 || size.height <= 0) return {};
  const auto scaled = [dpi](std::int32_t length) {
    return Saturated(std::int64_t{length} * std::max(dpi, kUsualDpi) / kUsualDpi);
  };
  const Size whole{scaled(size.width), scaled(size.height)};
  const Size shown = FittedSize(whole, {area.Width(), area.Height()});
  if (shown == whole) return RectAt(area.TopLeft(), shown);
  return RectAt({area.left + (area.Width() - shown.width) / 2, area.top + (area.Height() - shown.height) / 2},
                shown);
}

}  // namespace jotlets
