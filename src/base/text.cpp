#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace jotlets {
namespace {

constexpr bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

void AppendAscii(Text& out, const char* begin, const char* end) {
  for (; begin != end; ++begin) out.push_back(static_cast<char16_t>(static_cast<unsigned char>(*begin)));
}

int HexDigitValue(char16_t unit) {
  if (IsDigit(unit)) return unit - u'0';
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  return -1;
}

char16_t ParseHexUnit(TextView digits) {
  unsigned value = 0;
  for (const char16_t digit : digits) {
    const int digitValue = HexDigitValue(digit);
    if (digitValue < 0) break;
    value = value * 16 + static_cast<unsigned>(digitValue);
  }
  return static_cast<char16_t>(value);
}

constexpr bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

void AppendUtf8(std::string& out, char32_t c) {
  const auto put = [&out](char32_t byte) {
    out.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
  };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18));
    put(0x80 | ((c >> 12) & 0x3F));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

// Decodes one character at `bytes[at]`; returns its length in bytes, or 0 when it is malformed.
std::size_t DecodeUtf8(std::string_view bytes, std::size_t at, char32_t& c) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned lead = byte(at);
  std::size_t length = 0;
  char32_t minimum = 0;
  if (lead < 0x80) {
    c = lead;
    return 1;
  }
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2, c = lead & 0x1F, minimum = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3, c = lead & 0x0F, minimum = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4, c = lead & 0x07, minimum = 0x10000;
  } else {
    return 0;
  }
  if (bytes.size() - at < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return 0;
    c = (c << 6) | (byte(at + i) & 0x3F);
  }
  return c >= minimum && c <= 0x10FFFF ? length : 0;
}

}  // namespace

std::int32_t ParseInt(TextView text) {
  std::size_t at = text.find_first_not_of(u" \t");
  if (at == TextView::npos) return 0;
  const bool negative = text[at] == u'-';
  if (negative || text[at] == u'+') ++at;
  constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
  std::int64_t value = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    value = std::min<std::int64_t>(value * 10 + (text[at] - u'0'), kMax + 1);
  }
  return static_cast<std::int32_t>(negative ? -value : std::min(value, kMax));
}

void AppendInt(Text& out, std::int64_t value) {
  std::array<char, 24> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  AppendAscii(out, digits.data(), end);
}

void AppendPaddedInt(Text& out, std::int32_t value) {
  const std::int64_t wide = value;
  if (wide < 0) out.push_back(u'-');
  const std::int64_t magnitude = wide < 0 ? -wide : wide;
  for (std::int64_t limit = wide < 0 ? 100 : 1000; limit > 1 && magnitude < limit; limit /= 10) {
    out.push_back(u'0');
  }
  AppendInt(out, magnitude);
}

void AppendHex(Text& out, std::uint32_t value) {
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
  for (const char* digit = digits.data(); digit != end; ++digit) {
    out.push_back(static_cast<char16_t>(*digit >= 'a' ? *digit - 'a' + 'A' : *digit));
  }
}

Text IntText(std::int64_t value) {
  Text out;
  AppendInt(out, value);
  return out;
}

std::vector<std::int32_t> ParseIntList(TextView text, std::size_t maximum) {
  std::vector<std::int32_t> values;
  while (values.size() < maximum) {
    const std::size_t comma = text.find(u',');
    values.push_back(ParseInt(text.substr(0, comma)));
    if (comma == TextView::npos) break;
    text.remove_prefix(comma + 1);
  }
  return values;
}

char16_t FoldCase(char16_t unit) {
  const auto in = [unit](char16_t first, char16_t last) { return unit >= first && unit <= last; };
  const auto shifted = [unit](int by) { return static_cast<char16_t>(unit + by); };
  if (in(u'A', u'Z')) return shifted(32);
  if (unit < 0xC0) return unit;
  if (in(0x00C0, 0x00DE)) return unit == 0x00D7 ? unit : shifted(32);
  if (in(0x0100, 0x0137) || in(0x014A, 0x0177)) return static_cast<char16_t>(unit | 1);
  if (in(0x0139, 0x0148) || in(0x0179, 0x017E))
    return static_cast<char16_t>((unit & 1) != 0 ? unit + 1 : unit);
  if (in(0x0391, 0x03A9)) return unit == 0x03A2 ? unit : shifted(32);
  if (in(0x0400, 0x040F)) return shifted(80);
  if (in(0x0410, 0x042F)) return shifted(32);
  return unit;
}

Text FoldCase(TextView text) {
  Text folded(text);
  for (char16_t& unit : folded) unit = FoldCase(unit);
  return folded;
}

bool EqualIgnoreCase(TextView a, TextView b) { return a.size() == b.size() && StartsWithIgnoreCase(a, b); }

bool StartsWithIgnoreCase(TextView text, TextView prefix) {
  if (text.size() < prefix.size()) return false;
  return std::equal(prefix.begin(), prefix.end(), text.begin(),
                    [](char16_t p, char16_t t) { return p == t || FoldCase(p) == FoldCase(t); });
}

bool HasExtension(TextView name, TextView extension) {
  return name.size() > extension.size() &&
         EqualIgnoreCase(name.substr(name.size() - extension.size()), extension);
}

std::size_t FindIgnoreCase(TextView text, TextView what) {
  const auto found = std::search(text.begin(), text.end(), what.begin(), what.end(),
                                 [](char16_t a, char16_t b) { return a == b || FoldCase(a) == FoldCase(b); });
  return found == text.end() && !what.empty() ? TextView::npos
                                              : static_cast<std::size_t>(found - text.begin());
}

Text ReplaceAll(TextView text, TextView from, TextView to) {
  Text out;
  out.reserve(text.size());
  for (std::size_t at = 0;;) {
    const std::size_t hit = from.empty() ? TextView::npos : text.find(from, at);
    out.append(text.substr(at, hit == TextView::npos ? hit : hit - at));
    if (hit == TextView::npos) return out;
    out.append(to);
    at = hit + from.size();
  }
}

TextView TrimBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

Split SplitAtFirst(TextView text, char16_t separator) {
  const std::size_t at = text.find(separator);
  if (at == TextView::npos) return {text, {}};
  return {text.substr(0, at), text.substr(at + 1)};
}

Text EscapeAngles(TextView text) { return ReplaceAll(ReplaceAll(text, u"<", u"&lt"), u">", u"&gt"); }

Text UnescapeAngles(TextView text) { return ReplaceAll(ReplaceAll(text, u"&lt", u"<"), u"&gt", u">"); }

Text HexTitle(TextView text) {
  constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  Text out;
  out.reserve(text.size() * 4);
  for (const char16_t unit : text) {
    for (int shift = 12; shift >= 0; shift -= 4) out.push_back(kDigits[(unit >> shift) & 15]);
  }
  return out;
}

Text UnhexTitle(TextView text) {
  Text out;
  out.reserve(text.size() / 4);
  for (std::size_t at = 0; at + 4 <= text.size(); at += 4) out.push_back(ParseHexUnit(text.substr(at, 4)));
  return out;
}

Text OneLine(TextView text) {
  Text out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (unit == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') continue;
    out.push_back(unit == u'\r' || unit == u'\n' || unit == u'\0' ? u' ' : unit);
  }
  return out;
}

TextView StartOf(TextView text, std::size_t maximum) {
  if (text.size() <= maximum) return text;
  const bool half = maximum > 0 && (text[maximum - 1] & 0xFC00) == 0xD800;
  return text.substr(0, half ? maximum - 1 : maximum);
}

std::string ToUtf8(TextView text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    char32_t c = text[at];
    if (IsHighSurrogate(c) && at + 1 < text.size() && IsLowSurrogate(text[at + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++at] - 0xDC00u);
    }
    AppendUtf8(out, c);
  }
  return out;
}

Text FromUtf8(std::string_view bytes, bool* valid) {
  Text out;
  out.reserve(bytes.size());
  if (valid != nullptr) *valid = true;
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t c = 0;
    const std::size_t length = DecodeUtf8(bytes, at, c);
    if (length == 0) {
      if (valid != nullptr) *valid = false;
      out.push_back(0xFFFD);
      ++at;
      continue;
    }
    at += length;
    if (c >= 0x10000) {
      out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    } else {
      out.push_back(static_cast<char16_t>(c));
    }
  }
  return out;
}

Text FromAscii(std::string_view ascii) {
  Text out;
  AppendAscii(out, ascii.data(), ascii.data() + ascii.size());
  return out;
}

Text WithSeparator(TextView path) {
  Text folder(path);
  if (!folder.empty() && folder.back() != u'\\' && folder.back() != u'/') folder.push_back(u'\\');
  return folder;
}

}  // namespace jotlets
