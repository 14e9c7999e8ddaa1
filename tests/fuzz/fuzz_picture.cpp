// Any bytes as a PNG. A picture that was decoded is whole, and its colours survive being written.
#include "fuzz.h"
#include "picture/picture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const auto picture = DecodePng(Bytes(data, size));
  if (!picture) return 0;
  const auto count =
      static_cast<std::size_t>(picture->size.width) * static_cast<std::size_t>(picture->size.height);
  Check(count > 0 && picture->pixels.size() == count * 4);
  for (std::size_t at = 0; at < picture->pixels.size(); ++at)
    Check(picture->pixels[at] <= picture->pixels[at | 3]);
  if (count > 100'000) return 0;
  const auto again = DecodePng(EncodePng(*picture));
  Check(again && again->size == picture->size && again->pixels == picture->pixels);
  return 0;
}
