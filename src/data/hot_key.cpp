#include "data/hot_key.h"

#include <algorithm>
#include <iterator>

#include "base/key_text.h"

namespace jotlets {
namespace {

enum VirtualKey : std::int32_t {
  kBackspace = 0x08,
  kTab = 0x09,
  kEnter = 0x0D,
  kPause = 0x13,
  kEscape = 0x1B,
  kDelete = 0x2E,
  kF1 = 0x70,
  kF4 = 0x73,
  kF24 = 0x87,
  kScrollLock = 0x91,
};

// Both Shift, Ctrl, Alt and Windows keys, with and without their side, the locks, and what a text input that
// is at work has taken for itself.
constexpr std::int32_t kNoHotKeys[] = {0x10, 0x11, 0x12, 0x14, 0x5B, 0x5C, 0x90, 0xA0,
                                       0xA1, 0xA2, 0xA3, 0xA4, 0xA5, 0xE5, 0xE7};

constexpr std::int32_t kLastKey = 0xFE;

// Nobody types text with these.
bool ServesAlone(std::int32_t key) {
  return (key >= kF1 && key <= kF24) || key == kPause || key == kScrollLock;
}

}  // namespace

Text HotKeyText(const HotKey& hotKey) {
  if (hotKey.key <= 0 || hotKey.key > kLastKey) return {};
  const KeyModifiers held{hotKey.windowsKey, hotKey.ctrl, hotKey.alt, hotKey.shift};
  Text named = KeyText(held, hotKey.key);
  if (!named.empty()) return named;
  // The modifiers as with any key that has a name.
  const Text other = KeyText(held, kPause);
  return other.substr(0, other.size() - KeyText({}, kPause).size()) + u"Key " + IntText(hotKey.key);
}

bool IsCommonKey(const HotKey& hotKey) {
  return hotKey.key > 0 && !hotKey.windowsKey && int{hotKey.ctrl} + int{hotKey.alt} + int{hotKey.shift} < 2;
}

HotKeyPress MeaningOfPress(const HotKey& pressed) {
  const std::int32_t key = pressed.key;
  const bool plain = !pressed.windowsKey && !pressed.ctrl && !pressed.alt;
  if (plain && (key == kTab || key == kEnter || key == kEscape)) return HotKeyPress::kPassOn;
  const bool onlyAlt = pressed.alt && !pressed.windowsKey && !pressed.ctrl;
  // With Alt alone, letters and digits choose from the menus and dialogs of every program.
  const bool chooses = !pressed.shift && ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'));
  if (onlyAlt && (key == kF4 || chooses)) return HotKeyPress::kPassOn;
  if (plain && !pressed.shift && (key == kDelete || key == kBackspace)) return HotKeyPress::kClear;
  if (key <= 0 || key > kLastKey || std::ranges::find(kNoHotKeys, key) != std::end(kNoHotKeys))
    return HotKeyPress::kIgnore;
  return plain && !ServesAlone(key) ? HotKeyPress::kIgnore : HotKeyPress::kTake;
}

}  // namespace jotlets
