#include "data/rtf_ink.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace jotlets {
namespace {

constexpr std::string_view kTable = "{\\colortbl";

std::string EntryOf(Colour ink) {
  return "\\red" + std::to_string(ink.r) + "\\green" + std::to_string(ink.g) + "\\blue" +
         std::to_string(ink.b) + ";";
}

// Where the entries of the colour table are: from behind its name to its closing brace.
struct Table {
  std::size_t begin = std::string_view::npos;
  std::size_t end = std::string_view::npos;
  bool Found() const { return end != std::string_view::npos; }
};

Table FindTable(std::string_view rtf) {
  Table table;
  const std::size_t at = rtf.find(kTable);
  if (at == std::string_view::npos) return table;
  table.begin = at + kTable.size();
  table.end = rtf.find_first_of("{}", table.begin);
  if (table.Found() && rtf[table.end] == '{') table.end = std::string_view::npos;
  return table;
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// One control word, its number and the blank that ends it included.
std::string_view WordAt(std::string_view rtf, std::size_t at) {
  std::size_t end = at + 1;
  while (end < rtf.size() && IsLetter(rtf[end])) ++end;
  if (end == at + 1) return rtf.substr(at, 2);
  if (end < rtf.size() && rtf[end] == '-') ++end;
  while (end < rtf.size() && std::isdigit(static_cast<unsigned char>(rtf[end])) != 0) ++end;
  return rtf.substr(at, end - at);
}

// The number behind a word's letters; 0 for none, and for one that no table has.
std::size_t NumberOf(std::string_view word) {
  constexpr std::size_t kMaxDigits = 6;
  const std::size_t at = word.find_first_of("0123456789");
  if (at == std::string_view::npos || word.find('-') != std::string_view::npos) return 0;
  if (word.size() - at > kMaxDigits) return 0;
  return static_cast<std::size_t>(std::stoul(std::string(word.substr(at))));
}

bool IsWord(std::string_view word, std::string_view name) {
  return word.starts_with(name) && (word.size() == name.size() || !IsLetter(word[name.size()]));
}

std::optional<Colour> ColourOf(std::string_view entry) {
  const auto channel = [entry](std::string_view name) -> std::optional<std::uint8_t> {
    const std::size_t at = entry.find(name);
    if (at == std::string_view::npos) return std::nullopt;
    const std::size_t value = NumberOf(WordAt(entry, at));
    return value <= 255 ? std::optional(static_cast<std::uint8_t>(value)) : std::nullopt;
  };
  const auto red = channel("\\red");
  const auto green = channel("\\green");
  const auto blue = channel("\\blue");
  if (!red || !green || !blue) return std::nullopt;
  return Colour{*red, *green, *blue};
}

// On which black can be read.
bool IsLight(Colour colour) {
  constexpr int kMiddle = 128;
  return (colour.r * 299 + colour.g * 587 + colour.b * 114) / 1000 >= kMiddle;
}

// A hostile table: each of its colours would be looked for among all of them.
bool HasTooManyColours(std::string_view rtf, const Table& table) {
  constexpr std::ptrdiff_t kMaxColours = 4096;
  if (!table.Found()) return false;
  const std::string_view entries = rtf.substr(table.begin, table.end - table.begin);
  return std::ranges::count(entries, ';') > kMaxColours;
}

// The colours of a text: those of its table, and which numbers they are shown by.
struct Palette {
  std::vector<std::optional<Colour>> own;  // nothing: no colour
  std::vector<std::size_t> shownAs;
  std::vector<bool> empty;  // entries that stand for no colour, as the first does
  std::size_t ink = 0;
  std::size_t inkOnMarks = 0;

  bool IsLightMark(std::size_t number) const {
    return number < own.size() && own[number] && IsLight(*own[number]);
  }
};

struct Characters {
  std::size_t colour = 0;
  bool marked = false;  // in a light colour

  std::size_t Shown(const Palette& palette) const {
    const bool none = colour == 0 || (colour < palette.empty.size() && palette.empty[colour]);
    if (none && marked) return palette.inkOnMarks;
    if (colour == 0) return palette.ink;
    return marked || colour >= palette.shownAs.size() ? colour : palette.shownAs[colour];
  }
};

// Whether the groups of a text lie so deep in one another that no editor made it: it stays as it is.
bool IsTooDeep(std::string_view rtf) {
  constexpr std::size_t kDeepest = 1000;
  std::size_t depth = 0;
  for (std::size_t at = 0; at < rtf.size(); ++at) {
    if (rtf[at] == '\\')
      ++at;
    else if (rtf[at] == '{' && ++depth > kDeepest)
      return true;
    else if (rtf[at] == '}' && depth > 0)
      --depth;
  }
  return false;
}

std::string Recoloured(std::string_view rtf, const Palette& palette) {
  std::string made;
  made.reserve(rtf.size() + 64);
  std::vector<Characters> outer;
  Characters now;
  for (std::size_t at = 0; at < rtf.size();) {
    if (rtf[at] != '\\') {
      if (rtf[at] == '{') outer.push_back(now);
      if (rtf[at] == '}' && !outer.empty()) {
        now = outer.back();
        outer.pop_back();
      }
      made.push_back(rtf[at++]);
      continue;
    }
    const std::string_view word = WordAt(rtf, at);
    at += word.size();
    // What follows are bytes, not text.
    if (word.starts_with("\\bin")) return made.append(word).append(rtf.substr(at));
    const std::size_t before = now.Shown(palette);
    const bool colour = IsWord(word, "\\cf");
    const bool plain = word == "\\plain";
    if (plain) now = {};
    if (colour) now.colour = NumberOf(word);
    if (IsWord(word, "\\highlight")) now.marked = palette.IsLightMark(NumberOf(word));
    if (!colour) made.append(word);
    if (colour || plain || now.Shown(palette) != before)
      made.append("\\cf").append(std::to_string(now.Shown(palette)));
  }
  return made;
}

std::uint32_t NumberOf(Colour colour) {
  return static_cast<std::uint32_t>(colour.r << 16 | colour.g << 8 | colour.b);
}

// Colours that each stand for another one.
class Distinct {
 public:
  Distinct(Colour ink, const Palette& palette) : taken_{NumberOf(ink), NumberOf(kInkOnMarks)} {
    for (const std::optional<Colour>& own : palette.own)
      if (own) taken_.insert(NumberOf(*own));
  }

  /// One that nothing has yet, a hair beside `wanted`: first in blue, which is seen least.
  Colour Of(Colour wanted) {
    constexpr int kTries = 1 << 13;
    int& bits = tried_[NumberOf(wanted)];
    Colour tried = wanted;
    for (; bits < kTries; ++bits) {
      const auto part = [&bits](int at, int mask) { return bits >> at & mask; };
      tried.b = static_cast<std::uint8_t>(wanted.b ^ part(0, 15));
      tried.g = static_cast<std::uint8_t>(wanted.g ^ part(4, 15));
      tried.r = static_cast<std::uint8_t>(wanted.r ^ part(8, 31));
      if (taken_.insert(NumberOf(tried)).second) break;
    }
    return tried;
  }

 private:
  std::unordered_set<std::uint32_t> taken_;
  std::unordered_map<std::uint32_t, int> tried_;  // how many of those beside a colour are taken
};

}  // namespace

std::string WithInk(std::string_view rtf, Colour ink, const LegibleColour& legible, ShownColours& shown) {
  shown.clear();
  const std::string entry = EntryOf(ink);
  const Table table = FindTable(rtf);
  Palette palette;
  if (IsTooDeep(rtf) || HasTooManyColours(rtf, table)) return std::string(rtf);
  if (!table.Found()) {
    // The table stands before what uses it: behind the first word, which tells that this is rich text.
    if (!rtf.starts_with("{\\rtf")) return std::string(rtf);
    const std::size_t head = 1 + WordAt(rtf, 1).size();
    palette.ink = palette.inkOnMarks = 1;
    return std::string(rtf.substr(0, head)) + std::string(kTable) + ";" + entry + "}" +
           Recoloured(rtf.substr(head), palette);
  }
  std::string entries;
  std::string_view rest = rtf.substr(table.begin, table.end - table.begin);
  for (std::size_t end = rest.find(';'); end != std::string_view::npos; end = rest.find(';')) {
    const std::string_view old = rest.substr(0, end + 1);
    // The first entry is what text without a colour has, in every editor.
    const bool empty = !palette.own.empty() && old.find('\\') == std::string_view::npos;
    entries += empty ? std::string_view(entry) : old;
    palette.own.push_back(ColourOf(old));
    palette.empty.push_back(empty);
    rest.remove_prefix(end + 1);
  }
  std::size_t next = palette.own.size();
  palette.ink = next++;
  entries += entry;
  palette.inkOnMarks = next++;
  entries += EntryOf(kInkOnMarks);
  Distinct distinct(ink, palette);
  for (std::size_t number = 0; number < palette.own.size(); ++number) {
    palette.shownAs.push_back(number);
    const std::optional<Colour>& own = palette.own[number];
    const Colour wanted = own ? legible(*own) : Colour{};
    if (!own || wanted == *own) continue;
    palette.shownAs.back() = next++;
    shown.emplace_back(distinct.Of(wanted), *own);
    entries += EntryOf(shown.back().first);
  }
  return std::string(rtf.substr(0, table.begin)) + entries + "}" +
         Recoloured(rtf.substr(table.end + 1), palette);
}

std::string WithoutInk(std::string_view rtf, Colour ink, const ShownColours& shown) {
  const Table table = FindTable(rtf);
  if (!table.Found()) return std::string(rtf);
  std::string entries;
  std::string_view rest = rtf.substr(table.begin, table.end - table.begin);
  for (std::size_t end = rest.find(';'); end != std::string_view::npos; end = rest.find(';')) {
    const std::string_view old = rest.substr(0, end + 1);
    const std::optional<Colour> colour = ColourOf(old);
    const auto own = std::ranges::find_if(shown, [&](const auto& each) { return each.first == colour; });
    if (colour && (*colour == ink || *colour == kInkOnMarks)) {
      entries += ';';
    } else {
      entries += own == shown.end() ? std::string(old) : EntryOf(own->second);
    }
    rest.remove_prefix(end + 1);
  }
  return std::string(rtf.substr(0, table.begin)).append(entries).append(rest).append(rtf.substr(table.end));
}

}  // namespace jotlets
