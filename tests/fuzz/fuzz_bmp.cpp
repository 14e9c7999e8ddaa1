// Any bytes as a picture sheet. A sheet that was decoded is whole, and no colour exceeds its alpha.
#include "fuzz.h"
#include "picture/bmp_picture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const auto picture = DecodePicture(Bytes(data, size));
  if (!picture) return 0;
  Check(picture->size.width > 0 && picture->size.height > 0);
  const std::int64_t count = std::int64_t{picture->size.width} * picture->size.height;
  Check(count <= kMaxSheetPixels && picture->pixels.size() == static_cast<std::size_t>(count) * 4);
  for (std::size_t at = 0; at < picture->pixels.size(); ++at)
    Check(picture->pixels[at] <= picture->pixels[at | 3]);
  return 0;
}
