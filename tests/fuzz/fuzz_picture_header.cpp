// Any bytes as the beginning of a picture file.
#include "fuzz.h"
#include "picture/picture_header.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const auto header = ReadPictureHeader(Bytes(data, size));
  if (!header) return 0;
  Check(header->size.width > 0 && header->size.height > 0);
  Check(Oriented(Oriented(header->size, header->orientation), Inverse(header->orientation)) == header->size);
  return 0;
}
