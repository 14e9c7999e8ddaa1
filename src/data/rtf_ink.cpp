#include "data/rtf_ink.h"

#include <algorithm>
#include <cctype>

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

// The text with the colour `number` wherever it goes back to none.
std::string Recoloured(std::string_view rtf, const std::string& number) {
  std::string made;
  made.reserve(rtf.size() + 64);
  for (std::size_t at = 0; at < rtf.size();) {
    if (rtf[at] != '\\') {
      made.push_back(rtf[at++]);
      continue;
    }
    const std::string_view word = WordAt(rtf, at);
    at += word.size();
    // What follows are bytes, not text.
    if (word.starts_with("\\bin")) return made.append(word).append(rtf.substr(at));
    const bool none = word == "\\cf0" || word == "\\cf";
    if (!none) made.append(word);
    if (none || word == "\\plain") made.append("\\cf").append(number);
  }
  return made;
}

}  // namespace

std::string WithInk(std::string_view rtf, Colour ink) {
  const std::string entry = EntryOf(ink);
  const Table table = FindTable(rtf);
  if (!table.Found()) {
    // The table stands before what uses it: behind the first word, which tells that this is rich text.
    if (!rtf.starts_with("{\\rtf")) return std::string(rtf);
    const std::size_t head = 1 + WordAt(rtf, 1).size();
    return std::string(rtf.substr(0, head)) + std::string(kTable) + ";" + entry + "}" +
           Recoloured(rtf.substr(head), "1");
  }
  std::string entries;
  std::size_t count = 0;
  std::string_view rest = rtf.substr(table.begin, table.end - table.begin);
  for (std::size_t end = rest.find(';'); end != std::string_view::npos; end = rest.find(';'), ++count) {
    const std::string_view old = rest.substr(0, end + 1);
    // The first entry is what text without a colour has, in every editor.
    const bool empty = count > 0 && old.find('\\') == std::string_view::npos;
    entries += empty ? std::string_view(entry) : old;
    rest.remove_prefix(end + 1);
  }
  return std::string(rtf.substr(0, table.begin)) + entries + entry + "}" +
         Recoloured(rtf.substr(table.end + 1), std::to_string(count));
}

std::string WithoutInk(std::string_view rtf, Colour ink) {
  const Table table = FindTable(rtf);
  if (!table.Found()) return std::string(rtf);
  const std::string entry = EntryOf(ink);
  std::string entries(rtf.substr(table.begin, table.end - table.begin));
  for (std::size_t at = entries.find(entry); at != std::string::npos; at = entries.find(entry, at + 1))
    entries.replace(at, entry.size(), ";");
  return std::string(rtf.substr(0, table.begin)) + entries + std::string(rtf.substr(table.end));
}

}  // namespace jotlets
