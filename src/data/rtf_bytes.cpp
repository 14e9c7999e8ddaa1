#include "data/rtf_bytes.h"

#include <algorithm>

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

std::string MendedRtf(std::string_view rtf) {
  constexpr std::string_view kTwice = "\\sl--";
  std::string mended;
  mended.reserve(rtf.size());
  while (!rtf.empty()) {
    // A backslash of the text is written as two.
    std::size_t taken = rtf.front() == '\\' ? std::min<std::size_t>(2, rtf.size()) : 1;
    std::string_view kept = rtf.substr(0, taken);
    if (rtf.starts_with(kTwice)) {
      taken = kTwice.size();
      kept = rtf.substr(0, taken - 1);
    }
    for (const char byte : kept)
      if (byte != '\0') mended.push_back(byte);
    rtf.remove_prefix(taken);
  }
  return mended;
}

}  // namespace jotlets
