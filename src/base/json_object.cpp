#include "base/json_object.h"

#include <algorithm>

namespace jotlets {
namespace {

bool IsSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

void AppendEscape(std::string& out, char16_t unit) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  out.append("\\u");
  for (int shift = 12; shift >= 0; shift -= 4) out.push_back(kDigits[(unit >> shift) & 0xF]);
}

}  // namespace

void JsonObject::AddList(std::string_view name, const std::vector<Text>& texts) {
  std::string list = "[";
  for (const Text& text : texts) list.append(list.size() > 1 ? "," : "").append(Quoted(text));
  AddForm(name, list + "]");
}

// Half a character, which UTF-8 has no form for, is written as an escape; pairs stay pairs that way too.
std::string JsonObject::Quoted(TextView text) {
  std::string out = "\"";
  while (!text.empty()) {
    const auto plain = std::ranges::find_if(text, [](char16_t unit) {
      return unit == u'"' || unit == u'\\' || unit < 0x20 || IsSurrogate(unit);
    });
    const auto length = static_cast<std::size_t>(plain - text.begin());
    out += ToUtf8(text.substr(0, length));
    text.remove_prefix(length);
    if (text.empty()) break;
    const char16_t unit = text.front();
    text.remove_prefix(1);
    if (unit == u'"' || unit == u'\\') {
      out.push_back('\\');
      out.push_back(static_cast<char>(unit));
    } else {
      AppendEscape(out, unit);
    }
  }
  return out.append("\"");
}

}  // namespace jotlets
