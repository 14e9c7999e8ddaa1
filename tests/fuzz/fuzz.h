// What every fuzzer needs: a check that stays in any build, and text from bytes.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "../unit/fakes.h"

namespace jotlets {

inline void Check(bool holds) {
  if (!holds) std::abort();
}

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Each two bytes as one code unit, so that every text can come up.
inline Text Units(std::string_view bytes) {
  Text text(bytes.size() / 2, u'\0');
  if (!text.empty()) std::memcpy(text.data(), bytes.data(), text.size() * 2);
  return text;
}

}  // namespace jotlets
