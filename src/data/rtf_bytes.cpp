#include "data/rtf_bytes.h"

#include <algorithm>
#include <string_view>

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

std::string MendedRtf(std::string rtf) {
  constexpr std::string_view kTwice = "\\sl--";
  std::erase(rtf, '\0');
  for (std::size_t at = rtf.find('\\'); at != std::string::npos; at = rtf.find('\\', at)) {
    if (std::string_view(rtf).substr(at, kTwice.size()) == kTwice) rtf.erase(at + kTwice.size() - 1, 1);
    // A backslash of the text is written as two.
    at = std::min(at + 2, rtf.size());
  }
  return rtf;
}

}  // namespace jotlets
