#include "note/link_text.h"

#include <algorithm>
#include <array>

namespace jotlets {
namespace {

constexpr std::size_t kLongestLink = 4096;

struct LinkStart {
  TextView start;
  TextView inFront;
};

constexpr std::array kLinkStarts = {
    LinkStart{u"http://", u""}, LinkStart{u"https://", u""}, LinkStart{u"ftp://", u""},
    LinkStart{u"file:", u""},   LinkStart{u"mailto:", u""},  LinkStart{u"www.", u"http://"},
};

// Blanks of any kind and control characters: they end a link.
bool IsBreak(char16_t unit) {
  return unit <= u' ' || (unit >= 0x7F && unit <= 0xA0) || (unit >= 0x2000 && unit <= 0x200F) ||
         (unit >= 0x2028 && unit <= 0x202F) || unit == 0x3000 || unit == 0xFFFC;
}

bool HasBreak(TextView text) { return std::any_of(text.begin(), text.end(), IsBreak); }

}  // namespace

Text LinkTarget(TextView link) {
  if (link.size() > kLongestLink || HasBreak(link)) return {};
  for (const LinkStart& kind : kLinkStarts) {
    if (link.size() > kind.start.size() && StartsWithIgnoreCase(link, kind.start))
      return Text(kind.inFront) + Text(link);
  }
  return {};
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
  if (at == TextView::npos) return u"http://" + Text(word);
  return at == 0 ? Text() : u"mailto:" + Text(word);
}

}  // namespace jotlets
