#include "base/key_text.h"

#include <algorithm>
#include <iterator>

namespace jotlets {
namespace {

constexpr std::int32_t kPad0 = 0x60;
constexpr std::int32_t kF1 = 0x70;
constexpr std::int32_t kF24 = 0x87;

struct NamedKey {
  std::int32_t key;
  TextView name;
  TextView withShift;  // when it is another sign then
};

constexpr NamedKey kNames[] = {
    {0x03, u"Break", {}},        {0x08, u"Backspace", {}},   {0x09, u"Tab", {}},   {0x0C, u"Clear", {}},
    {0x0D, u"Enter", {}},        {0x13, u"Pause", {}},       {0x1B, u"Esc", {}},   {0x20, u"Space", {}},
    {0x21, u"Page Up", {}},      {0x22, u"Page Down", {}},   {0x23, u"End", {}},   {0x24, u"Home", {}},
    {0x25, u"Left", {}},         {0x26, u"Up", {}},          {0x27, u"Right", {}}, {0x28, u"Down", {}},
    {0x2C, u"Print Screen", {}}, {0x2D, u"Ins", {}},         {0x2E, u"Del", {}},   {0x5D, u"Menu", {}},
    {0x6A, u"Num *", {}},        {0x6B, u"Num +", {}},       {0x6D, u"Num -", {}}, {0x6E, u"Num .", {}},
    {0x6F, u"Num /", {}},        {0x91, u"Scroll Lock", {}}, {0xBA, u";", u":"},   {0xBB, u"=", u"+"},
    {0xBC, u",", u"<"},          {0xBD, u"-", u"_"},         {0xBE, u".", u">"},   {0xBF, u"/", u"?"},
    {0xC0, u"`", u"~"},          {0xDB, u"[", u"{"},         {0xDC, u"\\", u"|"},  {0xDD, u"]", u"}"},
    {0xDE, u"'", u"\""}};

bool IsSign(std::int32_t key) { return (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z'); }

Text KeyName(std::int32_t key, bool shift) {
  if (IsSign(key)) return Text(1, static_cast<char16_t>(key));
  if (key >= kF1 && key <= kF24) return u"F" + IntText(key - kF1 + 1);
  if (key >= kPad0 && key <= kPad0 + 9) return u"Num " + IntText(key - kPad0);
  const auto found = std::ranges::find(kNames, key, &NamedKey::key);
  if (found == std::end(kNames)) return {};
  return Text(shift && !found->withShift.empty() ? found->withShift : found->name);
}

}  // namespace

Text KeyText(const KeyModifiers& held, std::int32_t key) {
  const Text name = KeyName(key, held.shift);
  if (name.empty()) return {};
  Text text;
  if (held.windows) text += u"Win+";
  if (held.ctrl) text += u"Ctrl+";
  if (held.alt) text += u"Alt+";
  if (held.shift) text += u"Shift+";
  return text + name;
}

Text TranslatedKey(TextView key, const std::function<Text(std::size_t index)>& wordOf) {
  Text text;
  for (TextView rest = key;;) {
    const std::size_t end = std::min(rest.find(u'+'), rest.size());
    // A key without a name has its number behind the word.
    const TextView part = rest.substr(0, end);
    const TextView word = part.starts_with(u"Key ") ? part.substr(0, 3) : part;
    const auto found = std::ranges::find(kKeyWords, word);
    const Text other =
        found == kKeyWords.end() ? Text() : wordOf(static_cast<std::size_t>(found - kKeyWords.begin()));
    text.append(other.empty() ? word : other).append(part.substr(word.size()));
    if (end == rest.size()) return text;
    text += u'+';
    rest.remove_prefix(end + 1);
  }
}

}  // namespace jotlets
