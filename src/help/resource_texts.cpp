#include "help/resource_texts.h"

#include "base/key_text.h"

namespace jotlets {
namespace {

using View = std::string_view;

constexpr std::int32_t kF1 = 0x70;

// The word at the front of `line`, taken off it with the blanks and commas behind it.
View ReadWord(View& line) {
  line.remove_prefix(std::min(line.find_first_not_of(" ,"), line.size()));
  const View word = line.substr(0, line.find_first_of(" ,"));
  line.remove_prefix(word.size());
  line.remove_prefix(std::min(line.find_first_not_of(" ,"), line.size()));
  return word;
}

// The quoted text at the front of `line`, taken off it.
Text ReadQuoted(View& line) {
  std::string text;
  std::size_t i = 1;
  for (; i < line.size(); ++i) {
    const char next = i + 1 < line.size() ? line[i + 1] : '\0';
    if (line[i] == '"' && next != '"') break;
    if (line[i] != '"' && line[i] != '\\') {
      text.push_back(line[i]);
      continue;
    }
    text.push_back(next == 'n' ? '\n' : next == 't' ? '\t' : next == 'r' ? '\r' : next);
    ++i;
  }
  line.remove_prefix(std::min(i + 1, line.size()));
  return FromUtf8(text);
}

template <typename Use>
void ForEachLine(View text, Use use) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    use(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

bool IsNumber(View word) { return !word.empty() && word.find_first_not_of("0123456789") == View::npos; }

}  // namespace

ResourceTexts::ResourceTexts(View header, const std::vector<std::string>& scripts) {
  ForEachLine(header, [this](View line) { ReadNumber(line); });
  for (const std::string& script : scripts) ForEachLine(script, [this](View line) { ReadLine(line); });
}

void ResourceTexts::ReadNumber(View line) {
  if (ReadWord(line) != "#define") return;
  const View name = ReadWord(line);
  const View number = ReadWord(line);
  if (IsNumber(number)) numbers_[std::string(name)] = ParseInt(FromAscii(number));
}

int ResourceTexts::NumberOf(View word) const {
  if (IsNumber(word)) return ParseInt(FromAscii(word));
  const auto found = numbers_.find(word);
  return found == numbers_.end() ? 0 : found->second;
}

// A resource begins in the first column, and what is in it does not.
void ResourceTexts::ReadLine(View line) {
  if (line.empty()) return;
  if (line.front() != ' ') {
    View rest = line;
    const View name = ReadWord(rest);
    const View kind = ReadWord(rest);
    if (name == "BEGIN" || name == "END") return;
    resource_ = kind == "MENU" || kind == "ACCELERATORS" || name == "STRINGTABLE" ? name : "";
    if (kind == "ACCELERATORS") resource_ = kind;
    return;
  }
  if (resource_ == "ACCELERATORS") return ReadAccelerator(line);
  const View word = ReadWord(line);
  if (line.empty() || line.front() != '"') return;
  const Text text = ReadQuoted(line);
  if (resource_ == "STRINGTABLE") strings_[NumberOf(word)] = text;
  if (!resource_.empty() && word == "MENUITEM") menus_[resource_].push_back({text, NumberOf(ReadWord(line))});
}

void ResourceTexts::ReadAccelerator(View line) {
  const View key = ReadWord(line);
  const int id = NumberOf(ReadWord(line));
  const bool isFunctionKey = key.starts_with("VK_F");
  const std::int32_t code = isFunctionKey     ? kF1 - 1 + ParseInt(FromAscii(key.substr(4)))
                            : key.size() == 3 ? key[1]
                                              : 0;
  const auto held = [line](View modifier) { return line.find(modifier) != View::npos; };
  const Text words = KeyText({false, held("CONTROL"), held("ALT"), held("SHIFT")}, code);
  if (!words.empty()) accelerators_.push_back({words, id});
}

Text ResourceTexts::String(int id) const {
  const auto found = strings_.find(id);
  return found == strings_.end() ? Text() : found->second;
}

const std::vector<ResourceTexts::Entry>& ResourceTexts::Menu(const std::string& name) const {
  static const std::vector<Entry> kNone;
  const auto found = menus_.find(name);
  return found == menus_.end() ? kNone : found->second;
}

}  // namespace jotlets
