#include "data/text_import.h"

#include <algorithm>
#include <array>

namespace jotlets {
namespace {

struct Entity {
  TextView name;
  char16_t unit;
};
constexpr std::array kEntities = {
    Entity{u"amp", u'&'},      Entity{u"lt", u'<'},       Entity{u"gt", u'>'},
    Entity{u"quot", u'"'},     Entity{u"apos", u'\''},    Entity{u"nbsp", 0x00A0},
    Entity{u"ndash", 0x2013},  Entity{u"mdash", 0x2014},  Entity{u"hellip", 0x2026},
    Entity{u"lsquo", 0x2018},  Entity{u"rsquo", 0x2019},  Entity{u"ldquo", 0x201C},
    Entity{u"rdquo", 0x201D},  Entity{u"laquo", 0x00AB},  Entity{u"raquo", 0x00BB},
    Entity{u"bull", 0x2022},   Entity{u"middot", 0x00B7}, Entity{u"copy", 0x00A9},
    Entity{u"reg", 0x00AE},    Entity{u"trade", 0x2122},  Entity{u"euro", 0x20AC},
    Entity{u"pound", 0x00A3},  Entity{u"deg", 0x00B0},    Entity{u"times", 0x00D7},
    Entity{u"auml", 0x00E4},   Entity{u"ouml", 0x00F6},   Entity{u"uuml", 0x00FC},
    Entity{u"Auml", 0x00C4},   Entity{u"Ouml", 0x00D6},   Entity{u"Uuml", 0x00DC},
    Entity{u"szlig", 0x00DF},  Entity{u"eacute", 0x00E9}, Entity{u"egrave", 0x00E8},
    Entity{u"agrave", 0x00E0}, Entity{u"ccedil", 0x00E7}, Entity{u"ntilde", 0x00F1},
};

constexpr std::size_t kLongestEntity = 10;

Text CharacterOf(std::uint32_t code) {
  const bool isText = code == u'\t' || code == u'\n' || (code >= u' ' && code < 0xD800) ||
                      (code >= 0xE000 && code < 0xFFFE) || (code > 0xFFFF && code <= 0x10FFFF);
  if (!isText) return u"\uFFFD";
  if (code <= 0xFFFF) return Text(1, static_cast<char16_t>(code));
  const std::uint32_t above = code - 0x10000;
  return {static_cast<char16_t>(0xD800 + (above >> 10)), static_cast<char16_t>(0xDC00 + (above & 0x3FF))};
}

Text CharacterOfNumber(TextView digits) {
  const bool hex = !digits.empty() && (digits.front() | 0x20) == u'x';
  if (hex) digits.remove_prefix(1);
  std::uint32_t code = 0;
  for (const char16_t unit : digits) {
    const char16_t lower = unit | 0x20;
    const int letter = hex && lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
    const int digit = unit >= u'0' && unit <= u'9' ? unit - u'0' : letter;
    if (digit < 0) return {};
    code = code * (hex ? 16 : 10) + static_cast<std::uint32_t>(digit);
  }
  return digits.empty() ? Text() : CharacterOf(code);
}

// Whether a target shows the words of its link. Long ones are its beginning or its end, or are not of it: to
// look for them at every place takes the product of both lengths.
bool Shows(TextView target, TextView words) {
  constexpr std::size_t kLongestSought = 256;
  if (words.size() <= kLongestSought) return target.find(words) != TextView::npos;
  TextView place = target.substr(target.find(u':') + 1);
  if (place.starts_with(u"//")) place.remove_prefix(2);
  return target.starts_with(words) || place.starts_with(words) || target.ends_with(words);
}

}  // namespace

Text CharacterOfEntity(TextView text, std::size_t& length) {
  length = 0;
  const std::size_t end = text.substr(0, kLongestEntity).find(u';');
  if (!text.starts_with(u'&') || end == TextView::npos) return {};
  const TextView name = text.substr(1, end - 1);
  Text character;
  if (name.starts_with(u'#')) {
    character = CharacterOfNumber(name.substr(1));
  } else if (const auto row = std::ranges::find(kEntities, name, &Entity::name); row != kEntities.end()) {
    character = Text(1, row->unit);
  }
  if (!character.empty()) length = end + 1;
  return character;
}

Text LinkWords(TextView words, TextView target) {
  const bool leadsOut = StartsWithIgnoreCase(target, u"http://") ||
                        StartsWithIgnoreCase(target, u"https://") || StartsWithIgnoreCase(target, u"mailto:");
  if (!leadsOut || Shows(target, words)) return Text(leadsOut ? target : words);
  return Text(words) + u" (" + Text(target) + u")";
}

}  // namespace jotlets
