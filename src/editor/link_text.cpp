#include "editor/link_text.h"

#include <algorithm>
#include <array>
#include <string>

#include "data/jotlet_id.h"

namespace jotlets {
namespace {

constexpr std::size_t kLongestLink = 4096;

constexpr TextView kFileScheme = u"file:";
constexpr TextView kNetworkPath = u"\\\\";

struct LinkStart {
  TextView start;
  TextView inFront;
  LinkUse use;
};

constexpr std::array kLinkStarts = {
    LinkStart{u"http://", u"", LinkUse::kOpened},     LinkStart{u"https://", u"", LinkUse::kOpened},
    LinkStart{u"mailto:", u"", LinkUse::kOpened},     LinkStart{kFileScheme, u"", LinkUse::kRevealed},
    LinkStart{kNetworkPath, u"", LinkUse::kRevealed}, LinkStart{u"www.", u"http://", LinkUse::kOpened},
};

const LinkStart* StartOf(TextView link) {
  const auto row = std::find_if(kLinkStarts.begin(), kLinkStarts.end(), [link](const LinkStart& kind) {
    return link.size() > kind.start.size() && StartsWithIgnoreCase(link, kind.start);
  });
  return row == kLinkStarts.end() ? nullptr : &*row;
}

// Blanks of any kind and control characters: they end a link.
bool IsBreak(char16_t unit) {
  return unit <= u' ' || (unit >= 0x7F && unit <= 0xA0) || (unit >= 0x2000 && unit <= 0x200F) ||
         (unit >= 0x2028 && unit <= 0x202F) || unit == 0x3000 || unit == 0xFFFC;
}

// A quotation mark would end the argument in the command line of whoever opens the address.
bool IsUnfit(char16_t unit) { return IsBreak(unit) || unit == u'"'; }

int HexDigit(char c) {
  const char lower = static_cast<char>(c | 0x20);
  if (c >= '0' && c <= '9') return c - '0';
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// A percent sign and two digits stand for a byte of UTF-8.
Text Unescaped(TextView text) {
  const std::string escaped = ToUtf8(text);
  std::string bytes;
  for (std::size_t at = 0; at < escaped.size(); ++at) {
    const int high = at + 2 < escaped.size() && escaped[at] == '%' ? HexDigit(escaped[at + 1]) : -1;
    const int low = high < 0 ? -1 : HexDigit(escaped[at + 2]);
    bytes += low < 0 ? escaped[at] : static_cast<char>(high * 16 + low);
    if (low >= 0) at += 2;
  }
  return FromUtf8(bytes);
}

}  // namespace

Text LinkTarget(TextView link) {
  if (link.size() > kLongestLink || std::any_of(link.begin(), link.end(), IsUnfit)) return {};
  const LinkStart* kind = StartOf(link);
  return kind == nullptr ? Text() : Text(kind->inFront) + Text(link);
}

LinkUse UseOfLink(TextView target, bool noteFromOutside) {
  const LinkStart* kind = StartOf(target);
  if (kind == nullptr) return LinkUse::kNothing;
  if (kind->use == LinkUse::kOpened) return kind->use;
  if (PathOfLink(target).empty()) return LinkUse::kNothing;
  return noteFromOutside ? LinkUse::kRefused : LinkUse::kRevealed;
}

Text PathOfLink(TextView target) {
  Text path(target);
  if (StartsWithIgnoreCase(target, kFileScheme)) {
    path = ReplaceAll(Unescaped(target.substr(kFileScheme.size())), u"/", u"\\");
    // "file:///C:/a" has three separators where "file:C:/a" has none; two, or more than three, stand before a
    // server.
    const std::size_t separators = std::min(path.find_first_not_of(u'\\'), path.size());
    path.erase(0, separators);
    if ((separators == 2 || separators > 3) && !IsPathOfFile(path)) path.insert(0, kNetworkPath);
  }
  return IsPathOfFile(path) ? path : Text();
}

TextView WordAt(TextView text, std::size_t at) {
  at = std::min(at, text.size());
  std::size_t begin = at;
  std::size_t end = at;
  while (begin > 0 && !IsBreak(text[begin - 1])) --begin;
  while (end < text.size() && !IsBreak(text[end])) ++end;
  constexpr TextView kBefore = u"<([{\"'";
  constexpr TextView kAfter = u">)]}\"'.,;:!?";
  while (begin < end && kBefore.find(text[begin]) != TextView::npos) ++begin;
  while (begin < end && kAfter.find(text[end - 1]) != TextView::npos) --end;
  return text.substr(begin, end - begin);
}

Text LinkFromText(TextView selected) {
  const TextView word = WordAt(selected, selected.find_first_not_of(u' '));
  if (TrimBlanks(selected) != word || word.size() > kLongestLink || !LinkTarget(word).empty()) return {};
  const std::size_t at = word.find(u'@');
  const TextView host = SplitAtFirst(at == TextView::npos ? word : word.substr(at + 1), u'/').head;
  const std::size_t dot = host.find(u'.');
  // A colon would be a port at best, and at worst another kind of address in disguise.
  if (dot == 0 || dot == TextView::npos || word.find_first_of(u":\\") != TextView::npos) return {};
  // What would not be opened as an address is not made one.
  return LinkTarget((at == TextView::npos ? u"http://" : at == 0 ? u"" : u"mailto:") + Text(word));
}

}  // namespace jotlets
