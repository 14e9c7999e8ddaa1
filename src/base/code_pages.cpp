#include "base/code_pages.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace jotlets {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

struct CharsetRow {
  int charset;
  int page;
};
constexpr std::array kCharsets = {
    CharsetRow{0, 1252},   CharsetRow{128, 932},  CharsetRow{129, 949},  CharsetRow{134, 936},
    CharsetRow{136, 950},  CharsetRow{161, 1253}, CharsetRow{162, 1254}, CharsetRow{163, 1258},
    CharsetRow{177, 1255}, CharsetRow{178, 1256}, CharsetRow{186, 1257}, CharsetRow{204, 1251},
    CharsetRow{222, 874},  CharsetRow{238, 1250},
};

// The system's tables: of the languages with two bytes for a character alone they would be larger than the
// rest of the program.
#ifdef _WIN32

std::optional<char16_t> AskSystem(int page, std::string_view bytes) {
  wchar_t unit = 0;
  const int made = MultiByteToWideChar(static_cast<UINT>(page), MB_ERR_INVALID_CHARS, bytes.data(),
                                       static_cast<int>(bytes.size()), &unit, 1);
  return made == 1 ? std::optional(static_cast<char16_t>(unit)) : std::nullopt;
}

#else

std::optional<char16_t> AskSystem(int page, std::string_view bytes) {
  const iconv_t converter = iconv_open("UTF-16LE", ("CP" + std::to_string(page)).c_str());
  if (reinterpret_cast<std::intptr_t>(converter) == -1) return std::nullopt;
  std::array<char, 2> from{};
  std::copy(bytes.begin(), bytes.end(), from.begin());
  std::array<unsigned char, 2> to{};
  char* in = from.data();
  char* out = reinterpret_cast<char*>(to.data());
  std::size_t left = bytes.size();
  std::size_t room = to.size();
  // A sign that may join the next letter is given out at the end only.
  const bool made = iconv(converter, &in, &left, &out, &room) != static_cast<std::size_t>(-1) &&
                    iconv(converter, nullptr, nullptr, &out, &room) != static_cast<std::size_t>(-1);
  iconv_close(converter);
  return made && room == 0 ? std::optional(static_cast<char16_t>(to[0] | to[1] << 8)) : std::nullopt;
}

#endif

}  // namespace

bool IsCodePage(int page) {
  return std::ranges::any_of(kCharsets, [page](const CharsetRow& row) { return row.page == page; });
}

int CodePageOfCharset(int charset) {
  const auto* const row = std::ranges::find(kCharsets, charset, &CharsetRow::charset);
  return row == kCharsets.end() ? 0 : row->page;
}

bool IsLeadByte(int page, unsigned char byte) {
  if (page == 932) return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  return (page == 936 || page == 949 || page == 950) && byte >= 0x81 && byte <= 0xFE;
}

char16_t UnitOfBytes(int page, std::string_view bytes) {
  const char16_t asItIs = bytes.size() == 1 ? static_cast<unsigned char>(bytes[0]) : kReplacement;
  if (asItIs < 0x80) return asItIs;
  return AskSystem(page, bytes).value_or(asItIs);
}

}  // namespace jotlets
