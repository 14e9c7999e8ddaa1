#include "picture/picture.h"

#include <png.h>

#include <algorithm>

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

std::uint8_t Multiplied(std::uint8_t colour, std::uint8_t alpha) {
  return static_cast<std::uint8_t>((colour * alpha + 127) / 255);
}

std::uint8_t Divided(std::uint8_t colour, std::uint8_t alpha) {
  return alpha == 0 ? std::uint8_t{0}
                    : static_cast<std::uint8_t>(std::min(255, (colour * 255 + alpha / 2) / alpha));
}

template <typename Change>
void ChangeColours(std::vector<std::uint8_t>& pixels, Change change) {
  for (std::size_t at = 0; at + 3 < pixels.size(); at += 4) {
    const std::uint8_t alpha = pixels[at + 3];
    if (alpha == 255) continue;
    for (std::size_t colour = 0; colour < 3; ++colour)
      pixels[at + colour] = change(pixels[at + colour], alpha);
  }
}

}  // namespace

std::optional<Picture> DecodePng(std::string_view bytes, std::int64_t mostPixels) {
  PngImage png;
  if (png_image_begin_read_from_memory(&png.image, bytes.data(), bytes.size()) == 0) return std::nullopt;
  const auto count = static_cast<std::int64_t>(png.image.width) * static_cast<std::int64_t>(png.image.height);
  if (count <= 0 || count > mostPixels) return std::nullopt;
  png.image.format = PNG_FORMAT_BGRA;
  Picture picture;
  picture.size = {static_cast<std::int32_t>(png.image.width), static_cast<std::int32_t>(png.image.height)};
  picture.pixels.resize(static_cast<std::size_t>(count) * 4);
  if (png_image_finish_read(&png.image, nullptr, picture.pixels.data(), 0, nullptr) == 0) return std::nullopt;
  MultiplyByAlpha(picture.pixels);
  return picture;
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
  Picture small{size, std::vector<std::uint8_t>(static_cast<std::size_t>(size.width) *
                                                static_cast<std::size_t>(size.height) * 4)};
  const auto part = [](std::int64_t at, std::int32_t whole, std::int32_t parts) {
    return at * whole / parts;
  };
  std::uint8_t* to = small.pixels.data();
  for (std::int32_t y = 0; y < size.height; ++y) {
    const std::int64_t top = part(y, picture.size.height, size.height);
    const std::int64_t bottom = part(y + 1, picture.size.height, size.height);
    for (std::int32_t x = 0; x < size.width; ++x) {
      const std::int64_t left = part(x, picture.size.width, size.width);
      const std::int64_t right = part(x + 1, picture.size.width, size.width);
      std::uint64_t sums[4] = {};
      for (std::int64_t row = top; row < bottom; ++row) {
        const std::uint8_t* from =
            picture.pixels.data() + static_cast<std::size_t>(row * picture.size.width + left) * 4;
        for (std::int64_t column = left; column < right; ++column)
          for (std::uint64_t& sum : sums) sum += *from++;
      }
      const auto count = static_cast<std::uint64_t>((bottom - top) * (right - left));
      for (const std::uint64_t sum : sums) *to++ = static_cast<std::uint8_t>(sum / count);
    }
  }
  return small;
}

void MultiplyByAlpha(std::vector<std::uint8_t>& pixels) { ChangeColours(pixels, Multiplied); }

std::string EncodePng(const Picture& picture) {
  std::vector<std::uint8_t> straight = picture.pixels;
  ChangeColours(straight, Divided);
  PngImage png;
  png.image.width = static_cast<png_uint_32>(picture.size.width);
  png.image.height = static_cast<png_uint_32>(picture.size.height);
  png.image.format = PNG_FORMAT_BGRA;
  png_alloc_size_t size = 0;
  if (png_image_write_to_memory(&png.image, nullptr, &size, 0, straight.data(), 0, nullptr) == 0) return {};
  std::string bytes(size, '\0');
  if (png_image_write_to_memory(&png.image, bytes.data(), &size, 0, straight.data(), 0, nullptr) == 0)
    return {};
  bytes.resize(size);
  return bytes;
}

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

}  // namespace jotlets
