// Numbers inside binary files. The caller has checked that they lie within the bytes.
#pragma once

#include <cstdint>
#include <string_view>

namespace jotlets {

inline std::uint32_t LittleEndian16(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at])) |
         static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + 1])) << 8;
}

inline std::uint32_t LittleEndian32(std::string_view bytes, std::size_t at) {
  return LittleEndian16(bytes, at) | LittleEndian16(bytes, at + 2) << 16;
}

}  // namespace jotlets
