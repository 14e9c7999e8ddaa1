#include "editor/web_search.h"

#include <algorithm>

namespace jotlets {
namespace {

constexpr std::size_t kLongestWords = 1000;
constexpr std::size_t kLongestShown = 30;

bool IsPlain(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
         std::string_view("-._~").find(byte) != std::string_view::npos;
}

// A host at least must follow, and nothing that would end the address early.
bool IsWebAddress(TextView address) {
  constexpr TextView kProtocols[] = {u"http://", u"https://"};
  const bool known = std::ranges::any_of(kProtocols, [address](TextView protocol) {
    return StartsWithIgnoreCase(address, protocol) && address.size() > protocol.size();
  });
  return known && std::ranges::none_of(address, [](char16_t unit) {
           return unit <= u' ' || unit == u'"' || unit == u'<' || unit == u'>';
         });
}

Text PercentEncoded(TextView words) {
  constexpr TextView kDigits = u"0123456789ABCDEF";
  Text encoded;
  for (const char byte : ToUtf8(words)) {
    if (IsPlain(byte)) {
      encoded.push_back(static_cast<char16_t>(byte));
      continue;
    }
    const auto value = static_cast<unsigned char>(byte);
    encoded.push_back(u'%');
    encoded.push_back(kDigits[value >> 4]);
    encoded.push_back(kDigits[value & 0xF]);
  }
  return encoded;
}

}  // namespace

Text WebSearchAddress(TextView address, TextView words) {
  const Text line = OneLine(StartOf(words, kLongestWords));
  const TextView wanted = TrimBlanks(line);
  if (wanted.empty() || !IsWebAddress(address)) return {};
  const Text encoded = PercentEncoded(wanted);
  if (address.find(u"%s") == TextView::npos) return Text(address) + encoded;
  return ReplaceAll(address, u"%s", encoded);
}

Text ShortWords(TextView words) {
  const Text line = OneLine(StartOf(words, kLongestShown + 1));
  const TextView trimmed = TrimBlanks(line);
  const TextView shown = StartOf(trimmed, kLongestShown);
  return ReplaceAll(shown, u"&", u"&&") + (shown.size() < trimmed.size() ? u"\u2026" : u"");
}

}  // namespace jotlets
