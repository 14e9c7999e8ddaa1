#include "store/search_words.h"

#include <algorithm>
#include <array>

namespace jotlets {
namespace {

// The plain letters of U+00C0 to U+017F, and of U+1E00 to U+1EFF.
constexpr TextView kPlainLatin =
    u"aaaaaa\u00E6ceeeeiiii\u00F0nooooo\u00D7\u00F8uuuuy\u00FE\u00DFaaaaaa\u00E6ceeeeiiii\u00F0nooooo\u00F7"
    u"\u00F8uuuuy\u00FEyaaaaaaccccccccdd\u0111\u0111eeeeeeeeeegggggggghh\u0127\u0127iiiiiiiii\u0131\u0133"
    u"\u0133"
    u"jjkk\u0138llllll\u0140\u0140\u0142\u0142nnnnnn\u0149\u014B\u014Boooooo\u0153\u0153rrrrrrsssssssstttt"
    u"\u0167"
    u"\u0167uuuuuuuuuuuuwwyyyzzzzzz\u017F";
constexpr TextView kPlainLatinMore =
    u"aabbbbbbccddddddddddeeeeeeeeeeffgghhhhhhhhhhiiiikkkkkkllllllllmmmmmmnnnnnnnnoooooooopppprrrrrrrrsssssss"
    u"sss"
    u"ttttttttuuuuuuuuuuvvvvwwwwwwwwwwxxxxyyzzzzzzhtwy\u1E9A\u017F\u1E9C\u1E9D\u00DF\u1E9F"
    u"aaaaaaaaaaaaaaaaaaaaaaaaeeeeeeeeeeeeeeeeiiiioooooooooooooooooooooooouuuuuuuuuuuuuuyyyyyyyy"
    u"\u1EFB\u1EFB\u1EFD\u1EFD\u1EFF\u1EFF";
static_assert(kPlainLatin.size() == 0x180 - 0xC0 && kPlainLatinMore.size() == 0x100);

struct Range {
  char16_t first;
  char16_t last;
};

template <std::size_t kCount>
bool IsIn(const std::array<Range, kCount>& ranges, char16_t unit) {
  return std::ranges::any_of(
      ranges, [unit](const Range& range) { return unit >= range.first && unit <= range.last; });
}

// Signs above ASCII; pictograms come as pairs that begin with U+D83C to U+D83E. The first half tells of a
// pair.
constexpr std::array<Range, 15> kSigns = {{{0x0080, 0x00A9},
                                           {0x00AB, 0x00B1},
                                           {0x00B6, 0x00B8},
                                           {0x00BB, 0x00BB},
                                           {0x00BF, 0x00BF},
                                           {0x00D7, 0x00D7},
                                           {0x00F7, 0x00F7},
                                           {0x2000, 0x206F},
                                           {0x2190, 0x245F},
                                           {0x2500, 0x2BFF},
                                           {0x3000, 0x3004},
                                           {0x3008, 0x3020},
                                           {0xD83C, 0xD83E},
                                           {0xDC00, 0xDFFF},
                                           {0xFFF0, 0xFFFF}}};
// Chinese, kana and Hangul; pairs that begin with U+D840 to U+D88D are rare Chinese.
constexpr std::array<Range, 7> kIdeographs = {{{0x2E80, 0x2FDF},
                                               {0x3005, 0x3007},
                                               {0x3041, 0x30FF},
                                               {0x3400, 0x9FFF},
                                               {0xAC00, 0xD7A3},
                                               {0xD840, 0xD88D},
                                               {0xF900, 0xFAFF}}};

bool IsHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool IsLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

bool HasWord(TextView text) { return std::ranges::any_of(text, IsWordUnit); }

TextView ColumnOf(SearchIn in) {
  switch (in) {
    case SearchIn::kAnywhere: return {};
    case SearchIn::kTitle: return u"title : ";
    case SearchIn::kCategory: return u"category : ";
    case SearchIn::kTag: return u"tags : ";
  }
  return {};
}

Text Expression(const SearchTerm& term, SearchIn in) {
  Text expression(ColumnOf(in));
  expression += u'"';
  expression += ReplaceAll(SpreadText(StorableText(term.words)), u"\"", u"\"\"");
  expression += u'"';
  if (!term.phrase && !term.excluded) expression += u" *";
  return expression;
}

}  // namespace

char16_t FoldLetterBeyondAscii(char16_t unit) {
  if (unit >= 0x00C0 && unit < 0x0180) return kPlainLatin[unit - 0x00C0U];
  if (unit >= 0x1E00 && unit < 0x1F00) return kPlainLatinMore[unit - 0x1E00U];
  return FoldCase(unit);
}

bool IsWordUnit(char16_t unit) {
  if (unit < 0x80)
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
  return !IsIn(kSigns, unit);
}

bool IsIdeograph(char16_t unit) { return unit >= 0x2E80 && IsIn(kIdeographs, unit); }

Text StorableText(TextView text) {
  Text storable(text);
  for (std::size_t at = 0; at < storable.size(); ++at) {
    char16_t& unit = storable[at];
    if (unit == u'\0') {
      unit = u' ';
    } else if (IsHigh(unit) && at + 1 < storable.size() && IsLow(storable[at + 1])) {
      ++at;
    } else if (IsHigh(unit) || IsLow(unit)) {
      unit = u'\uFFFD';
    }
  }
  return storable;
}

Text SpreadText(TextView text) {
  if (std::ranges::none_of(text, IsIdeograph)) return Text(text);
  Text spread;
  spread.reserve(text.size() * 3);
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool alone = IsIdeograph(text[at]);
    if (alone) spread += u' ';
    spread += text[at];
    if (alone && IsHigh(text[at]) && at + 1 < text.size()) spread += text[++at];
    if (alone) spread += u' ';
  }
  return spread;
}

Text TagsIn(TextView text) {
  const auto isPart = [](char16_t unit) { return IsWordUnit(unit) || unit == u'_' || unit == u'-'; };
  Text tags;
  for (std::size_t at = 0; (at = text.find(u'#', at)) != TextView::npos;) {
    const bool begins = at == 0 || !isPart(text[at - 1]);
    ++at;
    const auto end = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), isPart);
    const TextView word = text.substr(at, static_cast<std::size_t>(end - text.begin()) - at);
    if (begins && HasWord(word)) tags.append(tags.empty() ? u"" : u" ").append(word);
    at += word.size();
  }
  return tags;
}

std::string FullTextExpression(const SearchQuery& query, bool titlesOnly) {
  Text wanted;
  Text excluded;
  for (const SearchTerm& term : query.terms) {
    if (!HasWord(term.words)) continue;
    Text& part = term.excluded ? excluded : wanted;
    if (!part.empty()) part += term.excluded ? u" OR " : u" AND ";
    const bool inTitle = titlesOnly && term.in == SearchIn::kAnywhere && !term.excluded;
    part += Expression(term, inTitle ? SearchIn::kTitle : term.in);
  }
  if (wanted.empty()) return {};
  return ToUtf8(excluded.empty() ? wanted : u"(" + wanted + u") NOT (" + excluded + u")");
}

}  // namespace jotlets
