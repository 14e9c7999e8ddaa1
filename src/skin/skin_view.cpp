#include "skin/skin_view.h"

#include <algorithm>

namespace jotlets {
namespace {

// In the order of `SkinState`.
constexpr TextView kStateNames[] = {
    u"ontop",      u"readonly",   u"alarm",     u"attached",  u"transmit",  u"email",
    u"instack",    u"sleeping",   u"recurring", u"ghost",     u"title",     u"image",
    u"stang",      u"user1",      u"user2",     u"user3",     u"owntitle",  u"scrollbarrequired",
    u"formatbar",  u"checklists", u"bold",      u"italic",    u"underline", u"strikethrough",
    u"bullets",    u"checklist",  u"highlight", u"tagline",   u"tagalarm",  u"tagattached",
    u"taginstack", u"sounding",   u"rolled",    u"picturebar"};

Text UpperAscii(TextView text) {
  Text upper(text);
  for (char16_t& unit : upper) {
    if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - u'a' + u'A');
  }
  return upper;
}

}  // namespace

std::optional<SkinState> SkinStateFromName(TextView name) {
  const auto found = std::find_if(std::begin(kStateNames), std::end(kStateNames),
                                  [name](TextView known) { return EqualIgnoreCase(known, name); });
  if (found == std::end(kStateNames)) return std::nullopt;
  return static_cast<SkinState>(found - std::begin(kStateNames));
}

Text ExpandPlaceholders(TextView text, const SkinWords& words) {
  Text expanded;
  while (true) {
    const std::size_t open = text.find(u'%');
    expanded.append(text.substr(0, open));
    if (open == TextView::npos) return expanded;
    const std::size_t close = text.find(u'%', open + 1);
    const TextView name = text.substr(open + 1, close == TextView::npos ? 0 : close - open - 1);
    const std::optional<Text> value = name.empty() ? std::nullopt : words.Find(UpperAscii(name));
    if (value) {
      expanded.append(*value);
      text.remove_prefix(close + 1);
    } else {
      // A percent sign of the text itself: the next one may open a placeholder.
      expanded.push_back(u'%');
      text.remove_prefix(open + 1);
    }
  }
}

}  // namespace jotlets
