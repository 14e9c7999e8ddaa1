#include "data/rtf_bytes.h"

namespace jotlets {

std::string RtfBytes(TextView rtf) {
  std::string bytes;
  bytes.reserve(rtf.size());
  for (const char16_t unit : rtf) {
    if (unit < 0x80) {
      bytes.push_back(static_cast<char>(unit));
    } else {
      // Rich text counts code units as signed 16-bit numbers.
      bytes.append("\\u").append(std::to_string(static_cast<std::int16_t>(unit))).append("?");
    }
  }
  return bytes;
}

}  // namespace jotlets
