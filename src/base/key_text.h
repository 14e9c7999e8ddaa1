// Keys in words, as menus, lists and fields show them.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "base/text.h"

namespace jotlets {

/// What is held while a key is pressed.
struct KeyModifiers {
  bool windows = false;
  bool ctrl = false;
  bool alt = false;
  bool shift = false;
};

/// A key with its modifiers in words ("Ctrl+Shift+F", "Win+Alt+S", "F2"). `key` is a virtual-key code of the
/// platform; the text is empty for one that has no name here.
Text KeyText(const KeyModifiers& held, std::int32_t key);

/// The words that keys are made of, in English; all others are signs, or what is written on the keys
/// everywhere.
inline constexpr std::array<TextView, 26> kKeyWords = {
    u"Ctrl",  u"Alt",   u"Shift", u"Win",         u"Break", u"Backspace", u"Tab",
    u"Clear", u"Enter", u"Pause", u"Esc",         u"Space", u"Page Up",   u"Page Down",
    u"End",   u"Home",  u"Left",  u"Up",          u"Right", u"Down",      u"Print Screen",
    u"Ins",   u"Del",   u"Menu",  u"Scroll Lock", u"Key"};

/// A key in the words of another language: `wordOf` has each of `kKeyWords` in it, or nothing.
Text TranslatedKey(TextView key, const std::function<Text(std::size_t index)>& wordOf);

}  // namespace jotlets
