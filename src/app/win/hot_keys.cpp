#include "app/win/hot_keys.h"

#include "base/win/wide.h"

namespace jotlets {
namespace {

UINT ModifierMask(const HotKey& hook) {
  return (hook.windowsKey ? MOD_WIN : 0u) + (hook.shift ? MOD_SHIFT : 0u) + (hook.ctrl ? MOD_CONTROL : 0u) +
         (hook.alt ? MOD_ALT : 0u);
}

}  // namespace

HeldHotKeys RegisterHotKeys(HWND window, const Options& options, Log& log) {
  HeldHotKeys held{};
  if (options.useHooks != 1) return held;
  for (std::size_t i = 0; i < options.hooks.size(); ++i) {
    const HotKey& hook = options.hooks[i];
    if (hook.key <= 0 || hook.key > 0xFE) continue;
    const int id = kFirstHotKey + static_cast<int>(i);
    held[i] = RegisterHotKey(window, id, ModifierMask(hook), static_cast<UINT>(hook.key)) != 0;
    if (!held[i]) log.Write(kLogLifecycle, u"Hot key ", id, u": ", LastErrorText(u"RegisterHotKey"));
  }
  return held;
}

void UnregisterHotKeys(HWND window) {
  for (int id = kFirstHotKey; id < kFirstHotKey + 6; ++id) UnregisterHotKey(window, id);
}

Text HotKeyText(const HotKey& hook) {
  Text text;
  if (hook.windowsKey) text += u"Win+";
  if (hook.ctrl) text += u"Ctrl+";
  if (hook.alt) text += u"Alt+";
  if (hook.shift) text += u"Shift+";
  // The system names keys by where they are on the keyboard.
  wchar_t name[32]{};
  const auto place = static_cast<LONG>(MapVirtualKeyW(static_cast<UINT>(hook.key), MAPVK_VK_TO_VSC));
  const int length = GetKeyNameTextW(place * 0x10000, name, 32);
  return text + Text(FromWide(name, static_cast<std::size_t>(length)));
}

}  // namespace jotlets
