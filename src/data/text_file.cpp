#include "data/text_file.h"

#include <bit>
#include <cstring>

namespace jotlets {
namespace {

constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

void SwapIfBigEndian([[maybe_unused]] Text& text) {
  if constexpr (std::endian::native == std::endian::big) {
    for (char16_t& unit : text) unit = static_cast<char16_t>((unit << 8) | (unit >> 8));
  }
}

TextFile DecodeUtf16(std::string_view bytes) {
  TextFile file;
  file.text.resize(bytes.size() / 2);
  if (!file.text.empty()) std::memcpy(file.text.data(), bytes.data(), file.text.size() * 2);
  SwapIfBigEndian(file.text);
  const bool halfCharacter = !file.text.empty() && file.text.back() >= 0xD800 && file.text.back() <= 0xDBFF;
  file.damaged = bytes.size() % 2 != 0 || halfCharacter;
  return file;
}

}  // namespace

TextFile DecodeTextFile(std::string_view bytes, const CodePage& ansi) {
  TextFile file;
  if (bytes.starts_with(kUtf16Mark)) {
    file = DecodeUtf16(bytes.substr(kUtf16Mark.size()));
  } else if (bytes.starts_with(kUtf8Mark)) {
    bool valid = true;
    file.text = FromUtf8(bytes.substr(kUtf8Mark.size()), &valid);
    file.damaged = !valid;
  } else {
    file.text = ansi.Decode(bytes);
  }
  if (std::erase(file.text, u'\0') > 0) file.damaged = true;
  return file;
}

std::string_view MarkedBytes(Text& text) {
  SwapIfBigEndian(text);
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

std::string EncodeTextFile(TextView text) {
  std::string bytes;
  bytes.reserve(kUtf16Mark.size() + text.size() * 2);
  bytes.append(kUtf16Mark);
  if constexpr (std::endian::native == std::endian::little) {
    bytes.append(reinterpret_cast<const char*>(text.data()), text.size() * 2);
  } else {
    for (const char16_t unit : text) {
      bytes.push_back(static_cast<char>(unit & 0xFF));
      bytes.push_back(static_cast<char>(unit >> 8));
    }
  }
  return bytes;
}

bool LineReader::Next(TextView& line) {
  if (rest_.empty()) return false;
  const std::size_t end = rest_.find(u'\n');
  line = rest_.substr(0, end);
  rest_.remove_prefix(end == TextView::npos ? rest_.size() : end + 1);
  while (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
  return true;
}

}  // namespace jotlets
